// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/FieldEnds.h"

#include "monitor/input/VectorParts.h"

#include <algorithm>

namespace Monitor {

namespace {

bool isFieldEnd(char c)
{
    return c == ',' || c == '\n';
}

#if CORVALE_MONITOR_HAS_VECTORS

constexpr std::size_t atOnce = 64;

//! Returns which of 32 characters end a field, the first one in the lowest bit.
CORVALE_MONITOR_VECTORS inline std::uint64_t endsOf(const char *text)
{
    const __m256i characters = _mm256_loadu_si256(reinterpret_cast<const __m256i *>(text));
    const __m256i commas = _mm256_cmpeq_epi8(characters, _mm256_set1_epi8(','));
    const __m256i lineFeeds = _mm256_cmpeq_epi8(characters, _mm256_set1_epi8('\n'));
    return std::uint32_t(_mm256_movemask_epi8(_mm256_or_si256(commas, lineFeeds)));
}

/*! Writes the places of the ends among 64 characters but the first \a known ones, and up to 64 numbers of no meaning behind them. \a first is
    the place of the first character that counts. Returns how many there are. Eight at a time, since few characters have more: what comes next in
    the program then hardly depends on their number. */
CORVALE_MONITOR_VECTORS std::size_t
writeEnds(const char *text, std::size_t known, std::size_t first, std::uint32_t *places)
{
    constexpr int group = 8;
    std::uint64_t ends = (endsOf(text) | endsOf(text + atOnce / 2) << (atOnce / 2)) >> known;
    const auto count = std::size_t(__builtin_popcountll(ends));
    for (; ends != 0; places += group)
        for (int i = 0; i < group; ++i, ends &= ends - 1)
            places[i] = std::uint32_t(first + _tzcnt_u64(ends));
    return count;
}

#endif

} // namespace

void FieldEnds::find(std::string_view text)
{
    m_size = 0;
    std::size_t at = 0;
#if CORVALE_MONITOR_HAS_VECTORS
    const bool isLong = text.size() >= atOnce && hasVectors();
    while (isLong && at < text.size()) {
        makeRoom(m_size + atOnce);
        // The last 64 characters begin among those that are known.
        const std::size_t begin = std::min(at, text.size() - atOnce);
        m_size += writeEnds(text.data() + begin, at - begin, at, m_places.data() + m_size);
        at = begin + atOnce;
    }
#endif
    for (; at < text.size(); ++at)
        if (isFieldEnd(text[at]))
            add(std::uint32_t(at));
}

void FieldEnds::findInLine(std::string_view line)
{
    find(line);
    add(std::uint32_t(line.size()));
}

void FieldEnds::add(std::uint32_t place)
{
    makeRoom(m_size + 1);
    m_places[m_size++] = place;
}

void FieldEnds::makeRoom(std::size_t places)
{
    if (m_places.size() < places)
        m_places.resize(2 * places);
}

} // namespace Monitor
