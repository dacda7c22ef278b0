// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/LogParabolaRegression.h"

#include "corvale_qt/numerics/GaussianConstants_p.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace Corvale_Qt {

namespace {

/*! The choices in which the histogram items (float) and the beam-profile display (double) differ, although they
    share the fit. */
template<typename T>
struct RegressionRules;

template<>
struct RegressionRules<float>
{
    //! The peak is searched in the raw readings, and only above zero.
    static constexpr bool peakBeforePedestals = true;
    static constexpr float peakFloor = 0.0F;
    //! False: a negative weight power weights all bins alike.
    static constexpr bool negativePowers = false;
};

template<>
struct RegressionRules<double>
{
    //! The peak is the largest reading after the pedestals are subtracted, whatever its sign.
    static constexpr bool peakBeforePedestals = false;
    static constexpr double peakFloor = -std::numeric_limits<double>::infinity();
    static constexpr bool negativePowers = true;
};

struct NormalEquations
{
    double s[5] = {}; //!< sums of weight x k^0 ... k^4
    double t[3] = {}; //!< sums of weight x k^0 ... k^2 x logarithm
    int weighted = 0; //!< bins that carry weight

    void add(double k, double weight, double logarithm)
    {
        if (weight > 0)
            ++weighted;
        double power = weight;
        for (int i = 0; i < 5; ++i) {
            s[i] += power;
            if (i < 3)
                t[i] += power * logarithm;
            power *= k;
        }
    }
};

struct Parabola
{
    double a = 0;
    double b = 0;
    double c = 0;
};

//! Solves by cofactors. Returns false if the determinant or its reciprocal is not a normal number.
bool solve(const NormalEquations &equations, Parabola &parabola)
{
    // With fewer than three points the determinant is zero, but rounding may hide that.
    if (equations.weighted < 3)
        return false;
    const auto &s = equations.s;
    const auto &t = equations.t;
    const double c00 = s[2] * s[4] - s[3] * s[3];
    const double c01 = s[2] * s[3] - s[1] * s[4];
    const double c02 = s[1] * s[3] - s[2] * s[2];
    const double c11 = s[0] * s[4] - s[2] * s[2];
    const double c12 = s[1] * s[2] - s[0] * s[3];
    const double c22 = s[0] * s[2] - s[1] * s[1];
    const double determinant = s[0] * c00 + s[1] * c01 + s[2] * c02;
    const double reciprocal = 1 / determinant;
    if (!std::isnormal(determinant) || !std::isnormal(reciprocal))
        return false;
    parabola.a = (c00 * t[0] + c01 * t[1] + c02 * t[2]) * reciprocal;
    parabola.b = (c01 * t[0] + c11 * t[1] + c12 * t[2]) * reciprocal;
    parabola.c = (c02 * t[0] + c12 * t[1] + c22 * t[2]) * reciprocal;
    return true;
}

template<typename T>
std::vector<T> withoutPedestals(const T *values, int count, const std::array<T, 4> &pedestals)
{
    std::vector<T> corrected(values, values + count);
    const int quarter = count / 4;
    for (int i = 0; i < 4 * quarter; ++i)
        corrected[i] -= pedestals[i / quarter];
    return corrected;
}

//! Returns the unbroken run of bins around the peak that reach the limit, at most \a halfWidth to each side.
template<typename T>
IndexRange runAroundPeak(const std::vector<T> &values, int peak, int halfWidth, T limit)
{
    const int last = static_cast<int>(values.size()) - 1;
    const int width = std::min(std::max(halfWidth, 0), last);
    const IndexRange window{std::max(peak - width, 0), std::min(peak + width, last)};
    IndexRange run{peak, peak};
    while (run.first > window.first && values[run.first - 1] >= limit)
        --run.first;
    while (run.last < window.last && values[run.last + 1] >= limit)
        ++run.last;
    return run;
}

template<typename T>
T weightOf(T relative, int power)
{
    if (!(relative > 0))
        return T(0);
    if (power == 0 || (power < 0 && !RegressionRules<T>::negativePowers))
        return T(1);
    return std::pow(relative, static_cast<T>(power));
}

//! Sums up the equations. Bins are counted from the peak, because sums from a far end of the run would cancel.
template<typename T>
NormalEquations
accumulate(const std::vector<T> &values, IndexRange run, const Peak<T> &peak, int power)
{
    NormalEquations equations;
    for (int i = run.first; i <= run.last; ++i) {
        const T value = values[i];
        const T weight = weightOf(static_cast<T>(value / peak.value), power);
        equations.add(i - peak.index, weight, std::log(value > 0 ? value : T(1e-20)));
    }
    return equations;
}

//! Takes the Gaussian whose logarithm is the parabola. Returns false unless all its numbers are finite.
template<typename T>
bool takeGaussian(const Parabola &parabola, RegressionResult<T> &result)
{
    const double variance = -1 / (2 * parabola.c);
    const double offset = variance * parabola.b;
    const double sigma = std::sqrt(variance);
    const double height = std::exp(offset * parabola.b / 2 + parabola.a);
    RegressionResult<T> fitted = result;
    fitted.mean = static_cast<T>(result.peak.index + offset);
    fitted.sigma = static_cast<T>(sigma);
    fitted.variance = static_cast<T>(variance);
    fitted.height = static_cast<T>(height);
    fitted.area = static_cast<T>(sigma * height * double(GaussianConstants<T>::sqrtTwoPi));
    for (T number : {fitted.mean, fitted.sigma, fitted.variance, fitted.height, fitted.area}) {
        if (!std::isfinite(number))
            return false;
    }
    result = fitted;
    return true;
}

template<typename T>
FitStatus fitRun(const std::vector<T> &values,
                 const RegressionOptions<T> &options,
                 RegressionResult<T> &result)
{
    const Peak<T> peak = result.peak;
    if (peak.index < 1 || peak.index >= static_cast<int>(values.size()) - 1)
        return FitStatus::PeakOnEdge;
    if (options.minimumPeak > peak.value)
        return FitStatus::PeakBelowThreshold;
    const T limit = options.thresholdFraction * peak.value;
    const IndexRange run = runAroundPeak(values, peak.index, options.halfWidth, limit);
    if (run.size() < 3)
        return FitStatus::NotEnoughPeakChannels;
    Parabola parabola;
    if (!solve(accumulate(values, run, peak, options.weightPower), parabola))
        return FitStatus::SingularEquations;
    if (!(parabola.c < 0) || !takeGaussian(parabola, result))
        return FitStatus::NoRealWidth;
    return FitStatus::Ok;
}

} // namespace

template<typename T>
RegressionResult<T> fitLogParabola(const T *values, int count, const RegressionOptions<T> &options)
{
    using Rules = RegressionRules<T>;
    RegressionResult<T> result;
    const std::vector<T> corrected =
        withoutPedestals(values, std::max(count, 0), options.pedestals);
    double sum = 0;
    for (T value : corrected)
        sum += value;
    result.correctedSum = static_cast<T>(sum);
    result.peak =
        findPeak(Rules::peakBeforePedestals ? values : corrected.data(), count, Rules::peakFloor);
    result.status = count < 3 ? FitStatus::NotEnoughChannels : fitRun(corrected, options, result);
    return result;
}

template RegressionResult<float>
fitLogParabola(const float *, int, const RegressionOptions<float> &);
template RegressionResult<double>
fitLogParabola(const double *, int, const RegressionOptions<double> &);

} // namespace Corvale_Qt
