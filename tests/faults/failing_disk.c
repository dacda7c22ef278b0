// SPDX-License-Identifier: LGPL-2.1-or-later
// Loaded before a program, lets writes to its recordings fail as they do on a broken disk. While the file that FAILING_DISK names
// exists, what is written to a file *.csv fails with the number of an error that stands in it, and a line is added to it.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

static int is_recording(int descriptor)
{
    char link[64], path[4096];
    snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    const ssize_t length = readlink(link, path, sizeof path);
    return length > 4 && memcmp(path + length - 4, ".csv", 4) == 0;
}

// Returns the error that a write to the descriptor fails with; 0 if it does not.
static int error_for(int descriptor)
{
    const char *order = getenv("FAILING_DISK");
    FILE *file = order && is_recording(descriptor) ? fopen(order, "r+") : NULL;
    int error = 0;
    if (file) {
        if (fscanf(file, "%d", &error) != 1)
            error = 0;
        fseek(file, 0, SEEK_END);
        fputs("\nfailed", file);
        fclose(file);
    }
    return error;
}

ssize_t write(int descriptor, const void *data, size_t size)
{
    static ssize_t (*plain)(int, const void *, size_t);
    if (!plain)
        plain = (ssize_t(*)(int, const void *, size_t))dlsym(RTLD_NEXT, "write");
    const int error = error_for(descriptor);
    if (error == 0)
        return plain(descriptor, data, size);
    errno = error;
    return -1;
}

int fsync(int descriptor)
{
    static int (*plain)(int);
    if (!plain)
        plain = (int (*)(int))dlsym(RTLD_NEXT, "fsync");
    const int error = error_for(descriptor);
    if (error == 0)
        return plain(descriptor);
    errno = error;
    return -1;
}
