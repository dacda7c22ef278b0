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
//! No two texts of this many digits are read as the same number, so that the one that is found is the shortest.
constexpr int mostDigits = 15;
//! Most instruments send numbers of at most this many digits, which are found in half of the time.
constexpr int usualDigits = 8;
constexpr std::int64_t tenToEight = 100000000;
constexpr int smallestFixed =
    -4; // the power of ten from which on a number is written without an exponent

__extension__ using Sixteen = unsigned __int128;

//! The digits of a number, without zeros at either end, and how many of them are behind the point; negative if zeros follow.
struct Digits
{
    Sixteen text = 0; //!< as characters, the first in the lowest byte
    int count = 0;
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

/*! Returns the digits of a number below 10^8, one in each byte, the first in the lowest. The number is divided into two parts of
    four digits, these into four of two, and these into eight. */
std::uint64_t spreadDigits(std::uint32_t number)
{
    const std::uint64_t fours = number / 10000 + (std::uint64_t(number % 10000) << 32);
    // The products are the quotients by 100 and by 10 for all numbers that a part can be.
    const std::uint64_t hundreds = ((fours * 10486) >> 20) & 0x0000007f0000007f;
    const std::uint64_t pairs = hundreds + ((fours - 100 * hundreds) << 16);
    const std::uint64_t tens = ((pairs * 103) >> 10) & 0x000f000f000f000f;
    return tens + ((pairs - 10 * tens) << 8);
}

//! Returns a text without its first characters.
Sixteen withoutFirst(Sixteen text, int count)
{
    return text >> (8 * count);
}

constexpr std::uint64_t characters = 0x3030303030303030; // '0' to '9' in place of 0 to 9

//! Finds the digits of a number that is not 0 and has at most eight of them.
void findEight(std::uint32_t number, int decimals, Digits *digits)
{
    const std::uint64_t spread = spreadDigits(number);
    const int before = __builtin_ctzll(spread) / 8;
    const int behind = __builtin_clzll(spread) / 8;
    *digits = {(spread | characters) >> (8 * before), 8 - before - behind, decimals - behind};
}

//! Finds the digits of a number that has from nine to sixteen of them.
void findSixteen(std::uint64_t number, int decimals, Digits *digits)
{
    const std::uint64_t upper = spreadDigits(std::uint32_t(number / tenToEight));
    const std::uint64_t lower = spreadDigits(std::uint32_t(number % tenToEight));
    const int before = __builtin_ctzll(upper) / 8;
    const int behind = lower != 0 ? __builtin_clzll(lower) / 8 : 8 + __builtin_clzll(upper) / 8;
    const Sixteen text = Sixteen(lower | characters) << 64 | (upper | characters);
    *digits = {withoutFirst(text, before), 16 - before - behind, decimals - behind};
}

//! Finds the decimal number of at most \a most digits that is read back as \a value. Returns false if there is none.
bool findDecimal(double value, int most, Digits *digits)
{
    const int decimals = std::min(most - powerAbove(value), mostDecimals);
    if (decimals < 0)
        return false;
    const double power = powersOfTen[decimals];
    // A half that is rounded to the wrong side does not divide to the value.
    const auto number = std::int64_t(value * power + 0.5); // NOLINT(bugprone-incorrect-roundings)
    if (double(number) / power != value)
        return false;
    if (number < tenToEight)
        findEight(std::uint32_t(number), decimals, digits);
    else
        findSixteen(std::uint64_t(number), decimals, digits);
    return true;
}

//! Writes sixteen characters, which takes less time than as many as are needed. What is too much is overwritten later.
void put(char *to, Sixteen text)
{
    std::uint64_t halves[] = {std::uint64_t(text), std::uint64_t(text >> 64)};
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    for (std::uint64_t &half : halves)
        half = __builtin_bswap64(half);
#endif
    std::memcpy(to, halves, sizeof halves);
}

//! Writes "0.", zeros and the digits.
char *writeSmall(char *to, const Digits &digits)
{
    *to++ = '0';
    *to++ = '.';
    to = std::fill_n(to, digits.decimals - digits.count, '0');
    put(to, digits.text);
    return to + digits.count;
}

char *writeWithExponent(char *to, const Digits &digits, int exponent)
{
    put(to, digits.text);
    if (digits.count > 1) {
        put(to + 2, withoutFirst(digits.text, 1));
        to[1] = '.';
        to += digits.count;
    }
    ++to;
    *to++ = 'e';
    *to++ = '-';
    if (exponent > -10)
        *to++ = '0'; // two digits, as printf() writes them
    return std::to_chars(to, to + 4, -exponent).ptr;
}

char *writeDecimal(char *to, const Digits &digits)
{
    const int exponent = digits.count - 1 - digits.decimals;
    if (exponent < smallestFixed)
        return writeWithExponent(to, digits, exponent);
    if (exponent < 0)
        return writeSmall(to, digits);
    put(to, digits.text);
    if (digits.decimals <= 0)
        return std::fill_n(to + digits.count, -digits.decimals, '0');
    const int whole = digits.count - digits.decimals;
    put(to + whole + 1, withoutFirst(digits.text, whole));
    to[whole] = '.';
    return to + digits.count + 1;
}

} // namespace

char *writeShortest(char *to, double value)
{
    const double size = std::abs(value);
    Digits digits;
    const bool isFound = std::isnormal(value)
        && (findDecimal(size, usualDigits, &digits) || findDecimal(size, mostDigits, &digits));
    if (!isFound)
        return std::to_chars(to, to + longestNumber, value).ptr;
    if (value < 0)
        *to++ = '-';
    return writeDecimal(to, digits);
}

} // namespace Monitor
