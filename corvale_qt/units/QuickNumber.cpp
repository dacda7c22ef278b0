// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/QuickNumber_p.h"

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <limits>

namespace Corvale_Qt {
namespace Units {

namespace {

// The powers of ten that a double holds exactly, so that a product or quotient with one is rounded only once.
constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                             1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int largestPower = 22;

// Below this, a double can represent halves, so that a tie is seen.
constexpr double largest = 1e15;

//! Finds the whole number nearest to the exact value that was rounded to \a product; false if that is uncertain.
bool nearest(double product, quint64 &whole)
{
    if (!(product < largest))
        return false;
    const auto below = quint64(product);
    const double rest = product - double(below);
    // The product is wrong by at most half of its last bit; a rest nearer to one half than that could be either way.
    if (std::abs(rest - 0.5) <= product * std::numeric_limits<double>::epsilon())
        return false;
    whole = below + (rest > 0.5 ? 1 : 0);
    return true;
}

char *writeSign(char *to, double value)
{
    *to = '-';
    return std::signbit(value) ? to + 1 : to;
}

//! Writes the last \a count digits of \a digits, with a point before the last \a decimals of them.
char *writeDigits(char *to, quint64 digits, int count, int decimals)
{
    char *const end = to + count + (decimals > 0 ? 1 : 0);
    char *place = end;
    for (int written = 0; written < count; ++written) {
        if (written == decimals && decimals > 0)
            *--place = '.';
        *--place = char('0' + digits % 10);
        digits /= 10;
    }
    return end;
}

int countOf(quint64 digits)
{
    int count = 1;
    while (double(digits) >= powers[count])
        ++count;
    return count;
}

//! Returns value x 10^power, rounded once; |power| must be at most 22.
double shifted(double value, int power)
{
    return power >= 0 ? value * powers[power] : value / powers[-power];
}

//! Returns the power of ten of the first digit, or one more than it.
int powerOf(double magnitude)
{
    constexpr double log10Of2 = 0.30102999566398120;
    return int(std::floor((std::ilogb(magnitude) + 1) * log10Of2));
}

} // namespace

char *writeFixed(char *to, double value, int precision)
{
    quint64 digits = 0;
    if (!nearest(std::abs(value) * powers[precision], digits))
        return nullptr;
    const int count = std::max(countOf(digits), precision + 1);
    return writeDigits(writeSign(to, value), digits, count, precision);
}

char *writeExponent(char *to, double value, int precision)
{
    const double magnitude = std::abs(value);
    int power = powerOf(magnitude);
    if (std::abs(precision - power) >= largestPower)
        return nullptr;
    if (shifted(magnitude, precision - power) < powers[precision])
        --power;
    quint64 digits = 0;
    if (!nearest(shifted(magnitude, precision - power), digits))
        return nullptr;
    // Rounding up gave one digit more, as from 9.99 to 10.0.
    if (digits >= quint64(powers[precision + 1])) {
        digits /= 10;
        ++power;
    }
    char *end = writeDigits(writeSign(to, value), digits, precision + 1, precision);
    *end++ = 'e';
    *end++ = power < 0 ? '-' : '+';
    // printf() writes at least two digits of exponent; with these powers there are never more.
    *end++ = char('0' + std::abs(power) / 10);
    *end++ = char('0' + std::abs(power) % 10);
    return end;
}

} // namespace Units
} // namespace Corvale_Qt
