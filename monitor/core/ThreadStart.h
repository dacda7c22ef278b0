// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <system_error>
#include <thread>
#include <utility>

namespace Monitor {

/*! Lets \a thread run a function. Returns false if the system has no more threads, as it happens where a user or a service may have
    only so many. */
template<typename Function>
bool startThread(std::thread *thread, Function function)
{
    try {
        *thread = std::thread(std::move(function));
        return true;
    } catch (const std::system_error &) {
        return false;
    }
}

} // namespace Monitor
