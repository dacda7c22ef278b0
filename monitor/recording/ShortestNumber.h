// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace Monitor {

//! The most characters that writeShortest() writes.
inline constexpr int longestNumber = 32;

/*! Writes a number with the fewest digits from which the same number is read back, bit for bit (whole numbers above 10^15 may
    have all of theirs), and returns the end of the text. \a to has room for longestNumber characters. Infinities are "inf" and
    "-inf", NaN is "nan" or "-nan". */
char *writeShortest(char *to, double value);

} // namespace Monitor
