// SPDX-License-Identifier: LGPL-2.1-or-later
// Loaded before a program, lets its threads not start, as where a user or a service may have no more of them. Those that start before
// are counted: the environment variable NO_THREADS_AFTER says how many.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <pthread.h>
#include <stdatomic.h>
#include <stdlib.h>

int pthread_create(pthread_t *thread, const pthread_attr_t *attributes, void *(*run)(void *), void *argument)
{
    static atomic_int started;
    const char *allowed = getenv("NO_THREADS_AFTER");
    int (*plain)(pthread_t *, const pthread_attr_t *, void *(*)(void *), void *) =
        (int (*)(pthread_t *, const pthread_attr_t *, void *(*)(void *), void *))dlsym(RTLD_NEXT, "pthread_create");
    if (atomic_fetch_add(&started, 1) >= (allowed ? atoi(allowed) : 0))
        return EAGAIN;
    return plain(thread, attributes, run, argument);
}
