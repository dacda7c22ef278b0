// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/Text.h"

#include <exception>
#include <system_error>

namespace Monitor {

//! Returns what an exception says, in the words of the program if it knows it.
inline QString reasonOf(const std::exception &exception)
{
    const auto *const ofSystem = dynamic_cast<const std::system_error *>(&exception);
    const bool isThread = ofSystem && ofSystem->code() == std::errc::resource_unavailable_try_again;
    return isThread ? Text::noThread() : QString::fromLocal8Bit(exception.what());
}

/*! Calls a function that calls a plugin, which somebody else may have written and which may use what throws. If an exception comes
    out, \a error says why; otherwise the function decides what is in it. */
template<typename Call>
void callPlugin(QString *error, Call call)
{
    try {
        call();
    } catch (const std::exception &exception) {
        *error = reasonOf(exception);
    }
}

} // namespace Monitor
