// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/NumberText_p.h"
#include "corvale_qt/units/QuickNumber_p.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace Corvale_Qt {
namespace Units {

namespace {

constexpr int largestPrecision = 9;

/*! Returns the magnitude below which a number with many bits has more decimals than a text of nine decimals and the 5 of
    a tie, so that it cannot be a tie. */
double largestOf(char format)
{
    return format == 'f' ? 6e7 : 1e11;
}

//! Returns true if any of the lowest 16 bits of the mantissa is set.
bool hasManyBits(double value)
{
    quint64 bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return (bits & 0xffff) != 0;
}

//! Returns true if the shortest text that reads as \a value has \a digits digits and the last of them is a 5.
bool endsWithFive(double value, int digits)
{
    char buffer[64];
    const char *const end = std::to_chars(buffer,
                                          buffer + sizeof buffer,
                                          std::abs(value),
                                          std::chars_format::scientific)
                                .ptr;
    const char *const exponent = std::find<const char *>(buffer, end, 'e');
    const auto length = exponent - buffer;
    return (length == 1 ? 1 : length - 1) == digits && exponent[-1] == '5';
}

/*! Returns true if the number may lie halfway between two texts. Qt rounds such a number away from zero, the standard
    library rounds it to the even digit.

    A number lies halfway if it has exactly one digit more than the text and that digit is a 5. A number with so few
    digits equals its shortest text; and a number with n decimals has n binary places after the point as well. */
bool mayBeTie(double value, char format, int precision)
{
    if (hasManyBits(value))
        return false;
    if (format == 'f') {
        const double places = std::abs(value) * double(1 << precision);
        return places - double(qint64(places)) == 0.5;
    }
    const int digits = format == 'e' ? precision + 1 : std::max(precision, 1);
    return endsWithFive(value, digits + 1);
}

bool isUsual(double value, char format, int precision)
{
    // Qt writes a NaN and a negative zero in its own way.
    return std::abs(value) < largestOf(format) && !(value == 0.0 && std::signbit(value))
        && precision >= 0 && precision <= largestPrecision;
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

//! Writes the number if its digits are certain; returns the end of the text, or null.
char *writeQuickly(char *to, double value, char format, int precision)
{
    if (format == 'f')
        return writeFixed(to, value, precision);
    return format == 'e' && value != 0.0 ? writeExponent(to, value, precision) : nullptr;
}

//! Writes a usual number as Qt does; returns the end of the text, or null if only Qt knows the text.
char *write(char *to, char *end, double value, char format, int precision)
{
    if (char *const written = writeQuickly(to, value, format, precision))
        return written;
    if (mayBeTie(value, format, precision))
        return nullptr;
    return std::to_chars(to, end, value, formatOf(format), precision).ptr;
}

} // namespace

void appendNumber(QByteArray &text, double value, char format, int precision)
{
    char buffer[64];
    static_assert(sizeof buffer >= quickNumberRoom);
    const bool usual = isUsual(value, format, precision);
    const char *const end =
        usual ? write(buffer, buffer + sizeof buffer, value, format, precision) : nullptr;
    if (end)
        text.append(buffer, int(end - buffer));
    else
        text.append(QByteArray::number(value, format, precision));
}

} // namespace Units
} // namespace Corvale_Qt
