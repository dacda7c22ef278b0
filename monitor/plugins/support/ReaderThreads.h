// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <functional>

/*! The threads in which a plugin waits for its peers. Nobody waits for one of them while the window is open, since a peer that
    does not answer may keep it for long. */
namespace ReaderThreads {

//! Runs a task in a thread of its own. The task is deleted there as soon as it has ended.
void run(std::function<void()> task);
/*! Waits until all threads have ended, but not for ever. It is called after the application's event loop, so that threads which
    are told to end then seldom outlive main(). */
void waitForAll();

} // namespace ReaderThreads
