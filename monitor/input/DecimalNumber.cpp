// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/DecimalNumber.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace Monitor {

namespace {

__extension__ using Wide = unsigned __int128;

// Within a function, each call would make a table anew on its stack unless it is static.
constexpr std::uint64_t wholePowers[] =
    {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
constexpr std::array powers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                            1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

//! A number as it is written: digits * 10^exponent.
struct Decimal
{
    std::uint64_t digits = 0;
    int exponent = 0;
    bool isNegative = false;
};

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__

constexpr std::uint64_t zeros = 0x3030303030303030; // "00000000"

//! Returns how many of the eight characters of \a text are digits before the first other one. The first is in the lowest byte.
int countDigits(std::uint64_t text)
{
    // Either sum has the highest bit of a byte set if it is not a digit. What such a byte carries over changes only later ones.
    constexpr std::uint64_t aboveNine = 0x4646464646464646, highest = 0x8080808080808080;
    const std::uint64_t others = ((text + aboveNine) | (text - zeros)) & highest;
    return others == 0 ? 8 : __builtin_ctzll(others) / 8;
}

//! Returns the number that eight digits are, each of which is a byte from 0 to 9. Neighbours are joined three times.
std::uint64_t joinDigits(std::uint64_t digits)
{
    digits = (digits * 10) + (digits >> 8);
    constexpr std::uint64_t pairs = 0x000000ff000000ff;
    constexpr std::uint64_t first = 0x000f424000000064, second = 0x0000271000000001;
    return ((digits & pairs) * first + ((digits >> 16) & pairs) * second) >> 32;
}

#endif

//! Adds the digits at the beginning of a text to a number. Inlined, so that the number stays in a register.
[[gnu::always_inline]] inline const char *
readDigits(const char *at, const char *end, std::uint64_t *digits)
{
#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
    while (end - at >= 8) {
        std::uint64_t text = 0;
        std::memcpy(&text, at, sizeof text);
        const int count = countDigits(text);
        if (count == 0)
            return at;
        // The digits move up to the last places; zeros come before them.
        const std::uint64_t last = (text - zeros) << (64 - 8 * count);
        *digits = *digits * wholePowers[count] + joinDigits(last);
        at += count;
        if (count < 8)
            return at;
    }
#endif
    for (; at != end && isDigit(*at); ++at)
        *digits = *digits * 10 + std::uint64_t(*at - '0');
    return at;
}

//! Reads "e-9". Returns null if no digit follows, or so many that the number is extreme.
const char *readExponent(const char *at, const char *end, int *exponent)
{
    ++at;
    const bool isNegative = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+'))
        ++at;
    const char *const first = at;
    int magnitude = 0;
    for (; at != end && isDigit(*at) && at - first < 4; ++at)
        magnitude = magnitude * 10 + (*at - '0');
    constexpr int most = 3;
    if (at == first || at - first > most)
        return nullptr;
    *exponent += isNegative ? -magnitude : magnitude;
    return at;
}

const char *read(const char *at, const char *end, Decimal *decimal)
{
    decimal->isNegative = at != end && *at == '-';
    if (decimal->isNegative)
        ++at;
    const char *const first = at;
    at = readDigits(at, end, &decimal->digits);
    auto count = at - first;
    if (at != end && *at == '.') {
        const char *const fraction = ++at;
        at = readDigits(at, end, &decimal->digits);
        decimal->exponent = int(fraction - at);
        count += at - fraction;
    }
    if (count == 0 || count > mostQuickDigits)
        return nullptr;
    return at != end && (*at == 'e' || *at == 'E') ? readExponent(at, end, &decimal->exponent) : at;
}

//! 5^-n with 64 bits, rounded down: factor / 2^(63 + length), where 5^n has that many binary digits.
struct Reciprocal
{
    std::uint64_t factor = 0;
    int length = 0;
};

constexpr int mostFives = 54; // a larger power of five does not fit into 127 bits

constexpr std::array<Reciprocal, mostFives + 1> makeReciprocals()
{
    std::array<Reciprocal, mostFives + 1> all{};
    Wide power = 1;
    for (int n = 0; n <= mostFives; ++n, power *= 5) {
        Reciprocal &each = all[std::size_t(n)];
        while (power >> each.length)
            ++each.length;
        Wide rest = Wide(1) << (each.length - 1);
        if (n == 0) // the only power of two
            continue;
        for (int bit = 0; bit < 64; ++bit) {
            rest <<= 1;
            each.factor = each.factor << 1 | (rest >= power ? 1 : 0);
            rest -= rest >= power ? power : 0;
        }
    }
    return all;
}

/*! Computes digits / 10^places with 64 bits, as Eisel and Lemire do (D. Lemire, "Number parsing at a gigabyte per second",
    Software: Practice and Experience 51, 2021). The product is too small by less than two units of its upper half. Returns
    false if these may decide how it is rounded. */
bool divide(std::uint64_t digits, int places, double *quotient)
{
    static constexpr auto reciprocals = makeReciprocals();
    const Reciprocal &fives = reciprocals[std::size_t(places)];
    const int shift = __builtin_clzll(digits);
    const auto product = std::uint64_t((Wide(digits << shift) * fives.factor) >> 64);
    constexpr int mantissa = 53;
    const int surplus = 64 - __builtin_clzll(product) - mantissa;
    const std::uint64_t half = std::uint64_t(1) << (surplus - 1);
    const std::uint64_t fraction = product & (2 * half - 1);
    if (fraction == half || fraction == half - 1)
        return false;
    const std::uint64_t rounded = (product >> surplus) + (fraction > half ? 1 : 0);
    const int exponent = 64 + surplus - shift - places - 63 - fives.length;
    // The first bit of the mantissa, which is not stored, adds one to the exponent.
    constexpr int bias = 1023 + mantissa - 2;
    const std::uint64_t bits = (std::uint64_t(exponent + bias) << (mantissa - 1)) + rounded;
    std::memcpy(quotient, &bits, sizeof bits);
    return true;
}

} // namespace

bool nearestDouble(std::uint64_t digits, int exponent, double *number)
{
    constexpr std::uint64_t mostExact = std::uint64_t(1) << 53;
    const int places = -exponent;
    const int power = places < 0 ? -places : places;
    // Both numbers are exact, so that only the one operation rounds.
    if (digits <= mostExact && power < int(powers.size())) {
        const auto whole = double(digits);
        *number =
            places > 0 ? whole / powers[std::size_t(power)] : whole * powers[std::size_t(power)];
        return true;
    }
    return digits != 0 && places > 0 && places <= mostFives && divide(digits, places, number);
}

const char *readDecimal(const char *text, const char *end, double *number)
{
    Decimal decimal;
    const char *const after = read(text, end, &decimal);
    double value = 0.0;
    if (!after || !nearestDouble(decimal.digits, decimal.exponent, &value))
        return nullptr;
    *number = decimal.isNegative ? -value : value;
    return after;
}

} // namespace Monitor
