// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/FieldNumbers.h"

#include "monitor/input/DecimalNumber.h"
#include "monitor/input/LineText.h"
#include "monitor/input/VectorParts.h"

#include <array>
#include <cstring>

namespace Monitor {

namespace {

//! Reads any field. What follows it in the text is looked at together with it, which is faster than to look where it ends.
bool readField(std::string_view text, std::size_t begin, std::size_t end, double *number)
{
    const char *const first = text.data() + begin;
    return readDecimal(first, text.data() + text.size(), number) == text.data() + end
        || parseNumber(trimmed({first, end - begin}), number);
}

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
    for (std::size_t point = sixteen; point-- > 0;) {
        all[point] = power;
        power *= 10.0;
    }
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

//! The digits of sixteen characters, of which one may be a point.
struct Sixteen
{
    std::uint64_t digits = 0;
    std::size_t point = sixteen; //!< which character the point is; 16 for none

    bool hasPoint() const { return point < sixteen; }
};

//! Reads the last \a size of the sixteen characters before \a end, all of which must be readable. Returns false if they are anything else.
CORVALE_MONITOR_VECTORS inline bool readSixteen(const char *end, std::size_t size, Sixteen *read)
{
    static constexpr auto masks = makeMasks();
    static constexpr auto moves = makeMoves();
    const __m128i text = _mm_sub_epi8(load(end - sixteen), _mm_set1_epi8('0'));
    const __m128i digits = _mm_and_si128(text, load(masks.data() + size));
    const __m128i notDigits = _mm_cmpgt_epi8(digits, _mm_set1_epi8(9));
    const auto others = unsigned(_mm_movemask_epi8(_mm_or_si128(notDigits, digits)));
    const auto points =
        unsigned(_mm_movemask_epi8(_mm_cmpeq_epi8(digits, _mm_set1_epi8('.' - '0'))));
    if (others != points || (points & (points - 1)) != 0 || (points != 0 && size == 1))
        return false;
    read->point = std::size_t(__builtin_ctz(points | 1U << sixteen));
    read->digits =
        joinSixteen(_mm_shuffle_epi8(digits, load(moves.data() + read->point * sixteen)));
    return true;
}

CORVALE_MONITOR_VECTORS inline double withSign(double magnitude, bool isNegative)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &magnitude, sizeof bits);
    bits |= std::uint64_t(isNegative) << 63;
    std::memcpy(&magnitude, &bits, sizeof bits);
    return magnitude;
}

//! Reads a number of at most sixteen characters beside its sign, if it is plain.
CORVALE_MONITOR_VECTORS inline bool readShort(const char *begin, const char *end, double *number)
{
    static constexpr auto divisors = makeDivisors();
    const bool isNegative = *begin == '-';
    const auto size = std::size_t(end - begin) - std::size_t(isNegative);
    Sixteen read;
    if (size - 1 >= sixteen || !readSixteen(end, size, &read))
        return false;
    // Only one operation rounds: doubles hold all numbers of fifteen digits, and one of sixteen has no point, so that its divisor is 1.
    *number = withSign(double(std::int64_t(read.digits)) / divisors[read.point], isNegative);
    return true;
}

//! Reads a number of more characters, if it is plain and its nearest double is certain.
CORVALE_MONITOR_VECTORS inline bool readLong(const char *begin, const char *end, double *number)
{
    const bool isNegative = *begin == '-';
    begin += std::ptrdiff_t(isNegative);
    const auto size = end - begin;
    Sixteen last;
    if (size <= std::ptrdiff_t(sixteen) || size > mostQuickDigits + 1
        || !readSixteen(end, sixteen, &last))
        return false;
    bool hasPoint = last.hasPoint();
    std::uint64_t digits = 0;
    int places = hasPoint ? int(sixteen - 1 - last.point) : 0;
    for (const char *at = begin; at != end - sixteen; ++at) {
        const auto digit = unsigned(*at - '0');
        const bool isPoint = *at == '.' && !hasPoint;
        if (digit > 9 && !isPoint)
            return false;
        if (isPoint)
            places = int(end - at) - 1;
        else
            digits = digits * 10 + digit;
        hasPoint = hasPoint || isPoint;
    }
    constexpr std::uint64_t fifteenDigits = 1000000000000000, ten = 10;
    digits = digits * fifteenDigits * (last.hasPoint() ? 1 : ten) + last.digits;
    double magnitude = 0.0;
    const bool isFound =
        size - (hasPoint ? 1 : 0) <= mostQuickDigits && nearestDouble(digits, -places, &magnitude);
    *number = withSign(magnitude, isNegative);
    return isFound;
}

/*! Reads fields, from the one that begins at \a begin on, up to the first that \a Read does not read. Returns how many. \a Read gets no empty
    field, and may look at the sixteen characters before the end of one, whatever the first of them are. */
template<bool (*Read)(const char *begin, const char *end, double *number)>
CORVALE_MONITOR_VECTORS std::size_t readFields(const char *text,
                                               std::size_t begin,
                                               const std::uint32_t *ends,
                                               std::size_t count,
                                               double *numbers)
{
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t end = ends[i];
        const bool isPossible = begin < end && end >= sixteen;
        const bool isRead = isPossible && (i + 1 == count || text[end] == ',')
            && Read(text + begin, text + end, &numbers[i]);
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
    for (std::size_t i = 0; i < count;) {
        const std::size_t first = i == 0 ? begin : ends[i - 1] + 1;
#if CORVALE_MONITOR_HAS_VECTORS
        const auto readSome = [&](auto read) {
            const std::size_t some = read(text.data(), first, ends + i, count - i, numbers + i);
            i += some;
            return some > 0;
        };
        if (hasVectors() && (readSome(readFields<readShort>) || readSome(readFields<readLong>)))
            continue;
#endif
        if ((i + 1 < count && text[ends[i]] != ',')
            || !readField(text, first, ends[i], &numbers[i]))
            return false;
        ++i;
    }
    return true;
}

bool readLineNumbers(std::string_view line, std::size_t count, FieldEnds *ends, double *numbers)
{
    ends->findInLine(line);
    return ends->size() == count && readFieldNumbers(line, 0, ends->data(), count, numbers);
}

} // namespace Monitor
