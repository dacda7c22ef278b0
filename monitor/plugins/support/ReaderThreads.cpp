// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/support/ReaderThreads.h"

#include <QCoreApplication>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace ReaderThreads {

namespace {

//! How long the end of the program waits for the threads.
constexpr std::chrono::seconds endPatience{2};

struct Threads
{
    std::mutex mutex;
    std::condition_variable ended;
    int running = 0;

    void add()
    {
        const std::lock_guard lock(mutex);
        ++running;
    }
    void remove()
    {
        const std::lock_guard lock(mutex);
        --running;
        ended.notify_all();
    }
};

//! Returns the threads. They are never destroyed, since one may outlive main().
Threads &threads()
{
    static auto *const all = new Threads;
    return *all;
}

} // namespace

void run(std::function<void()> task)
{
    static std::once_flag once;
    std::call_once(once, [] {
        qAddPostRoutine(&waitForAll);
    });
    Threads &all = threads();
    all.add();
    try {
        std::thread([task = std::move(task), &all]() mutable {
            task();
            task = nullptr; // nothing of it is left when the end of the program goes on
            all.remove();
        }).detach();
    } catch (const std::system_error &) {
        all.remove();
        throw;
    }
}

void waitForAll()
{
    Threads &all = threads();
    std::unique_lock lock(all.mutex);
    all.ended.wait_for(lock, endPatience, [&] {
        return all.running == 0;
    });
}

} // namespace ReaderThreads
