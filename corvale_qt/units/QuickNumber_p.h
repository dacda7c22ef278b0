// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {
namespace Units {

/*  These functions multiply the value by a power of ten and write the digits of the whole number nearest to the product.
    That takes a fraction of the time of an exact conversion, but rounding of the product may change the last digit. If it
    might, they return null and the caller must fall back to std::to_chars; the buffer's content is then undefined.

    \a value is finite; \a precision, the number of digits after the point, is 0 to 9. On success the functions return
    the end of the text. */

//! The largest number of characters that the functions write.
constexpr int quickNumberRoom = 40;

//! Writes \a value as printf() does with %f.
char *writeFixed(char *to, double value, int precision);
//! Writes \a value, which must not be 0, as printf() does with %e.
char *writeExponent(char *to, double value, int precision);

} // namespace Units
} // namespace Corvale_Qt
