// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/RoundPixelDetector.h"

namespace Corvale_Qt {

namespace RoundPixelDetector {

namespace {

constexpr int no = kNotWired;

// The reading of each cell, as the detector looks: the first row is the upper edge.
// clang-format off
constexpr int kWiring[kSide][kSide] = {
    { no,  no,  no,  49,  43,  37,  27,  28,  29,  no,  no,  no},
    { no,  no,  54,  48,  42,  36,  23,  24,  25,  26,  no,  no},
    { no,  58,  53,  47,  41,  35,  18,  19,  20,  21,  22,  no},
    { 61,  57,  52,  46,  40,  34,  12,  13,  14,  15,  16,  17},
    { 60,  56,  51,  45,  39,  33,   6,   7,   8,   9,  10,  11},
    { 59,  55,  50,  44,  38,  32,   0,   1,   2,   3,   4,   5},
    { 69,  68,  67,  66,  65,  64,  96, 102, 108, 114, 119, 123},
    { 75,  74,  73,  72,  71,  70,  97, 103, 109, 115, 120, 124},
    { 81,  80,  79,  78,  77,  76,  98, 104, 110, 116, 121, 125},
    { no,  86,  85,  84,  83,  82,  99, 105, 111, 117, 122,  no},
    { no,  no,  90,  89,  88,  87, 100, 106, 112, 118,  no,  no},
    { no,  no,  no,  93,  92,  91, 101, 107, 113,  no,  no,  no},
};
// clang-format on

} // namespace

int readingAt(int row, int column)
{
    const bool isCell = row >= 0 && row < kSide && column >= 0 && column < kSide;
    return isCell ? kWiring[row][column] : kNotWired;
}

} // namespace RoundPixelDetector

} // namespace Corvale_Qt
