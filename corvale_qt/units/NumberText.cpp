// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/NumberText_p.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
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

//! The numbers 00 to 99 as texts, one after the other.
constexpr auto pairsOfDigits = [] {
    std::array<char, 200> pairs{};
    for (size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = char('0' + i / 10);
        pairs[2 * i + 1] = char('0' + i % 10);
    }
    return pairs;
}();

//! Writes the last \a count digits of \a digits so that they end at \a end; returns what is left of the number.
quint64 writeBackwards(char *end, quint64 digits, int count)
{
    for (; count >= 2; count -= 2, digits /= 100) {
        end -= 2;
        std::memcpy(end, &pairsOfDigits[2 * size_t(digits % 100)], 2);
    }
    if (count > 0) {
        *--end = char('0' + digits % 10);
        digits /= 10;
    }
    return digits;
}

//! Writes the last \a count digits of \a digits, with a point before the last \a decimals of them.
char *writeDigits(char *to, quint64 digits, int count, int decimals)
{
    if (decimals <= 0) {
        writeBackwards(to + count, digits, count);
        return to + count;
    }
    char *const end = to + count + 1;
    digits = writeBackwards(end, digits, decimals);
    char *const point = end - decimals - 1;
    *point = '.';
    writeBackwards(point, digits, count - decimals);
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

/*  writeFixed(), writeExponent() and writeGeneral() multiply the value by a power of ten and write the digits of the whole number nearest to the product.
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

//! The digits of a number, and the power of ten of the first of them.
struct Decimal
{
    quint64 digits;
    int power;
};

//! Rounds a magnitude above 0 to \a count digits; false if they are uncertain.
bool roundTo(double magnitude, int count, Decimal &decimal)
{
    int power = powerOf(magnitude);
    const int decimals = count - 1;
    if (std::abs(decimals - power) >= largestPower)
        return false;
    if (shifted(magnitude, decimals - power) < powers[decimals])
        --power;
    quint64 digits = 0;
    if (!nearest(shifted(magnitude, decimals - power), digits))
        return false;
    // Rounding up gave one digit more, as from 9.99 to 10.0.
    const bool isLonger = digits >= quint64(powers[count]);
    decimal = isLonger ? Decimal{digits / 10, power + 1} : Decimal{digits, power};
    return true;
}

char *writePower(char *to, int power)
{
    *to++ = 'e';
    *to++ = power < 0 ? '-' : '+';
    // printf() writes at least two digits of exponent; with these powers there are never more.
    *to++ = char('0' + std::abs(power) / 10);
    *to++ = char('0' + std::abs(power) % 10);
    return to;
}

//! Writes \a value, which must not be 0, as printf() does with %e.
char *writeExponent(char *to, double value, int precision)
{
    Decimal decimal{};
    if (!roundTo(std::abs(value), precision + 1, decimal))
        return nullptr;
    to = writeDigits(writeSign(to, value), decimal.digits, precision + 1, precision);
    return writePower(to, decimal.power);
}

//! Writes \a value, which must not be 0, as printf() does with %g: without zeros at the end.
char *writeGeneral(char *to, double value, int precision)
{
    int count = std::max(precision, 1);
    Decimal decimal{};
    if (!roundTo(std::abs(value), count, decimal))
        return nullptr;
    const bool isFixed = decimal.power >= -4 && decimal.power < count;
    for (; count > 1 && decimal.digits % 10 == 0; --count)
        decimal.digits /= 10;
    to = writeSign(to, value);
    if (!isFixed)
        return writePower(writeDigits(to, decimal.digits, count, count - 1), decimal.power);
    const int decimals = count - 1 - decimal.power;
    if (decimals < 0) // zeros before the point were removed as well
        return writeDigits(to, decimal.digits * quint64(powers[-decimals]), count - decimals, 0);
    return writeDigits(to, decimal.digits, std::max(count, decimals + 1), decimals);
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
    if (value == 0.0)
        return nullptr;
    if (format == 'e')
        return writeExponent(to, value, precision);
    return format == 'g' ? writeGeneral(to, value, precision) : nullptr;
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
