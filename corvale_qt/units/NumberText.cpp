// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/NumberText_p.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace Corvale_Qt {
namespace Units {

namespace {

constexpr int largestPrecision = 9;

/*  Qt rounds a number that lies halfway between two texts away from zero, the standard library to the even
    digit. Halfway takes few bits: with a set bit among the lowest 16 of the mantissa, a number below these
    limits needs more decimals than 9 to be written out, and is not halfway between texts of 9. */
bool isSurelyNoTie(double value, char format)
{
    quint64 bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return (bits & 0xffff) != 0 && std::abs(value) < (format == 'f' ? 6e7 : 1e11);
}

std::chars_format formatOf(char format)
{
    switch (format) {
    case 'e':
        return std::chars_format::scientific;
    case 'f':
        return std::chars_format::fixed;
    default:
        return std::chars_format::general;
    }
}

} // namespace

void appendNumber(QByteArray &text, double value, char format, int precision)
{
    if (precision >= 0 && precision <= largestPrecision && isSurelyNoTie(value, format)) {
        char buffer[64];
        const auto end =
            std::to_chars(buffer, buffer + sizeof buffer, value, formatOf(format), precision);
        text.append(buffer, int(end.ptr - buffer));
    } else {
        text.append(QByteArray::number(value, format, precision));
    }
}

} // namespace Units
} // namespace Corvale_Qt
