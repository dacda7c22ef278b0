// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace Monitor {

/*! Writes the circumstances of a crash to a file that was opened beforehand: the signal, the last lines of the log and
    the frames of the stack. After that the crash takes its course, so that a core dump is made where the system makes
    them. */
namespace CrashHandler {

//! What begins the line of the signal; no note of a run begins like this.
constexpr const char *mark = "crash: ";

/*! From now on, crashes are written to the end of the file behind \a descriptor. A signal that something else handles
    already, such as a sanitizer, is left to it. */
void install(int descriptor);
//! From now on, crashes are written nowhere. Call it before the file is closed.
void forgetFile();

} // namespace CrashHandler

} // namespace Monitor
