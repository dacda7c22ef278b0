// SPDX-License-Identifier: LGPL-2.1-or-later
// What RVXSpectrogram offers for described detectors, and verdicts.
#include "corvale_qt/beam/profile/DetectorControls_p.h"
#include "corvale_qt/beam/profile/FrameFile_p.h"
#include "corvale_qt/beam/profile/Logging_p.h"
#include "corvale_qt/beam/profile/PlaneControls_p.h"
#include "corvale_qt/beam/profile/PlotZoom_p.h"
#include "corvale_qt/beam/profile/RVXSpectrogram_p.h"

namespace Corvale_Qt {

using Axis = DetectorLayout::Axis;

void RVXSpectrogramPrivate::setDescribed(const DetectorLayout &described)
{
    Q_Q(RVXSpectrogram);
    if (described == detector.layout())
        return;
    layout = ProfileLayout::None;
    detector.setLayout(described);
    const bool on = detector.isOn();
    if (on && !detectorControls)
        detectorControls = new DetectorControls(*q, ui.sidebar, ui.verticalLayout_sidebar);
    if (detectorControls)
        detectorControls->setLayoutShown(on);
    ui.label_title->setText(on ? described.summary() : RVXSpectrogram::tr("No Data"));
    ui.discriminator_QScienceSpinBox->setEnabled(false);
    showControlsFor(described, ui);
    history->clear();
    clearFrame();
    plot->setDescribed(detector.shownLayout());
    const QString x = on ? q->lengthUnit(Axis::X) : QStringLiteral("mm");
    const QString y = on ? q->lengthUnit(Axis::Y) : QStringLiteral("mm");
    results.setLengthUnits(x, y);
    timePlot->setAxisTitle(QwtPlot::yLeft,
                           x == y ? RVXSpectrogram::tr("Position (%1)").arg(x)
                                  : RVXSpectrogram::tr("Position"));
    applyUnit();
    applyScale();
    timePlot->replot();
    plot->replot();
}

void RVXSpectrogramPrivate::takeCells(const DetectorFrame &cells, double timestamp)
{
    if (!takesTime(timestamp))
        return;
    TakenFrame taken;
    taken.cells = detector.add(cells);
    taken.number = framesHandedOver;
    taken.time = timestamp;
    takeNewest(std::move(taken));
    if (detectorControls)
        detectorControls->showState();
}

void RVXSpectrogram::setLayout(const DetectorLayout &layout)
{
    Q_D(RVXSpectrogram);
    if (!layout.isEmpty() && layout.kind() == DetectorKind::Channels) {
        qCDebug(profileLog)
            << "RVXSpectrogram::setLayout ignored: a list of channels has no places";
        return;
    }
    d->setDescribed(layout);
}

DetectorLayout RVXSpectrogram::detectorLayout() const
{
    Q_D(const RVXSpectrogram);
    return d->detector.layout();
}

QString RVXSpectrogram::lengthUnit(Axis axis) const
{
    Q_D(const RVXSpectrogram);
    if (!d->detector.isOn())
        return QStringLiteral("mm");
    return lengthUnitOf(d->detector.layout().unit(axis));
}

QRectF RVXSpectrogram::lengthArea() const
{
    Q_D(const RVXSpectrogram);
    const DetectorLayout &shown = d->detector.shownLayout();
    const double x = millimetresPer(shown.unit(Axis::X)), y = millimetresPer(shown.unit(Axis::Y));
    const QPointF first(x * shown.lowerEdge(Axis::X), y * shown.lowerEdge(Axis::Y));
    return QRectF(first, QPointF(x * shown.upperEdge(Axis::X), y * shown.upperEdge(Axis::Y)));
}

void RVXSpectrogram::setFrame(const DetectorFrame &frame, double timestamp)
{
    Q_D(RVXSpectrogram);
    if (frame.layout.isEmpty() || frame.layout.kind() == DetectorKind::Channels
        || frame.values.size() != frame.layout.cells()) {
        qCDebug(profileLog)
            << "RVXSpectrogram::setFrame ignored: no values on the cells of a detector";
        return;
    }
    ++d->framesHandedOver;
    d->setDescribed(frame.layout);
    d->takeCells(frame, timestamp);
}

DetectorFrame RVXSpectrogram::shownFrame() const
{
    Q_D(const RVXSpectrogram);
    if (!d->shown.exists() || d->judged.isJudged)
        return d->judged.cells;
    const bool pixels = d->layout == ProfileLayout::PixelMatrix;
    const FrameReadings readings = scaled(d->shown.charges, d->current ? d->sampleRate : 1.0);
    return DetectorFrame::of(pixels ? DetectorLayout::pixelMatrix() : DetectorLayout::stripPair(),
                             readings.data(),
                             int(readings.size()));
}

BeamEstimator RVXSpectrogram::estimator() const
{
    Q_D(const RVXSpectrogram);
    return d->detector.estimator();
}

void RVXSpectrogram::setEstimator(BeamEstimator estimator)
{
    Q_D(RVXSpectrogram);
    d->detector.chosenEstimator = estimator;
    if (d->detectorControls)
        d->detectorControls->showState();
    d->presentAgain();
}

BeamEstimate RVXSpectrogram::estimate(Axis axis) const
{
    Q_D(const RVXSpectrogram);
    return d->judged.plane(axis).estimate;
}

BeamVerdict RVXSpectrogram::verdict() const
{
    Q_D(const RVXSpectrogram);
    return d->judged.verdict;
}

VerdictLimits RVXSpectrogram::verdictLimits() const
{
    Q_D(const RVXSpectrogram);
    return d->detector.limits();
}

void RVXSpectrogram::setVerdictLimits(const VerdictLimits &limits)
{
    Q_D(RVXSpectrogram);
    d->detector.chosenLimits = limits;
    d->presentAgain();
}

bool RVXSpectrogram::isVerdictEnabled() const
{
    Q_D(const RVXSpectrogram);
    return d->detector.verdictEnabled;
}

void RVXSpectrogram::setVerdictEnabled(bool enabled)
{
    Q_D(RVXSpectrogram);
    d->detector.verdictEnabled = enabled;
    if (enabled)
        d->results.keepRoomForReasons(); // the first frame moves nothing either
    d->presentAgain();
}

RVXSpectrogram::ColorMap RVXSpectrogram::colorMap() const
{
    Q_D(const RVXSpectrogram);
    return ColorMap(d->plot->colorSettings().map);
}

void RVXSpectrogram::setColorMap(ColorMap map)
{
    Q_D(RVXSpectrogram);
    d->ui.comboBox_color->setCurrentIndex(map);
}

void RVXSpectrogramPrivate::setColors(const ColorSettings &colors)
{
    plot->setColorSettings(colors);
    plot->replot();
    if (detectorControls)
        detectorControls->showState();
}

void RVXSpectrogram::setColorRange(double low, double high)
{
    Q_D(RVXSpectrogram);
    if (!(low < high)) {
        qCDebug(profileLog) << "RVXSpectrogram::setColorRange ignored:" << low << "to" << high;
        return;
    }
    ColorSettings colors = d->plot->colorSettings();
    colors.isTyped = true;
    colors.low = low;
    colors.high = high;
    d->setColors(colors);
}

void RVXSpectrogram::resetColorRange()
{
    Q_D(RVXSpectrogram);
    ColorSettings colors = d->plot->colorSettings();
    colors.isTyped = false;
    d->setColors(colors);
}

bool RVXSpectrogram::hasColorRange() const
{
    Q_D(const RVXSpectrogram);
    return d->plot->colorSettings().isTyped;
}

QPair<double, double> RVXSpectrogram::colorRange() const
{
    Q_D(const RVXSpectrogram);
    const QwtInterval range = d->plot->colorSettings().range(d->colorRange());
    return {range.minValue(), range.maxValue()};
}

bool RVXSpectrogram::hasLogarithmicColors() const
{
    Q_D(const RVXSpectrogram);
    return d->plot->colorSettings().isLogarithmic;
}

void RVXSpectrogram::setLogarithmicColors(bool logarithmic)
{
    Q_D(RVXSpectrogram);
    ColorSettings colors = d->plot->colorSettings();
    colors.isLogarithmic = logarithmic;
    d->setColors(colors);
}

bool RVXSpectrogram::areProjectionsVisible() const
{
    Q_D(const RVXSpectrogram);
    return d->plot->layoutView().areProjectionsVisible();
}

void RVXSpectrogram::setProjectionsVisible(bool visible)
{
    Q_D(RVXSpectrogram);
    d->plot->layoutView().setProjectionsVisible(visible);
    d->plot->replot();
    if (d->detectorControls)
        d->detectorControls->showState();
}

QRectF RVXSpectrogram::shownArea() const
{
    Q_D(const RVXSpectrogram);
    const PlotZoom *zoom = d->plot->layoutView().zoom();
    return zoom ? zoom->shown() : QRectF();
}

void RVXSpectrogram::setShownArea(const QRectF &area)
{
    Q_D(RVXSpectrogram);
    if (PlotZoom *zoom = d->plot->layoutView().zoom())
        zoom->show(area.isEmpty() ? zoom->home() : area);
}

int RVXSpectrogram::averagedFrames() const
{
    Q_D(const RVXSpectrogram);
    return d->detector.averaging.averaged();
}

void RVXSpectrogram::setAveragedFrames(int frames)
{
    Q_D(RVXSpectrogram);
    d->detector.averaging.setAveraged(frames);
    d->processAgain();
}

bool RVXSpectrogram::hasBackground() const
{
    Q_D(const RVXSpectrogram);
    return d->detector.averaging.hasBackground();
}

bool RVXSpectrogram::isBackgroundSubtracted() const
{
    Q_D(const RVXSpectrogram);
    return d->detector.averaging.isSubtracted();
}

void RVXSpectrogram::setBackgroundSubtracted(bool subtracted)
{
    Q_D(RVXSpectrogram);
    d->detector.averaging.setSubtracted(subtracted);
    d->processAgain();
}

void RVXSpectrogram::takeBackground(int frames)
{
    Q_D(RVXSpectrogram);
    d->detector.averaging.takeBackground(frames);
    if (d->detectorControls)
        d->detectorControls->showState();
}

void RVXSpectrogram::clearBackground()
{
    Q_D(RVXSpectrogram);
    d->detector.averaging.clearBackground();
    d->processAgain();
}

QString RVXSpectrogram::frameProcessing() const
{
    Q_D(const RVXSpectrogram);
    return d->detector.stateText();
}

bool RVXSpectrogram::saveFrame(const QString &file) const
{
    Q_D(const RVXSpectrogram);
    const DetectorFrame frame = shownFrame();
    if (frame.values.isEmpty())
        return false;
    const QString unit =
        d->intensityUnit.isEmpty() ? QLatin1String(d->current ? "A" : "C") : d->intensityUnit;
    return writeFrame(frame, d->shown.time, unit, file);
}

bool RVXSpectrogram::savePicture(const QString &file) const
{
    Q_D(const RVXSpectrogram);
    return d->plot->grab().save(file);
}

} // namespace Corvale_Qt
