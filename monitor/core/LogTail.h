// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

class QString;

namespace Monitor {

/*! The last lines of the log, in memory that is there from the start, so that a signal handler can write them after
    a crash. */
namespace LogTail {

//! How many lines are kept, and how many bytes of each in UTF-8.
constexpr int mostLines = 40;
constexpr int longestLine = 240;

//! Adds a line, from any thread. What is beyond longestLine is cut off.
void add(const QString &line);
//! Writes the lines that are kept, the oldest first. A signal handler may call it.
void write(int descriptor);

} // namespace LogTail

} // namespace Monitor
