// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/ShortestNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace Monitor {

namespace {

//! Doubles hold these powers exactly, so that a quotient by one of them is rounded only once, as a reader rounds its text.
constexpr double powersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int mostDecimals = 22;
//! No two texts of so many digits are read as the same number, so that the one that is found is the shortest.
constexpr int mostDigits = 15;
constexpr int smallestFixed =
    -4; // the power of ten from which on a number is written without an exponent

//! A number as digits x 10^-decimals.
struct Decimal
{
    std::uint64_t digits = 0;
    int decimals = 0;
};

//! Returns a power of ten above a positive number, at most twenty times as large.
int powerAbove(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    const int binary = int(bits >> 52U) - 1022; // the number is below 2^binary
    // log10(2) is 1233 / 4096, rounded up.
    return ((binary * 1233) >> 12) + 1;
}

void dropZeros(Decimal &number)
{
    const auto drop = [&number](std::uint64_t power, int zeros) {
        if (number.digits % power != 0)
            return;
        number.digits /= power;
        number.decimals -= zeros;
    };
    drop(100000000, 8);
    drop(10000, 4);
    drop(100, 2);
    drop(10, 1);
}

//! Finds the decimal number of at most 15 digits that is read back as \a value. Most instruments send such numbers.
bool findDecimal(double value, Decimal *number)
{
    const int decimals = std::min(mostDigits - powerAbove(value), mostDecimals);
    if (decimals < 0)
        return false;
    const double digits = std::rint(value * powersOfTen[decimals]);
    if (digits / powersOfTen[decimals] != value)
        return false;
    *number = {std::uint64_t(digits), decimals};
    dropZeros(*number);
    return true;
}

//! Moves the last \a decimals of the digits by one place and puts the point before them.
char *insertPoint(char *end, int decimals)
{
    char *const point = end - decimals;
    std::memmove(point + 1, point, std::size_t(decimals));
    *point = '.';
    return end + 1;
}

//! Writes "0.", zeros and the digits, of which there are \a count.
char *writeSmall(char *to, const char *digits, int count, int decimals)
{
    *to++ = '0';
    *to++ = '.';
    to = std::fill_n(to, decimals - count, '0');
    return std::copy_n(digits, count, to);
}

char *writeWithExponent(char *to, const char *digits, int count, int exponent)
{
    *to++ = digits[0];
    if (count > 1) {
        *to++ = '.';
        to = std::copy(digits + 1, digits + count, to);
    }
    *to++ = 'e';
    *to++ = '-';
    if (exponent > -10)
        *to++ = '0'; // two digits, as printf() writes them
    return std::to_chars(to, to + 4, -exponent).ptr;
}

char *writeDecimal(char *to, const Decimal &number)
{
    char digits[mostDigits + 9];
    const char *const end = std::to_chars(digits, digits + sizeof digits, number.digits).ptr;
    const int count = int(end - digits);
    const int exponent = count - 1 - number.decimals;
    if (exponent < smallestFixed)
        return writeWithExponent(to, digits, count, exponent);
    if (exponent < 0)
        return writeSmall(to, digits, count, number.decimals);
    to = std::copy_n(digits, count, to);
    if (number.decimals <= 0)
        return std::fill_n(to, -number.decimals, '0');
    return insertPoint(to, number.decimals);
}

} // namespace

char *writeShortest(char *to, double value)
{
    const double size = std::abs(value);
    Decimal number;
    if (!std::isnormal(value) || !findDecimal(size, &number))
        return std::to_chars(to, to + longestNumber, value).ptr;
    if (value < 0)
        *to++ = '-';
    return writeDecimal(to, number);
}

} // namespace Monitor
