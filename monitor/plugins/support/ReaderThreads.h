// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <functional>

/*! The threads in which a plugin waits for its peers. Nobody waits for one of them while the window is open, since a peer that
    does not answer may keep it for long. */
namespace ReaderThreads {

/*! Runs a task in a separate thread. The task is deleted there as soon as it has ended. Throws std::system_error if the system has no
    more threads; the program reports that where it called the plugin. */
void run(std::function<void()> task);
/*! Waits for all threads to end, for two seconds at most. It is called after the application's event loop, when the threads have
    been told to end, so that few of them outlive main(). */
void waitForAll();

} // namespace ReaderThreads
