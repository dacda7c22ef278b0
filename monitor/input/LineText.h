// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QByteArray>

#include <string_view>
#include <vector>

namespace Monitor {

//! Without white space at both ends.
std::string_view trimmed(std::string_view text);

/*! Splits at commas, or at white space where the line has no comma; the fields are trimmed. An empty text has no
    field. \a fields is cleared first and keeps its memory. */
void splitFields(std::string_view line, std::vector<std::string_view> *fields);

/*! Reads a decimal number with a point, whatever the locale; "nan" and "inf" are numbers, an empty text is NaN, a
    number too small for a double is 0. False, and \a number as it was, where the text is anything else
    or a number too large. */
bool parseNumber(std::string_view text, double *number);

//! How a text from outside begins, at most \a length characters, with all but printable ASCII as \xHH.
QByteArray escapedExcerpt(std::string_view text, int length = 60);

} // namespace Monitor
