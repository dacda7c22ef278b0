// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/GaussianModel_p.h"
#include "corvale_qt/numerics/LogParabolaRegression.h"
#include "corvale_qt/numerics/ProfileEstimators.h"

#include <Eigen/Dense>
#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace Corvale_Qt {

namespace {

//! The share of the cells at each end whose median is the background of the width at half maximum.
constexpr double kEndShare = 0.05;

EstimateStatus statusOf(FitStatus status)
{
    switch (status) {
    case FitStatus::Ok:
        return EstimateStatus::Ok;
    case FitStatus::NotEnoughChannels:
    case FitStatus::NotEnoughPeakChannels:
        return EstimateStatus::NotEnoughCells;
    case FitStatus::PeakOnEdge:
        return EstimateStatus::PeakOnEdge;
    case FitStatus::PeakBelowThreshold:
    case FitStatus::SignalBelowThreshold:
    case FitStatus::NoiseAboveThreshold:
        return EstimateStatus::NoSignal;
    case FitStatus::SingularEquations:
    case FitStatus::NoRealWidth:
    case FitStatus::NotComputed: // no computation returns it
        break;
    }
    return EstimateStatus::NoRealWidth;
}

/*! Sets the errors of position and sigma by changing each of the \a cells by a small part of the noise and estimating
    again. An estimate that fails in between leaves them unknown. */
void propagateNoise(const BeamProfile &profile,
                    const std::vector<int> &cells,
                    const std::function<BeamEstimate(const BeamProfile &)> &estimate,
                    BeamEstimate &result)
{
    if (!(profile.noise > 0))
        return;
    constexpr double part = 1e-3;
    double position = 0, sigma = 0;
    BeamProfile changed = profile;
    for (int cell : cells) {
        changed.readings[cell] = profile.readings[cell] + part * profile.noise;
        const BeamEstimate other = estimate(changed);
        changed.readings[cell] = profile.readings[cell];
        if (!other.isOk())
            return;
        position += std::pow((other.position.value - result.position.value) / part, 2);
        sigma += std::pow((other.sigma.value - result.sigma.value) / part, 2);
    }
    result.position.error = std::sqrt(position);
    result.sigma.error = std::sqrt(sigma);
}

//! A parabola a + b t + c t^2, with t = position - origin, of the logarithm of the densities.
struct LogParabola
{
    double origin = 0;
    double a = 0, b = 0, c = 0;

    BeamEstimate gaussian() const
    {
        const double sigma = std::sqrt(-1 / (2 * c));
        const double shift = -b / (2 * c);
        BeamEstimate result;
        result.position.value = origin + shift;
        result.sigma.value = sigma;
        result.height.value = std::exp(a + b * shift / 2);
        const bool real = c < 0 && std::isfinite(result.position.value) && std::isfinite(sigma)
            && std::isfinite(result.height.value);
        result.status = real ? EstimateStatus::Ok : EstimateStatus::NoRealWidth;
        return result;
    }
};

BeamEstimate throughThreePoints(const BeamProfile &profile, int peak)
{
    const auto logarithm = [&](int cell) {
        const double relative = profile.density(cell) / profile.density(peak);
        return std::log(relative > 0 ? relative : 1e-20);
    };
    const double left = profile.positions[peak - 1] - profile.positions[peak];
    const double right = profile.positions[peak + 1] - profile.positions[peak];
    const double leftSlope = logarithm(peak - 1) / left;
    const double rightSlope = logarithm(peak + 1) / right;
    LogParabola parabola;
    parabola.origin = profile.positions[peak];
    parabola.a = std::log(profile.density(peak));
    parabola.c = (rightSlope - leftSlope) / (right - left);
    parabola.b = rightSlope - parabola.c * right;
    return parabola.gaussian();
}

//! Returns the trusted cells of the run around the densest of them that the options allow; empty below the minimum peak.
std::vector<int> runAroundPeak(const BeamProfile &profile, const LogParabolaOptions &options)
{
    std::vector<int> cells;
    for (int i = 0; i < profile.count(); ++i)
        if (!profile.has(i, kUntrusted))
            cells.push_back(i);
    const auto peak = std::max_element(cells.begin(), cells.end(), [&](int one, int other) {
        return profile.density(one) < profile.density(other);
    });
    if (peak == cells.end() || !(profile.density(*peak) > options.minimumPeak))
        return {};
    const double limit = options.thresholdFraction * profile.density(*peak);
    const auto belongs = [&](int cell) {
        return profile.density(cell) >= limit && std::abs(cell - *peak) <= options.halfWidth;
    };
    auto first = peak, last = peak;
    while (first != cells.begin() && belongs(*(first - 1)))
        --first;
    while (last + 1 != cells.end() && belongs(*(last + 1)))
        ++last;
    return {first, last + 1};
}

/*! Solves the weighted normal equations of ln(density) over the cells. With the noise of a reading, the errors follow from
    the variance of each logarithm, (noise / reading)^2. */
BeamEstimate fitRun(const BeamProfile &profile, const std::vector<int> &cells, int weightPower)
{
    const int peak = *std::max_element(cells.begin(), cells.end(), [&](int one, int other) {
        return profile.density(one) < profile.density(other);
    });
    const double length = profile.positions[cells.back()] - profile.positions[cells.front()];
    Eigen::Matrix3d equations = Eigen::Matrix3d::Zero(), spread = Eigen::Matrix3d::Zero();
    Eigen::Vector3d sums = Eigen::Vector3d::Zero();
    int weighted = 0;
    for (int cell : cells) {
        const double relative = profile.density(cell) / profile.density(peak);
        if (!(relative > 0))
            continue;
        ++weighted;
        const double t = (profile.positions[cell] - profile.positions[peak]) / length;
        const Eigen::Vector3d powers(1, t, t * t);
        const double weight = std::pow(relative, weightPower);
        equations += weight * powers * powers.transpose();
        sums += weight * std::log(relative) * powers;
        spread += std::pow(weight / profile.readings[cell], 2) * powers * powers.transpose();
    }
    const Eigen::FullPivLU<Eigen::Matrix3d> solver(equations);
    if (weighted < 3 || !solver.isInvertible())
        return failed(weighted < 3 ? EstimateStatus::NotEnoughCells : EstimateStatus::NoRealWidth);
    const Eigen::Vector3d k = solver.solve(sums);
    BeamEstimate result = LogParabola{profile.positions[peak],
                                      k[0] + std::log(profile.density(peak)),
                                      k[1] / length,
                                      k[2] / (length * length)}
                              .gaussian();
    if (result.isOk() && profile.noise > 0) {
        const Eigen::Matrix3d inverse = solver.inverse();
        const Eigen::Matrix3d covariance =
            profile.noise * profile.noise * inverse * spread * inverse;
        // position = -b / (2 c) and sigma = (-2 c)^(-1/2), in units of the length
        const Eigen::Vector3d byPosition(0, -1 / (2 * k[2]), k[1] / (2 * k[2] * k[2]));
        const Eigen::Vector3d bySigma(0, 0, std::pow(-2 * k[2], -1.5));
        result.position.error = length * std::sqrt(byPosition.dot(covariance * byPosition));
        result.sigma.error = length * std::sqrt(bySigma.dot(covariance * bySigma));
    }
    return result;
}

//! Takes the numbers of the regression that the displays use.
void takeDisplayNumbers(const BeamProfile &profile,
                        const LogParabolaOptions &options,
                        BeamEstimate &result)
{
    RegressionOptions<double> own;
    own.thresholdFraction = options.thresholdFraction;
    own.halfWidth = options.halfWidth;
    own.minimumPeak = options.minimumPeak;
    own.weightPower = options.weightPower;
    const auto fit = fitLogParabola(profile.readings.constData(), profile.count(), own);
    result.status = statusOf(fit.status);
    if (!result.isOk())
        return;
    const double pitch = profile.positions[1] - profile.positions[0];
    result.position.value = profile.positions[0] + pitch * fit.mean;
    result.sigma.value = pitch * fit.sigma;
    result.height.value = fit.height / profile.scales[0];
}

bool allTrusted(const BeamProfile &profile)
{
    for (int i = 0; i < profile.count(); ++i)
        if (profile.has(i, kUntrusted))
            return false;
    return true;
}

/*! Returns where the density falls through \a level on the way from the peak in direction \a step; NaN if it does not before
    the end. */
double crossing(const BeamProfile &profile, int peak, int step, double level)
{
    for (int i = peak; i + step >= 0 && i + step < profile.count(); i += step) {
        const double here = profile.density(i), next = profile.density(i + step);
        if (next > level)
            continue;
        const double t = (here - level) / (here - next);
        return profile.positions[i] + t * (profile.positions[i + step] - profile.positions[i]);
    }
    return std::numeric_limits<double>::quiet_NaN();
}

BeamEstimate atHalfMaximum(const BeamProfile &profile)
{
    const int peak = densestCell(profile);
    BeamEstimate result;
    result.background.value = endBackground(profile, std::max(int(kEndShare * profile.count()), 1));
    result.height.value = profile.density(peak) - result.background.value;
    if (!(result.height.value > 0))
        return failed(EstimateStatus::NoSignal);
    const double level = result.background.value + result.height.value / 2;
    const double left = crossing(profile, peak, -1, level);
    const double right = crossing(profile, peak, 1, level);
    if (std::isnan(left) || std::isnan(right))
        return failed(EstimateStatus::PeakOnEdge);
    result.status = EstimateStatus::Ok;
    result.position.value = (left + right) / 2;
    result.sigma.value = (right - left) / kHalfMaximumInSigma;
    return result;
}

} // namespace

BeamEstimate threePointGaussian(const BeamProfile &given)
{
    if (!given.isUsable())
        return failed(EstimateStatus::NotUsable);
    if (given.count() < 3)
        return failed(EstimateStatus::NotEnoughCells);
    const BeamProfile profile = given.withoutHoles();
    const int peak = densestCell(profile);
    if (!(profile.density(peak) > 0))
        return failed(EstimateStatus::NoSignal);
    if (peak < 1 || peak >= profile.count() - 1)
        return failed(EstimateStatus::PeakOnEdge);
    BeamEstimate result = throughThreePoints(profile, peak);
    if (!result.isOk())
        return result;
    propagateNoise(
        profile,
        {peak - 1, peak, peak + 1},
        [peak](const BeamProfile &changed) {
            return throughThreePoints(changed, peak);
        },
        result);
    result.quality = qualityOf(given, result, 3);
    return result;
}

BeamEstimate logParabolaGaussian(const BeamProfile &profile, const LogParabolaOptions &options)
{
    if (!profile.isUsable())
        return failed(EstimateStatus::NotUsable);
    const std::vector<int> run = runAroundPeak(profile, options);
    if (run.empty() && profile.count() >= 3)
        return failed(EstimateStatus::NoSignal);
    if (run.size() < 3)
        return failed(EstimateStatus::NotEnoughCells);
    const int peak = *std::max_element(run.begin(), run.end(), [&](int one, int other) {
        return profile.density(one) < profile.density(other);
    });
    if (!(profile.density(peak) > 0))
        return failed(EstimateStatus::NoSignal);
    if (peak < 1 || peak >= profile.count() - 1)
        return failed(EstimateStatus::PeakOnEdge);
    BeamEstimate result = fitRun(profile, run, options.weightPower);
    if (allTrusted(profile) && profile.isUniform())
        takeDisplayNumbers(profile, options, result);
    if (result.isOk())
        result.quality = qualityOf(profile, result, 3);
    return result;
}

BeamEstimate halfMaximumWidth(const BeamProfile &given)
{
    if (!given.isUsable())
        return failed(EstimateStatus::NotUsable);
    if (given.count() < 3)
        return failed(EstimateStatus::NotEnoughCells);
    const BeamProfile profile = given.withoutHoles();
    BeamEstimate result = atHalfMaximum(profile);
    if (!result.isOk())
        return result;
    const double reach = kHalfMaximumInSigma * result.sigma.value;
    std::vector<int> cells;
    for (int i = 0; i < profile.count(); ++i)
        if (std::abs(profile.positions[i] - result.position.value) <= reach)
            cells.push_back(i);
    propagateNoise(profile, cells, atHalfMaximum, result);
    result.quality = qualityOf(given, result, 4);
    return result;
}

} // namespace Corvale_Qt
