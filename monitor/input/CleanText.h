// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

#include <string_view>

namespace Monitor {

//! Length of the longest name or unit in characters; the rest is cut off.
constexpr int maxNameLength = 64;
//! Length of the longest event or other text for people in characters; the rest is cut off.
constexpr int maxTextLength = 500;

/*! Returns a text from outside as one line of at most \a length characters, without control characters and without
    blanks at its ends. */
QString cleanText(const QString &text, int length);

/*! Returns the characters of a text from outside: as UTF-8 if it is that, and otherwise as Latin-1, in which older programs write names
    and units such as "µA". */
QString decodedText(std::string_view bytes);

} // namespace Monitor
