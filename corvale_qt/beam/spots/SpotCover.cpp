// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotCover_p.h"

#include <cstring>

namespace Corvale_Qt {

namespace {

// Pixels at once. Compilers turn these into the instructions of the processor, whatever it has.
using FourParts = float __attribute__((vector_size(16)));
using FourPlaces = int __attribute__((vector_size(16)));
using EightParts = float __attribute__((vector_size(32)));
using EightPlaces = int __attribute__((vector_size(32)));

constexpr FourPlaces fourPlaces{0, 1, 2, 3};
constexpr EightPlaces eightPlaces{0, 1, 2, 3, 4, 5, 6, 7};

static_assert(sizeof(EightParts) / sizeof(float) == SpotCover::slack + 1);

//! What the pixels of a spot have in common.
template<typename Parts>
struct RimParts
{
    Parts slope;
    Parts behind;
};

/*! Makes \a background what is left of as many pixels at once as \a Parts holds. This and what calls it must be inlined, so that they
    become the instructions of the processor that the outermost function is for. */
template<typename Parts>
[[gnu::always_inline]] inline void
coverParts(Parts &background, const float *alongX, float height, const RimParts<Parts> &rim)
{
    Parts gauss;
    std::memcpy(&gauss, alongX, sizeof gauss);
    gauss *= height;
    const Parts inside = 1.0F - gauss, atRim = rim.behind - rim.slope * gauss;
    background = background * (inside > atRim ? inside : atRim) + SpotCover::leastBackground;
}

//! Covers the pixels of a spot. Those behind the last one of a row keep what they have.
template<typename Parts, typename Places>
[[gnu::always_inline]] inline void
coverInSteps(float *pixels, std::ptrdiff_t stride, const SpotCover &spot, const Places &places)
{
    constexpr int step = int(sizeof(Parts) / sizeof(float));
    // Copied, since the compiler must assume that writing to a pixel changes the spot.
    const float *alongX = spot.alongX;
    const RimParts<Parts> rim{Parts{} + spot.slope, Parts{} + (1.0F + spot.offset)};
    for (int y = 0; y < spot.rowCount; ++y) {
        const SpotRow row = spot.rows[y];
        float *line = pixels + y * stride;
        int x = row.first;
        for (; x + step <= row.behind; x += step) {
            Parts covered;
            std::memcpy(&covered, line + x, sizeof covered);
            coverParts(covered, alongX + x, row.height, rim);
            std::memcpy(line + x, &covered, sizeof covered);
        }
        if (x >= row.behind)
            continue;
        Parts before;
        std::memcpy(&before, line + x, sizeof before);
        Parts covered = before;
        coverParts(covered, alongX + x, row.height, rim);
        covered = places < Places{} + (row.behind - x) ? covered : before;
        std::memcpy(line + x, &covered, sizeof covered);
    }
}

void coverByFour(float *pixels, std::ptrdiff_t stride, const SpotCover &spot)
{
    coverInSteps<FourParts>(pixels, stride, spot, fourPlaces);
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void
coverByEight(float *pixels, std::ptrdiff_t stride, const SpotCover &spot)
{
    coverInSteps<EightParts>(pixels, stride, spot, eightPlaces);
}
#endif

} // namespace

CoverPixels plainCover()
{
    return coverByFour;
}

CoverPixels fastestCover()
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2"))
        return coverByEight;
#endif
    return plainCover();
}

} // namespace Corvale_Qt
