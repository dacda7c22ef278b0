// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXSpectrogram_p.h"

#include "corvale_qt/beam/profile/DetectorControls_p.h"
#include "corvale_qt/beam/profile/Logging_p.h"
#include "corvale_qt/plot/AccessibleChart_p.h"
#include "corvale_qt/plot/ScaleFractions_p.h"

#include <QMetaMethod>
#include <QPointer>

#include <cmath>
#include <limits>
#include <utility>

namespace Corvale_Qt {

RVXSpectrogramPrivate::RVXSpectrogramPrivate(RVXSpectrogram *q)
    : q_ptr(q)
{
}

void RVXSpectrogramPrivate::build()
{
    Q_Q(RVXSpectrogram);
    ui.setupUi(q);
    clearFrame();
    for (QScienceSpinBox *box : {ui.threshold_QScienceSpinBox, ui.discriminator_QScienceSpinBox}) {
        box->setSteppingMode(QScienceSpinBox::MultiplicativeSteps);
        box->setStepFactor(2);
        box->setSingleStep(1e-12);
        box->setKeyboardTracking(false);
    }
    threshold = std::make_unique<ChargeLimit>(ui.threshold_QScienceSpinBox);
    discriminator = std::make_unique<ChargeLimit>(ui.discriminator_QScienceSpinBox);
    // Numbers have a decimal point in every locale, as on the axes.
    ui.sidebar->setLocale(QLocale::c());
    showNewest.setSingleShot(true);
    QObject::connect(&showNewest, &QTimer::timeout, q, [this] {
        if (redrawPending && newestWaits && hasLayout())
            present(frameOf(newest));
    });
    buildPlots();
    connectControls();
    connectDisplayOptions();
    plot->setEllipseOptions(ellipseOptions());
    applyUnit();
    // A large font needs more room than the form gives.
    q->resize(q->sizeHint().expandedTo(q->size()));
}

void RVXSpectrogramPrivate::buildPlots()
{
    plot = new SpectrogramPlot(ui.frame_plot);
    plot->setAccessibleName(RVXSpectrogram::tr("Beam profile"));
    describeChart(plot, [this] {
        return results.words();
    });
    timePlot = new MeanTimePlot(history, ui.frame_timePlot);
    plot->replot();
    timePlot->replot();
    const auto fill = [](QWidget *frame, QWidget *widget) {
        auto *box = new QVBoxLayout(frame);
        box->setContentsMargins(0, 0, 0, 0);
        box->addWidget(widget);
    };
    fill(ui.frame_plot, plot);
    fill(ui.frame_timePlot, timePlot);
}

void RVXSpectrogramPrivate::connectControls()
{
    Q_Q(RVXSpectrogram);
    QObject::connect(ui.comboBox_scaling,
                     QOverload<int>::of(&QComboBox::currentIndexChanged),
                     q,
                     [this](int index) {
                         chooseScale(index);
                     });
    QObject::connect(ui.comboBox_color,
                     QOverload<int>::of(&QComboBox::currentIndexChanged),
                     q,
                     [this](int mode) {
                         ColorSettings colors = plot->colorSettings();
                         colors.map = ColorMapChoice(mode);
                         plot->setColorSettings(colors);
                         plot->replot();
                     });
    QObject::connect(ui.checkBox_threshold,
                     &QCheckBox::toggled,
                     ui.threshold_QScienceSpinBox,
                     &QWidget::setEnabled);
    QObject::connect(ui.discriminator_QScienceSpinBox,
                     QOverload<double>::of(&QDoubleSpinBox::valueChanged),
                     q,
                     [this] {
                         presentAgain();
                     });
    for (QCheckBox *box : {ui.checkBox_invertX, ui.checkBox_invertY})
        QObject::connect(box, &QCheckBox::toggled, q, [this] {
            setInverted();
        });
    for (QCheckBox *box : {ui.checkBox_meanX, ui.checkBox_meanY}) {
        QObject::connect(box, &QCheckBox::toggled, q, [this] {
            plot->setMeansVisible(ui.checkBox_meanX->isChecked(), ui.checkBox_meanY->isChecked());
            plot->replot();
        });
    }
    QObject::connect(ui.checkBox_smoothing, &QCheckBox::toggled, q, [this](bool smoothing) {
        plot->setSmoothing(smoothing);
        plot->replot();
    });
}

void RVXSpectrogramPrivate::connectDisplayOptions()
{
    Q_Q(RVXSpectrogram);
    const auto apply = [this] {
        plot->setEllipseOptions(ellipseOptions());
        plot->replot();
    };
    QObject::connect(ui.checkBox_ellipse,
                     &QCheckBox::toggled,
                     ui.spinBox_sigma,
                     &QWidget::setEnabled);
    for (QCheckBox *box : {ui.checkBox_ellipse, ui.checkBox_arrow})
        QObject::connect(box, &QCheckBox::toggled, q, apply);
    QObject::connect(ui.spinBox_arrow, QOverload<int>::of(&QSpinBox::valueChanged), q, apply);
    for (QDoubleSpinBox *box : {ui.xorigin_doubleSpinBox, ui.yorigin_doubleSpinBox})
        QObject::connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), q, apply);
    QObject::connect(ui.spinBox_sigma,
                     QOverload<int>::of(&QSpinBox::valueChanged),
                     q,
                     [this](int count) {
                         plot->setSigmaCount(count);
                         plot->replot();
                     });
}

FrameOptions RVXSpectrogramPrivate::frameOptions() const
{
    FrameOptions options;
    options.invertX = ui.checkBox_invertX->isChecked();
    options.invertY = ui.checkBox_invertY->isChecked();
    options.discriminator = discriminator->value();
    options.regression = regression;
    const bool hasOwnUnit = detector.isOn() && !intensityUnit.isEmpty();
    options.regression.minimumPeak *= readingFactor() * (hasOwnUnit ? intensityFactor : 1.0);
    return options;
}

EllipseOptions RVXSpectrogramPrivate::ellipseOptions() const
{
    EllipseOptions options;
    options.ellipse = ui.checkBox_ellipse->isChecked();
    options.arrow = ui.checkBox_arrow->isChecked();
    options.arrowSize = ui.spinBox_arrow->value();
    options.xOrigin = ui.xorigin_doubleSpinBox->value();
    options.yOrigin = ui.yorigin_doubleSpinBox->value();
    return options;
}

void RVXSpectrogramPrivate::setLayout(ProfileLayout newLayout, const QString &title)
{
    if (detector.isOn())
        setDescribed({});
    layout = newLayout;
    ui.label_title->setText(title);
    ui.discriminator_QScienceSpinBox->setEnabled(layout == ProfileLayout::PixelMatrix);
    history->clear();
    timePlot->replot();
    if (layout == plot->detector())
        return;
    clearFrame(); // the frame belongs to another detector
    plot->setDetector(layout);
    applyScale();
    plot->replot();
}

void RVXSpectrogramPrivate::clearFrame()
{
    shown = {};
    newest = {};
    newestWaits = false;
    lastMaximum = 0;
    judged = {};
    results.clear();
}

void RVXSpectrogramPrivate::chooseScale(int index)
{
    Q_Q(RVXSpectrogram);
    autoScale = index == kAutoScaleIndex;
    if (!autoScale && index != kNormalizeScaleIndex)
        fraction = scaleFraction(index);
    applyScale();
    plot->replot();
    if (!settingScale)
        Q_EMIT q->changedYScale(index);
}

void RVXSpectrogramPrivate::applyScale()
{
    if (autoScale && lastMaximum > 0 && fullScale() > 0)
        fraction = lastMaximum / fullScale();
    plot->setColorRange(colorRange());
}

double RVXSpectrogramPrivate::colorRange() const
{
    if (!autoScale && fullScale() > 0)
        return fraction * fullScale();
    if (lastMaximum > 0)
        return lastMaximum;
    // No frame to follow yet.
    return fullScale() > 0 ? fullScale() : 1.0;
}

void RVXSpectrogramPrivate::setInverted()
{
    const FrameOptions options = frameOptions();
    const bool x = options.invertX;
    const bool y = options.invertY;
    history->mirror(x != plot->isInvertedX(), y != plot->isInvertedY());
    plot->setInverted(x, y);
    detector.setInverted(x, y);
    if (detector.isOn())
        plot->setDescribed(detector.shownLayout());
    timePlot->replot();
    plot->replot();
    presentAgain();
}

bool RVXSpectrogramPrivate::takesTime(double timestamp) const
{
    if (!std::isfinite(timestamp)) {
        qCDebug(profileLog) << "RVXSpectrogram::setData ignored: time stamp" << timestamp;
        return false;
    }
    return timestamp != lastTimestamp;
}

void RVXSpectrogramPrivate::takeFrame(const QVector<double> &data, double timestamp)
{
    ++framesHandedOver;
    if (detector.isOn()) {
        if (const auto cells = detector.frameOf(data))
            takeCells(*cells, timestamp);
        return;
    }
    if (!takesTime(timestamp))
        return;
    TakenFrame taken{frameReadings(data.constData(), data.size()), {}, framesHandedOver, timestamp};
    if (layout == ProfileLayout::StripPair
        && stripFrameIsEmpty(scaled(taken.charges, readingFactor()))) {
        qCDebug(profileLog) << "2D incoming data is all 0";
        if (!detector.verdictEnabled) // which says that there is no beam
            return;
    }
    if (layout == ProfileLayout::None)
        lastTimestamp = timestamp;
    else
        takeNewest(taken);
}

void RVXSpectrogramPrivate::takeNewest(TakenFrame taken)
{
    Q_Q(RVXSpectrogram);
    newest = std::move(taken);
    const double timestamp = newest.time;
    newestWaits = true;
    if (!timer.isActive())
        timer.start();
    newestNumbers.reset();
    const bool announced = isEveryFrameAskedFor();
    JudgedFrame frame;
    if (sidebar || redrawPending || announced) {
        frame = frameOf(newest);
        newestNumbers = resultOf(newest, frame.beam);
    }
    remember(frame.beam.calc, timestamp);
    const SpectrogramResult result = newestNumbers.value_or(SpectrogramResult());
    // A slot may delete the display.
    const QPointer<RVXSpectrogram> stillThere(q);
    if (redrawPending)
        present(frame);
    if (stillThere && announced)
        Q_EMIT q->frameCalculated(result);
}

bool RVXSpectrogramPrivate::isEveryFrameAskedFor() const
{
    Q_Q(const RVXSpectrogram);
    static const QMetaMethod signal = QMetaMethod::fromSignal(&RVXSpectrogram::frameCalculated);
    return q->isSignalConnected(signal);
}

SpectrogramResult RVXSpectrogramPrivate::resultOf(const TakenFrame &taken,
                                                  const BeamFrame &frame) const
{
    return {frame.status, frame.calc, taken.number, taken.time, current};
}

SpectrogramResult RVXSpectrogramPrivate::newestResult() const
{
    if (!newest.exists())
        return SpectrogramResult();
    if (!newestNumbers)
        newestNumbers = resultOf(newest, frameOf(newest).beam);
    return *newestNumbers;
}

SpectrogramResult RVXSpectrogramPrivate::shownResult() const
{
    return {judged.beam.status, judged.beam.calc, shown.number, shown.time, current};
}

void RVXSpectrogramPrivate::tick()
{
    const bool isIdle = std::exchange(redrawPending, true) && !newestWaits;
    if (isIdle)
        timer.stop(); // until the next frame
    // From now on the next frame is shown at once. If none comes, the timer shows the last one.
    if (newestWaits)
        showNewest.start();
}

//! Computes a frame. If frames are judged, one below the threshold is not valid.
JudgedFrame RVXSpectrogramPrivate::frameOf(const TakenFrame &taken) const
{
    JudgedFrame frame = judgedFrameOf(taken);
    if (frame.isJudged && isBelowThreshold(frame.beam))
        frame.refuse(FitStatus::PeakBelowThreshold,
                     RVXSpectrogram::tr("the maximum is below the threshold"));
    return frame;
}

JudgedFrame RVXSpectrogramPrivate::judgedFrameOf(const TakenFrame &taken) const
{
    const FrameOptions options = frameOptions();
    if (detector.isOn())
        return detector.judge(taken.cells, options.regression, readingFactor());
    const FrameReadings readings = scaled(taken.charges, readingFactor());
    JudgedFrame frame;
    frame.beam = computeFrame(plot->detector(), readings, options);
    return detector.verdictEnabled
        ? detector.judgePreset(frame.beam, plot->detector(), readings, options)
        : frame;
}

void RVXSpectrogramPrivate::remember(const SpectrogramCalc &newCalc, double timestamp)
{
    if (sidebar) {
        if (timestamp < lastTimestamp) {
            qCDebug(profileLog).nospace()
                << "Incoming timestamp " << timestamp << " is less than old timestamp "
                << lastTimestamp << " so the Pixelated X/Y plot has been cleared.";
            history->clear();
        }
        history->append({timestamp, newCalc.meanX, newCalc.meanY});
        timePlot->setEnd(timestamp);
    }
    lastTimestamp = timestamp;
}

//! Returns whether the threshold hides the frame. A frame without a maximum is shown, so that its failure is seen.
bool RVXSpectrogramPrivate::isBelowThreshold(const BeamFrame &frame) const
{
    return ui.checkBox_threshold->isChecked() && frame.hasMaximum
        && frame.calc.max < threshold->value();
}

void RVXSpectrogramPrivate::present(const JudgedFrame &frame)
{
    if (!drawing)
        return;
    newestWaits = false;
    if (!frame.isJudged && isBelowThreshold(frame.beam)) {
        if (plot->hideEllipse())
            plot->replot();
        return; // the redraw stays pending, so that the next good frame is shown at once
    }
    if (!shown.exists())
        results.showNoNumbers(RVXSpectrogram::tr("N/A"));
    shown = newest;
    showFrame(frame);
    redrawPending = false;
    announceShown();
}

/*! Computes and shows the frame on the screen again, after a setting changed. A caller does this last, since a slot that hears
    of the new numbers may delete the display. */
void RVXSpectrogramPrivate::presentAgain()
{
    newestNumbers.reset();
    if (!shown.exists())
        return;
    showFrame(frameOf(shown));
    announceShown();
}

//! Tells that other numbers are shown. A slot may delete the display.
void RVXSpectrogramPrivate::announceShown()
{
    Q_Q(RVXSpectrogram);
    const QPointer<RVXSpectrogram> stillThere(q);
    if (!sidebar)
        Q_EMIT q->calcUpdate();
    if (stillThere)
        Q_EMIT q->shownResultChanged();
}

//! Averages the newest frames and subtracts the background from them again, after a setting of that changed.
void RVXSpectrogramPrivate::processAgain()
{
    if (detectorControls)
        detectorControls->showState();
    const DetectorFrame cells = detector.averaging.processed();
    if (!newest.exists() || cells.values.isEmpty())
        return;
    newest.cells = cells;
    if (shown.number == newest.number)
        shown.cells = cells;
    presentAgain();
}

void RVXSpectrogramPrivate::showFrame(const JudgedFrame &frame)
{
    judged = frame;
    const double maximum = judged.beam.calc.max;
    if (maximum > 0)
        lastMaximum = maximum;
    plot->setFrame(judged);
    if (autoScale || !(fullScale() > 0))
        applyScale();
    showResults();
    if (sidebar)
        timePlot->replot();
    plot->replot();
}

} // namespace Corvale_Qt
