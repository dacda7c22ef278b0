// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/statistics/ProfileFits.h"

#include "monitor/core/Text.h"
#include "monitor/statistics/BeamEstimates.h"
#include "monitor/statistics/StreamStatistics.h"
#include <corvale_qt/numerics/ProfileFit.h>
#include <corvale_qt/scope/statistics/RVX_RegressionHistogramItem.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace Monitor {

namespace {

//! Fewer channels than this are not a profile.
constexpr int fewestOfAProfile = 3;

ProfileFitResult
fitOf(const QString &profile, const QVector<float> &values, const QVector<double> &parameters)
{
    Corvale_Qt::RVX_RegressionHistogramItem item(nullptr, parameters, false);
    ProfileFitResult result;
    result.profile = profile;
    result.valid = item.compute(0, values, values.size());
    const bool hasSignal = std::any_of(values.begin(), values.end(), [](float value) {
        return value > 0.0F;
    });
    result.message = hasSignal ? item.statusMessage() : Text::tr("No signal.");
    const Corvale_Qt::ProfileFit &fit = item.fit();
    result.position = double(fit.mean) + 1.0;
    result.sigma = double(fit.sigma);
    result.peak = double(fit.peakHeight);
    result.integral = double(fit.amplitude);
    return result;
}

//! Fits each plane of strips to its own channels, in the order in which the stream has them.
std::vector<ProfileFitResult> fitsOfPlanes(const Corvale_Qt::DetectorLayout &detector,
                                           const QVector<float> &values,
                                           const QVector<double> &parameters)
{
    using Corvale_Qt::DetectorLayout;
    std::vector<ProfileFitResult> fits;
    int first = 0;
    for (const auto &[axis, name] :
         {std::pair(DetectorLayout::Axis::X, "x"), std::pair(DetectorLayout::Axis::Y, "y")}) {
        const int cells = detector.cells(axis);
        std::set<int> channels;
        for (int cell = first; cell < first + cells; ++cell)
            channels.insert(detector.readingAt(cell));
        channels.erase(-1); // cells that are not wired
        first += cells;
        QVector<float> profile;
        for (const int channel : channels)
            profile.append(values.value(channel));
        if (profile.size() >= fewestOfAProfile)
            fits.push_back(fitOf(QString::fromLatin1(name), profile, parameters));
    }
    return fits;
}

} // namespace

std::vector<ProfileFitResult> fitsOfLastReading(const StreamStatistics &statistics,
                                                bool channelsAreProfile,
                                                const FitParameters &parameters)
{
    const QVector<double> &regression = parameters.regression;
    QVector<float> values;
    for (const double value : statistics.lastValues())
        values.append(std::isfinite(value) ? float(value) : 0.0F);
    const StreamHeader &header = statistics.header();
    if (header.detector.kind() == Corvale_Qt::DetectorKind::Strips)
        return fitsOfPlanes(header.detector, values, regression);
    if (header.kind == StreamKind::Strips && values.size() >= 2) {
        const int ofX = (values.size() + 1) / 2;
        return {fitOf(QStringLiteral("x"), values.mid(0, ofX), regression),
                fitOf(QStringLiteral("y"), values.mid(ofX), regression)};
    }
    const bool isPlaced = header.detector.kind() != Corvale_Qt::DetectorKind::Channels;
    if (header.kind == StreamKind::Channels && channelsAreProfile && !isPlaced
        && values.size() >= fewestOfAProfile)
        return {fitOf(QStringLiteral("all"), values, regression)};
    return {};
}

void applyVerdicts(const LastEstimates &estimates, std::vector<ProfileFitResult> &fits)
{
    for (const PlaneEstimate &plane : estimates.planes) {
        const bool isJudged = plane.estimator == QLatin1String("regression")
            && plane.verdict.validity == Corvale_Qt::BeamValidity::NotValid;
        if (!isJudged)
            continue;
        for (ProfileFitResult &fit : fits) {
            if (!fit.valid || fit.profile != plane.plane)
                continue;
            fit.valid = false;
            fit.message = plane.verdict.text() + QStringLiteral(": ")
                + plane.verdict.reasons.join(QStringLiteral("; "));
        }
    }
}

} // namespace Monitor
