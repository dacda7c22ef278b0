// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/JudgedFrame_p.h"
#include "corvale_qt/numerics/CellScreening.h"
#include "corvale_qt/numerics/NumberPair_p.h"
#include "corvale_qt/numerics/WideRegisters_p.h"
#include "corvale_qt/plot/PlotRange_p.h"
#include "corvale_qt/units/LibraryTexts_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

using Axis = DetectorLayout::Axis;

PlaneResult judgePlane(const DetectorFrame &cells, Axis axis, const JudgeOptions &options)
{
    PlaneResult plane;
    plane.profile = cells.profile(axis);
    if (!plane.exists())
        return plane;
    plane.profile.noise *= options.noiseFactor;
    flagHotCells(plane.profile);
    EstimatorOptions estimation = options.estimation;
    // The limit is a reading; the fit compares densities.
    estimation.regression.minimumPeak /=
        *std::max_element(plane.profile.scales.begin(), plane.profile.scales.end());
    plane.estimate = estimateBeam(plane.profile, options.estimator, estimation);
    plane.verdict = judgeEstimate(plane.profile, plane.estimate, options.limits);
    return plane;
}

void merge(const PlaneResult &plane, const QString &name, bool alone, BeamVerdict &verdict)
{
    const auto named = [&](const QString &text) {
        return alone ? text : name + QLatin1String(": ") + text;
    };
    const BeamVerdict &own = plane.verdict;
    verdict.validity = std::max(verdict.validity, own.validity);
    for (const QString &reason : own.reasons)
        verdict.reasons.append(named(reason));
    for (const QString &note : own.notes)
        verdict.notes.append(named(note));
    verdict.deadCells += own.deadCells;
    verdict.saturatedCells += own.saturatedCells;
    verdict.hotCells += own.hotCells;
    verdict.flaggedShare = std::max(verdict.flaggedShare, own.flaggedShare);
    verdict.shareOutside = std::max(verdict.shareOutside, own.shareOutside);
    verdict.atEdge = verdict.atEdge || own.atEdge;
    verdict.peakInNoise = alone ? own.peakInNoise : std::min(verdict.peakInNoise, own.peakInNoise);
}

//! Returns the verdict of the whole frame. A matrix counts its cells, not its columns and rows.
BeamVerdict verdictOf(const JudgedFrame &frame)
{
    BeamVerdict verdict;
    verdict.validity = BeamValidity::Valid;
    verdict.peakInNoise = std::numeric_limits<double>::infinity();
    const bool alone = !frame.x.exists() || !frame.y.exists();
    if (frame.x.exists())
        merge(frame.x, QStringLiteral("X"), alone, verdict);
    if (frame.y.exists())
        merge(frame.y, QStringLiteral("Y"), alone, verdict);
    if (!frame.x.exists() && !frame.y.exists())
        verdict.validity = BeamValidity::NotValid;
    if (frame.cells.layout.kind() == DetectorKind::Matrix) {
        const auto count = [&](CellFlag flag) {
            return int(std::count_if(frame.cells.flags.begin(),
                                     frame.cells.flags.end(),
                                     [flag](CellFlags flags) {
                                         return flags.testFlag(flag);
                                     }));
        };
        verdict.deadCells = count(CellFlag::Dead);
        verdict.saturatedCells = count(CellFlag::Saturated);
        verdict.hotCells = count(CellFlag::Hot);
    }
    if (frame.cells.leftOut > 0)
        verdict.notes.append(
            tr("%n reading(s) belong to no cell: %1 left out", nullptr, frame.cells.leftOut)
                .arg(frame.cells.leftOutSum, 0, 'g', 4));
    return verdict;
}

FitStatus statusOf(const PlaneResult &plane)
{
    const FitStatus status = fitStatusOf(plane.estimate.status);
    return status == FitStatus::Ok && !plane.isGood() ? FitStatus::NoiseAboveThreshold : status;
}

FitStatus statusOf(const JudgedFrame &frame)
{
    const FitStatus x = frame.x.exists() ? statusOf(frame.x) : FitStatus::Ok;
    if (x != FitStatus::Ok || !frame.y.exists())
        return frame.x.exists() ? x : FitStatus::NotComputed;
    return statusOf(frame.y);
}

//! Returns the charges of strips, with holes filled, in the order of the cells; negative ones count as 0.
std::vector<double> pictureOf(const PlaneResult &plane, bool falling)
{
    const BeamProfile filled = plane.profile.withoutHoles();
    std::vector<double> charges;
    charges.reserve(size_t(filled.count()));
    for (int i = 0; i < filled.count(); ++i)
        charges.push_back(std::max(filled.charge(i), 0.0));
    if (falling)
        std::reverse(charges.begin(), charges.end());
    return charges;
}

bool isFalling(const DetectorLayout &layout, Axis axis)
{
    const QVector<double> places = layout.positions(axis);
    return places.size() > 1 && places.first() > places.last();
}

//! Spreads the charge over the crossings of the strips, as the product of the profiles.
void fillStripRaster(JudgedFrame &frame)
{
    const DetectorLayout &layout = frame.cells.layout;
    std::vector<double> columns{1.0}, rows{1.0};
    if (frame.x.exists())
        columns = pictureOf(frame.x, isFalling(layout, Axis::X));
    if (frame.y.exists())
        rows = pictureOf(frame.y, isFalling(layout, Axis::Y));
    double sum = 0;
    frame.beam.raster.reserve(int(columns.size() * rows.size()));
    for (const double row : rows) {
        for (const double column : columns) {
            frame.beam.raster.append(row * column);
            sum += row * column;
        }
    }
    const double scale = sum > 0 ? frame.beam.calc.integral / sum : 0.0;
    for (double &cell : frame.beam.raster) {
        cell *= scale;
        frame.beam.calc.max = std::max(frame.beam.calc.max, cell);
    }
}

//! Returns the largest of \a floor and those of \a values that are not NaN.
double largestOf(const QVector<double> &values, double floor)
{
    clearWideRegisters();
    // Two comparisons of pairs do not wait for each other.
    NumberPair first{floor, floor}, second = first;
    int i = 0;
    for (; i + 4 <= values.size(); i += 4) {
        const NumberPair one = pairAt(&values.at(i)), other = pairAt(&values.at(i + 2));
        first = one > first ? one : first;
        second = other > second ? other : second;
    }
    double largest = std::max({first[0], first[1], second[0], second[1]});
    for (; i < values.size(); ++i)
        largest = std::max(largest, values[i]);
    return largest;
}

void fillMatrixRaster(JudgedFrame &frame)
{
    const DetectorFrame &cells = frame.cells;
    frame.beam.raster = cells.values;
    if (cells.layout.unwiredCells() > 0) {
        for (int cell = 0; cell < cells.values.size(); ++cell) {
            if (cells.layout.readingAt(cell) < 0)
                frame.beam.raster[cell] = std::nan("");
        }
    }
    frame.beam.calc.max = largestOf(frame.beam.raster, frame.beam.calc.max);
}

double chargeOf(const PlaneResult &plane)
{
    double sum = 0;
    for (int i = 0; i < plane.profile.count(); ++i)
        sum += plane.profile.charge(i);
    return sum;
}

//! Returns how far the widths along the axes depend on each other, -1 to 1; 0 for strips, which do not know.
double correlationOf(const JudgedFrame &frame, BeamEstimator estimator)
{
    if (frame.cells.layout.kind() != DetectorKind::Matrix)
        return 0;
    const BeamImage image = frame.cells.image();
    const ImageMoments moments = estimator == BeamEstimator::CentreOfGravity
        ? imageMoments(image)
        : secondMomentImage(image);
    if (!moments.isOk() || !(moments.sigmaX > 0 && moments.sigmaY > 0))
        return 0;
    const double difference =
        moments.sigmaMajor * moments.sigmaMajor - moments.sigmaMinor * moments.sigmaMinor;
    const double covariance = difference / 2 * std::sin(2 * moments.rotation);
    return std::clamp(covariance / (moments.sigmaX * moments.sigmaY), -1.0, 1.0);
}

//! Finds the ellipse with the widths along both axes, in the unit of the axes.
void takeEllipse(JudgedFrame &frame, BeamEstimator estimator)
{
    const double sx = frame.x.estimate.sigma.value, sy = frame.y.estimate.sigma.value;
    const double covariance = correlationOf(frame, estimator) * sx * sy;
    const double mean = (sx * sx + sy * sy) / 2;
    const double reach = std::hypot((sx * sx - sy * sy) / 2, covariance);
    SigmaEllipse &ellipse = frame.beam.ellipse;
    ellipse.x = frame.x.estimate.position.value;
    ellipse.y = frame.y.estimate.position.value;
    ellipse.semiMajor = std::sqrt(mean + reach);
    ellipse.semiMinor = std::sqrt(std::max(mean - reach, 0.0));
    ellipse.rotation = std::atan2(2 * covariance, sx * sx - sy * sy) / 2 * 180 / M_PI;
}

//! Fills in the numbers that need both axes.
void takeShape(JudgedFrame &frame, BeamEstimator estimator)
{
    const DetectorLayout &layout = frame.cells.layout;
    SpectrogramCalc &calc = frame.beam.calc;
    takeEllipse(frame, estimator);
    const SigmaEllipse &ellipse = frame.beam.ellipse;
    if (layout.kind() == DetectorKind::Matrix && layout.unit(Axis::X) == layout.unit(Axis::Y)) {
        const double scale = millimetresPer(layout.unit(Axis::X));
        calc.sigmaMajor = scale * ellipse.semiMajor;
        calc.sigmaMinor = scale * ellipse.semiMinor;
        calc.elongation = calc.sigmaMinor > 0 ? calc.sigmaMajor / calc.sigmaMinor : 0;
        calc.rotation = ellipse.rotation;
    } else {
        // Strips, and axes of different kinds, have no direction.
        calc.sigmaMajor = std::max(calc.sigmaX, calc.sigmaY);
        calc.sigmaMinor = std::min(calc.sigmaX, calc.sigmaY);
        calc.elongation = calc.sigmaY / calc.sigmaX;
    }
    frame.beam.axisRotation = calc.rotation;
}

void takeAxes(JudgedFrame &frame)
{
    SpectrogramCalc &calc = frame.beam.calc;
    const DetectorLayout &layout = frame.cells.layout;
    if (frame.x.isGood()) {
        const double scale = millimetresPer(layout.unit(Axis::X));
        calc.meanX = scale * frame.x.estimate.position.value;
        calc.sigmaX = scale * frame.x.estimate.sigma.value;
        frame.beam.rasterMeanX = frame.x.estimate.position.value;
    }
    if (frame.y.isGood()) {
        const double scale = millimetresPer(layout.unit(Axis::Y));
        calc.meanY = scale * frame.y.estimate.position.value;
        calc.sigmaY = scale * frame.y.estimate.sigma.value;
        frame.beam.rasterMeanY = frame.y.estimate.position.value;
    }
}

} // namespace

void JudgedFrame::refuse(FitStatus status, const QString &reason)
{
    const double integral = beam.calc.integral, max = beam.calc.max;
    beam.calc = {};
    beam.calc.integral = integral;
    beam.calc.max = max;
    beam.status = status;
    beam.rasterMeanX = std::nan("");
    beam.rasterMeanY = std::nan("");
    beam.axisRotation = 0;
    verdict.validity = BeamValidity::NotValid;
    verdict.reasons.prepend(reason);
}

double millimetresPer(const QString &unit)
{
    static const std::pair<QString, double> lengths[] = {{QStringLiteral("nm"), 1e-6},
                                                         {QStringLiteral("um"), 1e-3},
                                                         {QStringLiteral("\u00b5m"), 1e-3},
                                                         {QStringLiteral("\u03bcm"), 1e-3},
                                                         {QStringLiteral("cm"), 10.0},
                                                         {QStringLiteral("m"), 1000.0},
                                                         {QStringLiteral("in"), 25.4}};
    for (const auto &[name, length] : lengths) {
        if (unit == name)
            return length;
    }
    return 1;
}

QString lengthUnitOf(const QString &unit)
{
    if (unit.isEmpty())
        return tr("cells");
    return millimetresPer(unit) != 1 ? QStringLiteral("mm") : unit;
}

JudgedFrame judgeLayoutFrame(const DetectorFrame &cells, const JudgeOptions &options)
{
    JudgedFrame frame;
    frame.isJudged = true;
    frame.cells = cells;
    frame.cells.flagHotCellsOfMatrix();
    frame.x = judgePlane(frame.cells, Axis::X, options);
    frame.y = judgePlane(frame.cells, Axis::Y, options);
    frame.verdict = verdictOf(frame);
    const bool matrix = cells.layout.kind() == DetectorKind::Matrix;
    SpectrogramCalc &calc = frame.beam.calc;
    calc.integral = chargeOf(frame.x) + (matrix ? 0.0 : chargeOf(frame.y));
    if (matrix)
        fillMatrixRaster(frame);
    else
        fillStripRaster(frame);
    frame.beam.hasMaximum = true;
    takeAxes(frame);
    frame.beam.status = statusOf(frame);
    calc.valid = frame.verdict.validity != BeamValidity::NotValid;
    if (calc.valid && frame.x.exists() && frame.y.exists())
        takeShape(frame, options.estimator);
    if (!isPresentable(frame.beam.calc)) {
        calc.integral = calc.max = 0;
        frame.beam.raster.fill(0);
        frame.refuse(FitStatus::NoRealWidth, tr("the numbers are too large to be shown"));
    }
    return frame;
}

JudgedFrame judgePresetFrame(const BeamFrame &beam,
                             ProfileLayout layout,
                             const FrameReadings &readings,
                             const FrameOptions &frameOptions,
                             JudgeOptions options)
{
    const bool pixels = layout == ProfileLayout::PixelMatrix;
    FrameReadings used = readings;
    for (double &reading : used) {
        if (pixels && reading < frameOptions.discriminator)
            reading = 0;
    }
    options.estimator = pixels ? BeamEstimator::CentreOfGravity : BeamEstimator::Regression;
    const DetectorLayout described =
        pixels ? DetectorLayout::pixelMatrix() : DetectorLayout::stripPair();
    JudgedFrame frame =
        judgeLayoutFrame(DetectorFrame::of(described, used.data(), int(used.size())), options);
    const bool good = frame.beam.calc.valid;
    const FitStatus status = frame.beam.status;
    frame.beam = beam;
    if (good && beam.calc.valid)
        return frame;
    SpectrogramCalc &calc = frame.beam.calc;
    const SpectrogramCalc computed = calc;
    frame.refuse(beam.calc.valid ? status : beam.status, good ? tr("the fit failed") : QString());
    frame.verdict.reasons.removeAll(QString());
    if (frame.x.isGood() && computed.valid) {
        calc.meanX = computed.meanX;
        calc.sigmaX = computed.sigmaX;
        frame.beam.rasterMeanX = beam.rasterMeanX;
    }
    if (frame.y.isGood() && computed.valid) {
        calc.meanY = computed.meanY;
        calc.sigmaY = computed.sigmaY;
        frame.beam.rasterMeanY = beam.rasterMeanY;
    }
    return frame;
}

} // namespace Corvale_Qt
