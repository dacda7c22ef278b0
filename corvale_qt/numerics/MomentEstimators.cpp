// SPDX-License-Identifier: LGPL-2.1-or-later
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

//! After so many rounds the area moves half as far: noise at its ends may let it jump between two places for ever.
constexpr int kWholeSteps = 20;
constexpr int kMostAreas = 2 * kMostIterations; // half steps need more
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

    //! Returns the moments as an estimate whose Gaussian has the same charge; the background is that of the end cells.
    BeamEstimate estimate(int cellsAtEachEnd) const
    {
        BeamEstimate result;
        result.status = EstimateStatus::Ok;
        result.position.value = mean;
        result.sigma.value = sigma;
        result.height.value = sum / (sigma * GaussianConstants<double>::sqrtTwoPi);
        result.background.value = m_background;
        if (m_profile.noise > 0)
            takeErrors(cellsAtEachEnd, result);
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

    /*! Propagates the noise of the readings to first order. A reading at an end also changes the background, and with it
        all charges; the median that the background is counts as a mean. */
    void takeErrors(int cellsAtEachEnd, BeamEstimate &result) const
    {
        const int cells = m_profile.count();
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
            const bool atEnd = i < cellsAtEachEnd || i >= cells - cellsAtEachEnd;
            for (int k : {0, 1}) {
                const double shared = atEnd ? byBackground[k] / (2 * cellsAtEachEnd) : 0.0;
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
    BeamEstimate result = moments.estimate(0);
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
    const int atEachEnd = std::max(int(kBackgroundShare * profile.count()), kLeastBackgroundCells);
    ChargeMoments moments(profile, endBackground(profile, atEachEnd));
    bool clipped = false;
    double lower = profile.lowerEdge(), upper = profile.upperEdge();
    for (int round = 0; round < kMostAreas; ++round) {
        const double mean = moments.mean, sigma = moments.sigma;
        if (const EstimateStatus status = moments.compute(); status != EstimateStatus::Ok)
            return failed(status);
        const double change = std::abs(moments.mean - mean) + std::abs(moments.sigma - sigma);
        if (round > 0 && change <= kConverged * moments.sigma) {
            BeamEstimate result = moments.estimate(atEachEnd);
            result.clipped = clipped;
            result.quality = qualityOf(given, result, 4);
            return result;
        }
        const double step = round < kWholeSteps ? 1.0 : 0.5;
        lower += step * (moments.mean - kAreaInSigma * moments.sigma - lower);
        upper += step * (moments.mean + kAreaInSigma * moments.sigma - upper);
        clipped = lower < profile.lowerEdge() || upper > profile.upperEdge();
        for (int i = 0; i < profile.count(); ++i)
            moments.shares()[i] = shareBetween(profile, i, lower, upper);
    }
    return failed(EstimateStatus::NotConverged);
}

} // namespace Corvale_Qt
