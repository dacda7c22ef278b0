// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockOfReadings_p.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace Corvale_Qt {

namespace {

// Two doubles that the processor handles with one instruction.
using Pair = double __attribute__((vector_size(16)));

//! The sum of finite readings, and their range.
struct Fold
{
    double least = kInfinity;
    double greatest = -kInfinity;
    double sum = 0.0;
    qint64 count = 0;
};

Fold foldOneByOne(const double *readings, int count)
{
    Fold fold;
    for (int i = 0; i < count; ++i) {
        if (!std::isfinite(readings[i]))
            continue;
        fold.least = std::min(fold.least, readings[i]);
        fold.greatest = std::max(fold.greatest, readings[i]);
        fold.sum += readings[i];
        ++fold.count;
    }
    return fold;
}

//! Folds an even number of readings. The sum is not finite if one of them is not.
Fold foldPairs(const double *readings, int count)
{
    Pair least[2] = {Pair{kInfinity, kInfinity}, Pair{kInfinity, kInfinity}};
    Pair greatest[2] = {-least[0], -least[1]};
    Pair sum[2] = {};
    const auto add = [&](int lane, int i) {
        Pair pair;
        std::memcpy(&pair, readings + i, sizeof pair);
        least[lane] = pair < least[lane] ? pair : least[lane];
        greatest[lane] = pair > greatest[lane] ? pair : greatest[lane];
        sum[lane] += pair;
    };
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        add(0, i);
        add(1, i + 2);
    }
    if (i < count)
        add(0, i);
    const auto over = [](const Pair(&pairs)[2], auto choose) {
        return choose(choose(pairs[0][0], pairs[0][1]), choose(pairs[1][0], pairs[1][1]));
    };
    return {over(least,
                 [](double a, double b) {
                     return std::min(a, b);
                 }),
            over(greatest,
                 [](double a, double b) {
                     return std::max(a, b);
                 }),
            over(sum,
                 [](double a, double b) {
                     return a + b;
                 }),
            count};
}

Fold foldOf(const double *readings, int count)
{
    constexpr int few = 8;
    const int even = count < few ? 0 : count & ~1;
    if (even == 0)
        return foldOneByOne(readings, count);
    Fold fold = foldPairs(readings, even);
    const Fold rest = foldOneByOne(readings + even, count - even);
    if (!std::isfinite(fold.sum)) // a gap, or numbers so large that their sum overflows
        return foldOneByOne(readings, count);
    fold.least = std::min(fold.least, rest.least);
    fold.greatest = std::max(fold.greatest, rest.greatest);
    fold.sum += rest.sum;
    fold.count += rest.count;
    return fold;
}

//! Returns the mean of two parts. It stays between their means, even where their sum would overflow.
double meanOf(const RVXPlotHistory::Block &block, double mean, qint64 count)
{
    const double share = double(count) / double(block.count + count);
    return block.count == 0 ? mean : block.mean * (1.0 - share) + mean * share;
}

} // namespace

RVXPlotHistory::Block emptyBlock()
{
    return {kInfinity, -kInfinity, 0.0, 0};
}

void addReadings(const double *readings, int count, RVXPlotHistory::Block &block)
{
    const Fold fold = foldOf(readings, count);
    if (fold.count == 0)
        return;
    double mean = fold.sum / double(fold.count);
    if (!std::isfinite(mean)) { // the sum overflows
        mean = 0.0;
        for (int i = 0; i < count; ++i)
            mean += std::isfinite(readings[i]) ? readings[i] / double(fold.count) : 0.0;
    }
    addBlock({fold.least, fold.greatest, mean, fold.count}, block);
}

void addBlock(const RVXPlotHistory::Block &part, RVXPlotHistory::Block &block)
{
    if (part.count == 0)
        return;
    block.least = std::min(block.least, part.least);
    block.greatest = std::max(block.greatest, part.greatest);
    block.mean = meanOf(block, part.mean, part.count);
    block.count += part.count;
}

} // namespace Corvale_Qt
