// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/statistics/ProfileFits.h"

#include "monitor/core/Text.h"
#include "monitor/statistics/BeamEstimates.h"
#include "monitor/statistics/StreamStatistics.h"
#include <corvale_qt/numerics/ProfileFit.h>
#include <corvale_qt/scope/statistics/RVX_RegressionHistogramItem.h>

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

//! Fewer channels than this are no profile.
constexpr int fewestOfAProfile = 3;

//! The initial parameters of the statistics page, but without a lowest peak and sum, which depend on the unit.
const QVector<double> fitParameters = {0.1, 10.0, 0.0, 0.0, 2.0, 5.0};

ProfileFitResult fitOf(const QString &profile, const QVector<float> &values)
{
    Corvale_Qt::RVX_RegressionHistogramItem item(nullptr, fitParameters, false);
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

} // namespace

std::vector<ProfileFitResult> fitsOfLastReading(const StreamStatistics &statistics,
                                                bool channelsAreProfile)
{
    const StreamKind kind = statistics.header().kind;
    QVector<float> values;
    for (const double value : statistics.lastValues())
        values.append(std::isfinite(value) ? float(value) : 0.0F);
    if (kind == StreamKind::Strips && values.size() >= 2) {
        using Axis = Corvale_Qt::DetectorLayout::Axis;
        const StreamHeader &header = statistics.header();
        const int ofX =
            header.hasFrames() ? header.detector.cells(Axis::X) : (values.size() + 1) / 2;
        return {fitOf(QStringLiteral("x"), values.mid(0, ofX)),
                fitOf(QStringLiteral("y"), values.mid(ofX))};
    }
    const Corvale_Qt::DetectorLayout &detector = statistics.header().detector;
    const bool hasPlaces =
        !detector.isEmpty() && detector.kind() != Corvale_Qt::DetectorKind::Channels;
    if (kind == StreamKind::Channels && (hasPlaces || channelsAreProfile)
        && values.size() >= fewestOfAProfile)
        return {fitOf(QStringLiteral("all"), values)};
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
