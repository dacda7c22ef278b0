// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/FieldNumbers.h"

#include "monitor/input/LineText.h"
#include "monitor/input/VectorParts.h"

#include <array>
#include <cstring>

namespace Monitor {

namespace {

#if CORVALE_MONITOR_HAS_VECTORS

constexpr std::size_t sixteen = 16;

template<std::size_t Size>
using Bytes = std::array<unsigned char, Size>;

//! Sixteen bytes from the place n on keep the last n characters of sixteen, and make the others 0.
constexpr Bytes<2 * sixteen> makeMasks()
{
    Bytes<2 * sixteen> all{};
    for (std::size_t i = sixteen; i < all.size(); ++i)
        all[i] = 0xff;
    return all;
}

//! In row p, where each character comes from when the one at p is taken out and those before it move up; in the last row, none is.
constexpr Bytes<(sixteen + 1) * sixteen> makeMoves()
{
    constexpr unsigned char nothing = 0x80;
    Bytes<(sixteen + 1) * sixteen> all{};
    for (std::size_t out = 0; out <= sixteen; ++out)
        for (std::size_t i = 0; i < sixteen; ++i) {
            const bool stays = out == sixteen || i > out;
            const auto before = i == 0 ? nothing : static_cast<unsigned char>(i - 1);
            all[out * sixteen + i] = stays ? static_cast<unsigned char>(i) : before;
        }
    return all;
}

//! What a number is divided by whose point is the character p of sixteen; the last divisor is for one without a point. All are exact.
constexpr std::array<double, sixteen + 1> makeDivisors()
{
    std::array<double, sixteen + 1> all{};
    all[sixteen] = 1.0;
    double power = 1.0;
    for (std::size_t point = sixteen; point-- > 0; power *= 10.0)
        all[point] = power;
    return all;
}

CORVALE_MONITOR_VECTORS inline __m128i load(const void *bytes)
{
    return _mm_loadu_si128(static_cast<const __m128i *>(bytes));
}

//! Returns the number that sixteen digits are, each of which is a byte from 0 to 9. Neighbours are joined four times.
CORVALE_MONITOR_VECTORS inline std::uint64_t joinSixteen(__m128i digits)
{
    const __m128i tens = _mm_set1_epi16(0x010a), hundreds = _mm_set1_epi32(0x00010064);
    const __m128i tenThousands = _mm_set1_epi32(0x00012710);
    constexpr std::uint64_t hundredMillions = 100000000, half = 0xffffffff;
    const __m128i fours = _mm_madd_epi16(_mm_maddubs_epi16(digits, tens), hundreds);
    const __m128i eights = _mm_madd_epi16(_mm_packus_epi32(fours, fours), tenThousands);
    const auto both = std::uint64_t(_mm_cvtsi128_si64(eights));
    return (both & half) * hundredMillions + (both >> 32);
}

/*! Reads a number of at most sixteen characters beside its sign, with neither blanks nor an exponent. The sixteen characters before its end
    must be readable, whatever the first ones are. Returns false for other fields. */
CORVALE_MONITOR_VECTORS inline bool readSixteen(const char *begin, const char *end, double *number)
{
    static constexpr auto masks = makeMasks();
    static constexpr auto moves = makeMoves();
    static constexpr auto divisors = makeDivisors();
    const std::uint64_t sign = *begin == '-' ? 1 : 0;
    const auto size = std::size_t(end - begin) - sign;
    if (size - 1 >= sixteen)
        return false;
    const __m128i text = _mm_sub_epi8(load(end - sixteen), _mm_set1_epi8('0'));
    const __m128i digits = _mm_and_si128(text, load(masks.data() + size));
    const __m128i notDigits = _mm_cmpgt_epi8(digits, _mm_set1_epi8(9));
    const auto others = unsigned(_mm_movemask_epi8(_mm_or_si128(notDigits, digits)));
    const auto points =
        unsigned(_mm_movemask_epi8(_mm_cmpeq_epi8(digits, _mm_set1_epi8('.' - '0'))));
    const bool isPlain =
        others == points && (points & (points - 1)) == 0 && (points == 0 || size > 1);
    if (!isPlain)
        return false;
    const auto point = std::size_t(__builtin_ctz(points | 1U << sixteen));
    const __m128i joined = _mm_shuffle_epi8(digits, load(moves.data() + point * sixteen));
    // Only one operation rounds: doubles hold all numbers of fifteen digits, and one of sixteen has no point, so that its divisor is 1.
    const double magnitude = double(std::int64_t(joinSixteen(joined))) / divisors[point];
    std::uint64_t bits = 0;
    std::memcpy(&bits, &magnitude, sizeof bits);
    bits |= sign << 63;
    std::memcpy(number, &bits, sizeof bits);
    return true;
}

//! Reads fields, from the one that begins at \a begin on, up to the first that is not so plain. Returns how many.
CORVALE_MONITOR_VECTORS std::size_t readPlainFields(const char *text,
                                                    std::size_t begin,
                                                    const std::uint32_t *ends,
                                                    std::size_t count,
                                                    double *numbers)
{
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t end = ends[i];
        const bool isRead = end >= sixteen && (i + 1 == count || text[end] == ',')
            && readSixteen(text + begin, text + end, &numbers[i]);
        if (!isRead)
            return i;
        begin = end + 1;
    }
    return count;
}

#endif

} // namespace

bool readFieldNumbers(std::string_view text,
                      std::size_t begin,
                      const std::uint32_t *ends,
                      std::size_t count,
                      double *numbers)
{
    for (std::size_t i = 0; i < count; ++i) {
#if CORVALE_MONITOR_HAS_VECTORS
        if (hasVectors()) {
            const std::size_t plain =
                readPlainFields(text.data(), begin, ends + i, count - i, numbers + i);
            i += plain;
            if (i == count)
                return true;
            if (plain > 0)
                begin = ends[i - 1] + 1;
        }
#endif
        const std::string_view field = text.substr(begin, ends[i] - begin);
        if ((i + 1 < count && text[ends[i]] != ',') || !parseNumber(trimmed(field), &numbers[i]))
            return false;
        begin = ends[i] + 1;
    }
    return true;
}

} // namespace Monitor
