// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QByteArray>

#include <string_view>
#include <vector>

namespace Monitor {

//! Returns the text without white space at both ends.
std::string_view trimmed(std::string_view text);

/*! Splits a line at commas, or at white space if it has no comma, and trims the fields. An empty line has no fields.
    \a fields is cleared first and keeps its memory. */
void splitFields(std::string_view line, std::vector<std::string_view> *fields);

/*! Reads a decimal number with a point, whatever the locale. "nan" and "inf" are numbers, an empty text is NaN, and a
    number too small for a double is 0. Returns false, and leaves \a number unchanged, for a number that is too large
    and for any other text. */
bool parseNumber(std::string_view text, double *number);

/*! Returns the first \a length characters of a text from outside, with "..." if there are more. All but printable ASCII
    is written as \xHH. */
QByteArray escapedExcerpt(std::string_view text, int length = 60);

} // namespace Monitor
