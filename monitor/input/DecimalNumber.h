// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <cstdint>

namespace Monitor {

//! How many digits a number has at most that is read in this quick way: any such number fits into 64 bits.
constexpr int mostQuickDigits = 19;

/*! Finds the double that is nearest to digits * 10^exponent. Returns false, and leaves \a number unchanged, if this quick way cannot tell for
    certain. */
bool nearestDouble(std::uint64_t digits, int exponent, double *number);

/*! Reads the decimal number at the beginning of a text, such as "-1.25e-9", to the nearest double. Returns where it ends.
    Returns null, and leaves \a number unchanged, for other texts, and for the few numbers whose nearest double this quick way
    cannot tell for certain: those of more than 19 digits, or of extreme exponents, and about one in a thousand of those with 16
    digits and more. */
const char *readDecimal(const char *text, const char *end, double *number);

} // namespace Monitor
