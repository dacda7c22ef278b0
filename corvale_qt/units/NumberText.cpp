// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/NumberText_p.h"

#include <QtGlobal>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
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

/*  writeFixed() and writeExponent() multiply the value by a power of ten and write the digits of the whole number nearest to the product.
    That takes a fraction of the time of an exact conversion, but rounding of the product may change the last digit. If it
    might, they return null and the caller must fall back to std::to_chars; the buffer's content is then undefined.

    The value is finite; precision, the number of digits after the point, is 0 to 9. On success the functions return
    the end of the text. */

//! The largest number of characters that the functions write.
constexpr int quickNumberRoom = 40;

//! Writes \a value as printf() does with %f.
char *writeFixed(char *to, double value, int precision)
{
    quint64 digits = 0;
    if (!nearest(std::abs(value) * powers[precision], digits))
        return nullptr;
    const int count = std::max(countOf(digits), precision + 1);
    return writeDigits(writeSign(to, value), digits, count, precision);
}

//! Writes \a value, which must not be 0, as printf() does with %e.
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
