// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

namespace Corvale_Qt {
namespace Units {

/*  Texts of numbers by way of one product with a power of ten, whose digits are then those of a whole number. That
    takes a fraction of the time of a conversion that is right for each number; so each of these answers null, having
    written nothing of use, where the product's rounding might show, and somebody else has to be asked.

    \a value is finite; \a precision is 0 to 9, digits after the point. Both return the end of what they wrote. */

//! How much room the texts take at most.
constexpr int quickNumberRoom = 40;

//! As printf's %f.
char *writeFixed(char *to, double value, int precision);
//! As printf's %e; \a value is not 0.
char *writeExponent(char *to, double value, int precision);

} // namespace Units
} // namespace Corvale_Qt
