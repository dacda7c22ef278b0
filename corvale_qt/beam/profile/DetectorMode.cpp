// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/DetectorMode_p.h"
#include "corvale_qt/beam/profile/Logging_p.h"
#include "corvale_qt/units/LibraryTexts_p.h"

#include <QStringList>

#include <cmath>

namespace Corvale_Qt {

namespace {

DetectorAxis mirrored(DetectorAxis axis)
{
    axis.reversed = !axis.reversed;
    const bool counted = axis.positions.isEmpty() && std::isnan(axis.pitch);
    if (!counted) // cells are counted from the other end instead
        axis.offset = -axis.offset;
    return axis;
}

LogParabolaOptions regressionOf(const RegressionOptions<double> &options)
{
    LogParabolaOptions regression;
    regression.thresholdFraction = options.thresholdFraction;
    regression.halfWidth = options.halfWidth;
    regression.weightPower = options.weightPower;
    regression.minimumPeak = options.minimumPeak;
    return regression;
}

} // namespace

void DetectorMode::setLayout(const DetectorLayout &layout)
{
    if (layout != m_layout)
        averaging.clear();
    m_layout = layout;
    mirror();
}

void DetectorMode::setInverted(bool x, bool y)
{
    m_invertX = x;
    m_invertY = y;
    mirror();
}

void DetectorMode::mirror()
{
    m_shown = m_layout;
    if (!isOn() || (!m_invertX && !m_invertY))
        return;
    DetectorDescription description = m_layout.description();
    if (m_invertX)
        description.x = mirrored(description.x);
    if (m_invertY)
        description.y = mirrored(description.y);
    m_shown = DetectorLayout::fromDescription(description);
}

std::optional<DetectorFrame> DetectorMode::frameOf(const QVector<double> &readings) const
{
    if (readings.size() != m_layout.readings()) {
        qCDebug(profileLog) << "RVXSpectrogram::setData ignored:" << readings.size()
                            << "readings for a detector with" << m_layout.readings();
        return {};
    }
    return DetectorFrame::of(m_layout, readings.constData(), readings.size());
}

JudgedFrame DetectorMode::judge(const DetectorFrame &frame,
                                const RegressionOptions<double> &regression,
                                double factor) const
{
    DetectorFrame cells = frame;
    cells.layout = m_shown;
    for (int i = 0; factor != 1.0 && i < cells.values.size(); ++i)
        cells.values[i] *= factor;
    const EstimatorOptions options{regressionOf(regression), centreOfGravity};
    return judgeLayoutFrame(cells, {estimator(), options, limits(), factor});
}

JudgedFrame DetectorMode::judgePreset(const BeamFrame &beam,
                                      ProfileLayout layout,
                                      const FrameReadings &readings,
                                      const FrameOptions &options) const
{
    return judgePresetFrame(beam,
                            layout,
                            readings,
                            options,
                            {estimator(), {regressionOf(options.regression), {}}, limits()});
}

BeamEstimator DetectorMode::estimator() const
{
    const bool matrix = isOn() && m_layout.kind() == DetectorKind::Matrix;
    return chosenEstimator.value_or(matrix ? BeamEstimator::LeastSquares
                                           : BeamEstimator::Regression);
}

VerdictLimits DetectorMode::limits() const
{
    return chosenLimits.value_or(m_layout.description().verdictLimits);
}

QString DetectorMode::stateText() const
{
    QStringList texts;
    if (averaging.averaged() > 1)
        texts.append(Corvale_Qt::tr("average of %n frame(s)", nullptr, int(averaging.averaged())));
    if (averaging.missingFrames() > 0)
        texts.append(missingText(averaging.missingFrames()));
    if (averaging.hasBackground())
        texts.append(backgroundText(int(averaging.backgroundFrames()), averaging.isSubtracted()));
    return texts.join(QStringLiteral("; "));
}

QString DetectorMode::missingText(int frames)
{
    return Corvale_Qt::tr("taking the background: %n frame(s) to come", nullptr, frames);
}

QString DetectorMode::backgroundText(int frames, bool isSubtracted)
{
    return isSubtracted
        ? Corvale_Qt::tr("background of %n frame(s) subtracted", nullptr, frames)
        : Corvale_Qt::tr("background of %n frame(s) not subtracted", nullptr, frames);
}

} // namespace Corvale_Qt
