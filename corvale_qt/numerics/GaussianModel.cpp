// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/GaussianModel_p.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace Corvale_Qt {

namespace {

//! Cells within this many sigma are the core of the beam.
constexpr double kCore = 3.0;
//! The core may miss cells that are wider than the beam; then it does not count.
constexpr int kLeastCoreCells = 3;

//! A sum of squares and the number of its terms.
struct Squares
{
    double sum = 0;
    int count = 0;

    void add(double value)
    {
        sum += value * value;
        ++count;
    }
    double rootMean() const { return count > 0 ? std::sqrt(sum / count) : 0.0; }
};

double median(std::vector<double> values)
{
    if (values.empty())
        return 0;
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    if (values.size() % 2 == 1)
        return *middle;
    return (*middle + *std::max_element(values.begin(), middle)) / 2;
}

//! Returns the mean density of the trusted cells.
double meanDensity(const BeamProfile &profile)
{
    double sum = 0;
    int count = 0;
    for (int i = 0; i < profile.count(); ++i) {
        if (profile.has(i, kUntrusted))
            continue;
        sum += profile.density(i);
        ++count;
    }
    return count > 0 ? sum / count : 0.0;
}

} // namespace

CellGaussian::CellGaussian(double position, double width, double mean, double sigma)
    : m_z((position - mean) / sigma)
    , m_width(width)
    , m_sigma(sigma)
{
    if (isNarrow()) {
        m_value = std::exp(-0.5 * m_z * m_z);
        return;
    }
    m_integral = std::sqrt(M_PI / 2) * (std::erf(upper() / M_SQRT2) - std::erf(lower() / M_SQRT2));
    m_value = sigma / width * m_integral;
}

bool CellGaussian::isNarrow() const
{
    // Below this the difference of the error functions loses more digits than the average gains.
    constexpr double narrow = 1e-4;
    return m_width < narrow * m_sigma;
}

CellGaussian::Derivatives CellGaussian::derivatives() const
{
    if (isNarrow())
        return {m_z / m_sigma * m_value, m_z * m_z / m_sigma * m_value};
    const double atUpper = std::exp(-0.5 * upper() * upper());
    const double atLower = std::exp(-0.5 * lower() * lower());
    return {(atLower - atUpper) / m_width,
            (m_integral - upper() * atUpper + lower() * atLower) / m_width};
}

FitQuality qualityOf(const BeamProfile &profile, const BeamEstimate &estimate, int parameters)
{
    const double mean = estimate.position.value;
    const double sigma = estimate.sigma.value;
    const double average = meanDensity(profile);
    Squares all, core, spread, chi;
    double peak = 0;
    for (int i = 0; i < profile.count(); ++i) {
        if (profile.has(i, kUntrusted))
            continue;
        const double g = CellGaussian(profile.positions[i], profile.widths[i], mean, sigma).value();
        const double above = profile.density(i) - estimate.backgroundAt(profile.positions[i]);
        const double residual = above - estimate.height.value * g;
        all.add(residual);
        chi.add(residual * profile.scales[i]);
        spread.add(profile.density(i) - average);
        if (std::abs(profile.positions[i] - mean) <= kCore * sigma)
            core.add(residual);
        peak = std::max(peak, above);
    }
    FitQuality quality;
    quality.degreesOfFreedom = std::max(all.count - parameters, 0);
    if (spread.sum > 0)
        quality.rSquared = 1 - all.sum / spread.sum;
    const double coreRms = core.count >= kLeastCoreCells ? core.rootMean() : 0.0;
    if (peak > 0)
        quality.residualRms = std::max(all.rootMean(), coreRms) / peak;
    if (profile.noise > 0 && quality.degreesOfFreedom > 0)
        quality.reducedChiSquare =
            chi.sum / (profile.noise * profile.noise) / quality.degreesOfFreedom;
    return quality;
}

double endBackground(const BeamProfile &profile, int atEachEnd)
{
    const int each = std::min(atEachEnd, profile.count() / 2);
    std::vector<double> ends;
    for (int i = 0; i < profile.count(); ++i)
        if (i < each || i >= profile.count() - each)
            ends.push_back(profile.density(i));
    return median(std::move(ends));
}

BeamEstimate failed(EstimateStatus status)
{
    BeamEstimate result;
    result.status = status;
    return result;
}

int densestCell(const BeamProfile &profile)
{
    int densest = 0;
    for (int i = 1; i < profile.count(); ++i)
        if (profile.density(i) > profile.density(densest))
            densest = i;
    return densest;
}

} // namespace Corvale_Qt
