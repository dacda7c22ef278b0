// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/CellScreening.h"
#include "corvale_qt/numerics/GaussianConstants_p.h"
#include "corvale_qt/numerics/GaussianModel_p.h"
#include "corvale_qt/numerics/ProfileEstimators.h"
#include "corvale_qt/numerics/ProfileRoutines_p.h"
#include "corvale_qt/numerics/SecondMomentMethod_p.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace Corvale_Qt {

namespace {

using namespace SecondMomentMethod;

//! After this many rounds the area moves less and less: noise at its ends may let it jump between places for ever.
constexpr int kWholeSteps = 20;
constexpr int kMostAreas = 4 * kMostIterations; // small steps need more
constexpr double kConverged = 1e-9;

/*! The moments of the charge above a background, where each cell counts with a share between 0 and 1. */
class ChargeMoments
{
public:
    ChargeMoments(const BeamProfile &profile, double background)
        : m_profile(profile)
        , m_background(background)
        , m_shares(profile.count(), 1.0)
    {
    }

    QVector<double> &shares() { return m_shares; }

    //! Computes the moments; what it returns is not Ok if there is no charge or no width.
    EstimateStatus compute()
    {
        sum = 0;
        double first = 0;
        for (int i = 0; i < m_profile.count(); ++i) {
            sum += chargeAt(i);
            first += chargeAt(i) * m_profile.positions[i];
        }
        if (!(sum > 0))
            return EstimateStatus::NoSignal;
        mean = first / sum;
        double second = 0;
        for (int i = 0; i < m_profile.count(); ++i)
            second += chargeAt(i) * std::pow(m_profile.positions[i] - mean, 2);
        sigma = std::sqrt(second / sum);
        if (!(mean >= m_profile.lowerEdge() && mean <= m_profile.upperEdge()))
            return EstimateStatus::PeakOnEdge;
        return sigma > 0 && std::isfinite(sigma) ? EstimateStatus::Ok : EstimateStatus::NoRealWidth;
    }

    //! Returns the moments as an estimate whose Gaussian has the same charge; the background is that of \a dark cells.
    BeamEstimate estimate(const std::vector<int> &dark) const
    {
        BeamEstimate result;
        result.status = EstimateStatus::Ok;
        result.position.value = mean;
        result.sigma.value = sigma;
        result.height.value = sum / (sigma * GaussianConstants<double>::sqrtTwoPi);
        result.background.value = m_background;
        if (m_profile.noise > 0)
            takeErrors(dark, result);
        return result;
    }

    double sum = 0;
    double mean = 0;
    double sigma = 0;

private:
    double chargeAt(int i) const
    {
        return (m_profile.density(i) - m_background) * m_profile.intervals[i] * m_shares[i];
    }

    /*! Propagates the noise of the readings to first order. The reading of a dark cell also changes the background, and with
        it all charges; a median counts as a mean. */
    void takeErrors(const std::vector<int> &dark, BeamEstimate &result) const
    {
        const int cells = m_profile.count();
        std::vector<double> ofBackground(std::size_t(cells), 0.0);
        for (const int cell : dark)
            ofBackground[std::size_t(cell)] = 1.0 / double(dark.size());
        std::vector<double> byDensity[2];
        double byBackground[2] = {};
        for (int i = 0; i < cells; ++i) {
            const double length = m_profile.intervals[i] * m_shares[i];
            const double distance = m_profile.positions[i] - mean;
            byDensity[0].push_back(length * distance / sum);
            byDensity[1].push_back(length * (distance * distance - sigma * sigma)
                                   / (2 * sigma * sum));
            for (int k : {0, 1})
                byBackground[k] -= byDensity[k].back();
        }
        double variance[2] = {};
        for (int i = 0; i < cells; ++i) {
            for (int k : {0, 1}) {
                const double shared = byBackground[k] * ofBackground[std::size_t(i)];
                variance[k] +=
                    std::pow((byDensity[k][std::size_t(i)] + shared) / m_profile.scales[i], 2);
            }
        }
        result.position.error = m_profile.noise * std::sqrt(variance[0]);
        result.sigma.error = m_profile.noise * std::sqrt(variance[1]);
    }

    const BeamProfile &m_profile;
    double m_background;
    QVector<double> m_shares;
};

//! Returns how much of a cell lies between two positions.
double shareBetween(const BeamProfile &profile, int cell, double lower, double upper)
{
    const double half = profile.intervals[cell] / 2;
    const double from = std::max(lower, profile.positions[cell] - half);
    const double to = std::min(upper, profile.positions[cell] + half);
    return std::clamp((to - from) / (2 * half), 0.0, 1.0);
}

/*! The cells without beam, and the background that they show (ISO 11146-3, "non-illuminated" cells). At first these are the
    cells at both ends. Then a cell is dark unless the mean of the five cells around it, or around a cell next to it or one
    further, lies above the background by three of its standard errors; the background is the mean of the dark cells. Without
    noise, or if no more cells are dark than those at the ends, the median of these is the background. */
class DarkCells
{
public:
    explicit DarkCells(const BeamProfile &profile)
        : m_profile(profile)
        , m_atEachEnd(std::max(int(kBackgroundShare * profile.count()), kLeastBackgroundCells))
        , m_density(endBackground(profile, m_atEachEnd))
        , m_isLit(std::size_t(profile.count()), true)
    {
        for (int i = 0; i < m_atEachEnd; ++i) {
            m_cells.push_back(i);
            m_cells.push_back(profile.count() - 1 - i);
        }
        const double reading = profile.noise > 0 ? profile.noise : estimatedNoise(profile);
        constexpr int rounds = 3;
        for (int round = 0; reading > 0 && round < rounds; ++round)
            search(reading);
    }

    //! Returns the density of the background.
    double density() const { return m_density; }
    //! Returns the cells that the background was taken from.
    const std::vector<int> &cells() const { return m_cells; }
    //! Returns whether there is beam on a cell, or may be.
    bool isLit(int cell) const { return m_isLit[std::size_t(cell)]; }

private:
    //! Returns how far the mean around a cell lies above the background, in its standard error.
    double excess(int cell, double noise) const
    {
        const int first = std::max(cell - kReach, 0);
        const int last = std::min(cell + kReach, m_profile.count() - 1);
        double sum = 0, variance = 0;
        for (int i = first; i <= last; ++i) {
            sum += m_profile.density(i) - m_density;
            variance += std::pow(noise / m_profile.scales[i], 2);
        }
        const double ofBackground = variance * (last - first + 1) / double(m_cells.size());
        return sum / std::sqrt(variance + ofBackground);
    }
    //! Finds the dark cells beside the present background, and takes the next background from them.
    void search(double noise)
    {
        std::vector<bool> lit(m_isLit.size(), false);
        const int cells = m_profile.count();
        for (int i = 0; i < cells; ++i) {
            if (excess(i, noise) < kInNoise)
                continue;
            for (int j = std::max(i - kMargin, 0); j <= std::min(i + kMargin, cells - 1); ++j)
                lit[std::size_t(j)] = true;
        }
        std::vector<int> dark;
        double sum = 0;
        for (int i = 0; i < cells; ++i) {
            if (lit[std::size_t(i)])
                continue;
            dark.push_back(i);
            sum += m_profile.density(i);
        }
        const bool isUsable = int(dark.size()) > 2 * m_atEachEnd && int(dark.size()) < cells;
        if (!isUsable)
            return;
        m_cells = dark;
        m_density = sum / double(dark.size());
        m_isLit = lit;
    }

    static constexpr int kReach = 2; // cells to each side of one that are looked at together
    static constexpr int kMargin = 2; // cells beside the beam that are not trusted to be dark
    static constexpr double kInNoise = 3.0;

    const BeamProfile &m_profile;
    const int m_atEachEnd;
    double m_density;
    std::vector<int> m_cells;
    std::vector<bool> m_isLit;
};

} // namespace

BeamEstimate centreOfGravity(const BeamProfile &given, const CentreOfGravityOptions &options)
{
    if (!given.isUsable())
        return failed(EstimateStatus::NotUsable);
    if (given.count() < 2)
        return failed(EstimateStatus::NotEnoughCells);
    const BeamProfile profile = given.withoutHoles();
    const int densest = densestCell(profile);
    const double limit = std::max(profile.density(densest), 0.0) * options.thresholdFraction;
    const IndexRange window = options.halfWidth < 0
        ? IndexRange{0, profile.count() - 1}
        : windowAround(densest, options.halfWidth, profile.count());
    ChargeMoments moments(profile, 0.0);
    for (int i = 0; i < profile.count(); ++i) {
        const bool inside = i >= window.first && i <= window.last;
        const bool above = options.thresholdFraction <= 0 || profile.density(i) > limit;
        moments.shares()[i] = inside && above ? 1.0 : 0.0;
    }
    if (const EstimateStatus status = moments.compute(); status != EstimateStatus::Ok)
        return failed(status);
    BeamEstimate result = moments.estimate({});
    result.quality = qualityOf(given, result, 3);
    return result;
}

BeamEstimate secondMomentWidth(const BeamProfile &given)
{
    if (!given.isUsable())
        return failed(EstimateStatus::NotUsable);
    if (given.count() < 2 * kLeastBackgroundCells + 1)
        return failed(EstimateStatus::NotEnoughCells);
    const BeamProfile profile = given.withoutHoles();
    const DarkCells dark(profile);
    ChargeMoments moments(profile, dark.density());
    bool clipped = false;
    double lower = profile.lowerEdge(), upper = profile.upperEdge();
    for (int i = 0; i < profile.count(); ++i)
        moments.shares()[i] = dark.isLit(i) ? 1.0 : 0.0;
    for (int round = 0; round < kMostAreas; ++round) {
        const double mean = moments.mean, sigma = moments.sigma;
        if (const EstimateStatus status = moments.compute(); status != EstimateStatus::Ok)
            return failed(status);
        const double change = std::abs(moments.mean - mean) + std::abs(moments.sigma - sigma);
        if (round > 0 && change <= kConverged * moments.sigma) {
            BeamEstimate result = moments.estimate(dark.cells());
            result.clipped = clipped;
            result.quality = qualityOf(given, result, 4);
            return result;
        }
        const double step = std::min(1.0, double(kWholeSteps) / (round + 1));
        lower += step * (moments.mean - kAreaInSigma * moments.sigma - lower);
        upper += step * (moments.mean + kAreaInSigma * moments.sigma - upper);
        clipped = lower < profile.lowerEdge() || upper > profile.upperEdge();
        for (int i = 0; i < profile.count(); ++i)
            moments.shares()[i] = shareBetween(profile, i, lower, upper);
    }
    return failed(EstimateStatus::NotConverged);
}

} // namespace Corvale_Qt
