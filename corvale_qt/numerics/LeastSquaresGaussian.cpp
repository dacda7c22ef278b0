// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/GaussianModel_p.h"
#include "corvale_qt/numerics/ProfileEstimators.h"

#include <Eigen/Dense>
#include <algorithm>
#include <cmath>
#include <unsupported/Eigen/NonLinearOptimization>
#include <vector>

namespace Corvale_Qt {

namespace {

constexpr int kMostEvaluations = 400;

enum Parameter {
    Mean, //!< (mean - origin) / length
    LogSigma, //!< ln(sigma / length), so that sigma stays above 0
    Height, //!< in units of the first guess of the height
    Background, //!< in the same units, at the origin
    Slope, //!< change of the background over the length; only with a linear background
};

int parametersOf(FitBackground background)
{
    return background == FitBackground::Linear ? Slope + 1 : Background + 1;
}

//! A rough Gaussian to start from.
struct Guess
{
    double mean = 0;
    double sigma = 0;
    double height = 0;
    double background = 0;

    //! Takes the lower quarter of the densities for background, and the run of cells above half of the peak for the beam.
    static Guess of(const BeamProfile &profile, const std::vector<int> &cells)
    {
        std::vector<double> sorted;
        sorted.reserve(cells.size());
        for (int cell : cells)
            sorted.push_back(profile.density(cell));
        std::sort(sorted.begin(), sorted.end());
        Guess guess;
        guess.background = sorted[sorted.size() / 8];
        guess.height = sorted.back() - guess.background;
        const auto above = [&](int cell) {
            return profile.density(cell) - guess.background - guess.height / 2;
        };
        const auto peak = std::max_element(cells.begin(), cells.end(), [&](int one, int other) {
            return profile.density(one) < profile.density(other);
        });
        auto first = peak, last = peak;
        while (first != cells.begin() && above(*(first - 1)) > 0)
            --first;
        while (last + 1 != cells.end() && above(*(last + 1)) > 0)
            ++last;
        double charge = 0, moment = 0, width = 0;
        for (auto cell = first; cell <= last; ++cell) {
            const double share =
                (profile.density(*cell) - guess.background) * profile.intervals[*cell];
            charge += share;
            moment += share * profile.positions[*cell];
            width += profile.intervals[*cell];
        }
        guess.mean = charge > 0 ? moment / charge : profile.positions[*peak];
        guess.sigma = width / kHalfMaximumInSigma;
        return guess;
    }
};

//! The residuals of the trusted cells and their derivatives, as the minimiser wants them.
class Residuals
{
public:
    Residuals(const BeamProfile &profile,
              const std::vector<int> &cells,
              const Guess &guess,
              int parameters)
        : m_profile(profile)
        , m_cells(cells)
        , m_guess(guess)
        , m_parameters(parameters)
    {
        for (int cell : cells)
            m_largestScale = std::max(m_largestScale, profile.scales[cell]);
    }

    int inputs() const { return m_parameters; }
    int values() const { return int(m_cells.size()); }

    int operator()(const Eigen::VectorXd &p, Eigen::VectorXd &residuals) const
    {
        compute(p);
        for (int row = 0; row < values(); ++row) {
            const int cell = m_cells[std::size_t(row)];
            double model = p[Background] + p[Height] * m_gaussians[std::size_t(row)].value();
            if (m_parameters > Slope)
                model += p[Slope] * distance(cell);
            residuals[row] = (model - m_profile.density(cell) / m_guess.height) * weight(cell);
        }
        return 0;
    }

    int df(const Eigen::VectorXd &p, Eigen::MatrixXd &jacobian) const
    {
        compute(p);
        const double sigma = sigmaOf(p);
        for (int row = 0; row < values(); ++row) {
            const int cell = m_cells[std::size_t(row)];
            const CellGaussian &g = m_gaussians[std::size_t(row)];
            const CellGaussian::Derivatives by = g.derivatives();
            const double w = weight(cell);
            jacobian(row, Mean) = w * p[Height] * by.byMean * m_guess.sigma;
            jacobian(row, LogSigma) = w * p[Height] * by.bySigma * sigma;
            jacobian(row, Height) = w * g.value();
            jacobian(row, Background) = w;
            if (m_parameters > Slope)
                jacobian(row, Slope) = w * distance(cell);
        }
        return 0;
    }

    double meanOf(const Eigen::VectorXd &p) const { return m_guess.mean + m_guess.sigma * p[Mean]; }
    double sigmaOf(const Eigen::VectorXd &p) const
    {
        constexpr double furthest = 50; // the exponential must not overflow
        return m_guess.sigma * std::exp(std::clamp(p[LogSigma], -furthest, furthest));
    }
    //! Returns the unit of the residuals, as a reading.
    double unit() const { return m_guess.height * m_largestScale; }

private:
    /*! Averages the Gaussian over all cells, unless that was done last: the minimiser asks for the derivatives where it just asked for
        the residuals. */
    void compute(const Eigen::VectorXd &p) const
    {
        const double mean = meanOf(p), sigma = sigmaOf(p);
        if (!m_gaussians.empty() && mean == m_mean && sigma == m_sigma)
            return;
        m_gaussians.clear();
        for (const int cell : m_cells)
            m_gaussians.emplace_back(m_profile.positions[cell],
                                     m_profile.widths[cell],
                                     mean,
                                     sigma);
        m_mean = mean;
        m_sigma = sigma;
    }
    double distance(int cell) const
    {
        return (m_profile.positions[cell] - m_guess.mean) / m_guess.sigma;
    }
    //! All readings have the same weight, so densities count with their scale.
    double weight(int cell) const { return m_profile.scales[cell] / m_largestScale; }

    const BeamProfile &m_profile;
    const std::vector<int> &m_cells;
    const Guess m_guess;
    const int m_parameters;
    double m_largestScale = 0;
    mutable std::vector<CellGaussian> m_gaussians; //!< of the cells, for a mean and a sigma
    mutable double m_mean = 0;
    mutable double m_sigma = 0;
};

/*! Returns the roots of the diagonal of (J^T J)^-1 from J P = Q R, whose J has more rows than columns: the length of R^-T P^T e for
    each unit vector e. */
Eigen::VectorXd lengthsOfInverse(const Eigen::ColPivHouseholderQR<Eigen::MatrixXd> &qr)
{
    const Eigen::Index columns = qr.cols();
    const auto transposed =
        qr.matrixR().topLeftCorner(columns, columns).triangularView<Eigen::Upper>().transpose();
    Eigen::VectorXd lengths(columns);
    for (Eigen::Index i = 0; i < columns; ++i) {
        Eigen::VectorXd solution =
            qr.colsPermutation().transpose() * Eigen::VectorXd::Unit(columns, i);
        transposed.solveInPlace(solution);
        lengths[i] = solution.norm();
    }
    return lengths;
}

/*! Sets the standard errors from the covariance of the parameters, (J^T J)^-1 times the variance of a residual: that of the
    noise if it is known, otherwise the sum of squares over the degrees of freedom. */
void takeErrors(const BeamProfile &profile,
                const Residuals &residuals,
                const Eigen::VectorXd &p,
                BeamEstimate &result,
                const Guess &guess)
{
    const int parameters = residuals.inputs();
    Eigen::MatrixXd jacobian(residuals.values(), parameters);
    Eigen::VectorXd values(residuals.values());
    residuals.df(p, jacobian);
    residuals(p, values);
    const Eigen::ColPivHouseholderQR<Eigen::MatrixXd> qr(jacobian);
    if (!qr.isInjective())
        return;
    const double variance = profile.noise > 0
        ? std::pow(profile.noise / residuals.unit(), 2)
        : values.squaredNorm() / (residuals.values() - parameters);
    const Eigen::VectorXd errors = lengthsOfInverse(qr) * std::sqrt(variance);
    result.position.error = guess.sigma * errors[Mean];
    result.sigma.error = result.sigma.value * errors[LogSigma];
    result.height.error = guess.height * errors[Height];
    result.background.error = guess.height * errors[Background];
}

std::vector<int> trustedCells(const BeamProfile &profile)
{
    std::vector<int> cells;
    for (int i = 0; i < profile.count(); ++i)
        if (!profile.has(i, kUntrusted))
            cells.push_back(i);
    return cells;
}

} // namespace

BeamEstimate leastSquaresGaussian(const BeamProfile &profile, FitBackground background)
{
    const int parameters = parametersOf(background);
    BeamEstimate result;
    result.status = EstimateStatus::NotUsable;
    if (!profile.isUsable())
        return result;
    const std::vector<int> cells = trustedCells(profile);
    result.status = EstimateStatus::NotEnoughCells;
    if (int(cells.size()) <= parameters)
        return result;
    const Guess guess = Guess::of(profile, cells);
    result.status = EstimateStatus::NoSignal;
    if (!(guess.height > 0) || !std::isfinite(1 / guess.height))
        return result;

    Residuals residuals(profile, cells, guess, parameters);
    Eigen::VectorXd p = Eigen::VectorXd::Zero(parameters);
    p[Height] = 1;
    p[Background] = guess.background / guess.height;
    Eigen::LevenbergMarquardt<Residuals> minimiser(residuals);
    minimiser.parameters.maxfev = kMostEvaluations;
    const auto end = minimiser.minimize(p);
    const bool converged =
        int(end) > 0 && end != Eigen::LevenbergMarquardtSpace::TooManyFunctionEvaluation;
    result.status = EstimateStatus::NotConverged;
    if (!converged || !p.allFinite())
        return result;
    result.position.value = residuals.meanOf(p);
    result.sigma.value = residuals.sigmaOf(p);
    result.height.value = guess.height * p[Height];
    result.background.value = guess.height * p[Background];
    if (background == FitBackground::Linear) {
        result.slope = guess.height * p[Slope] / guess.sigma;
        result.background.value += result.slope * (result.position.value - guess.mean);
    }
    result.status = result.height.value > 0 ? EstimateStatus::Ok : EstimateStatus::NoRealWidth;
    if (!result.isOk())
        return result;
    takeErrors(profile, residuals, p, result, guess);
    result.quality = qualityOf(profile, result, parameters);
    return result;
}

} // namespace Corvale_Qt
