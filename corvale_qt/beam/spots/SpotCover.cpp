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

/*! Covers as many pixels at once as \a Parts holds; those behind the last one of a row keep what they have. Must be inlined, so that
    it becomes the instructions of the function that calls it. */
template<typename Parts, typename Places>
[[gnu::always_inline]] inline void
coverInSteps(float *pixels, std::ptrdiff_t stride, const SpotCover &spot, const Places &places)
{
    constexpr int step = int(sizeof(Parts) / sizeof(float));
    // Copied, since the compiler must assume that writing to a pixel changes the spot.
    const float *alongX = spot.alongX;
    const Parts slope = Parts{} + spot.slope, behindRim = Parts{} + (1.0F + spot.offset);
    for (int y = 0; y < spot.rowCount; ++y) {
        const SpotRow row = spot.rows[y];
        float *line = pixels + y * stride;
        for (int x = row.first; x < row.behind; x += step) {
            Parts background, gauss;
            std::memcpy(&background, line + x, sizeof background);
            std::memcpy(&gauss, alongX + x, sizeof gauss);
            gauss *= row.height;
            const Parts inside = 1.0F - gauss, atRim = behindRim - slope * gauss;
            Parts covered =
                background * (inside > atRim ? inside : atRim) + SpotCover::leastBackground;
            if (x + step > row.behind)
                covered = places < Places{} + (row.behind - x) ? covered : background;
            std::memcpy(line + x, &covered, sizeof covered);
        }
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
