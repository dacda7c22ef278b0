// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXSpectrogram_p.h"

#include "corvale_qt/beam/profile/Logging_p.h"
#include "corvale_qt/plot/ScaleFractions_p.h"

#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

//! Shows \a number, or the box's special text if it is not finite or beyond the box's range.
void showNumber(QDoubleSpinBox *box, double number)
{
    const bool shown =
        std::isfinite(number) && number >= box->minimum() && number <= box->maximum();
    const bool rounded = std::abs(number) < 0.5 * std::pow(10.0, -box->decimals());
    box->setValue(!shown ? box->minimum() : rounded ? 0.0 : number); // not "-0.000"
}

} // namespace

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
        if (redrawPending && newestWaits && layout != ProfileLayout::None)
            present(frameOf(newestCharges));
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
                         plot->setColorMode(mode == 0 ? SpectrogramPlot::Greyscale
                                                      : SpectrogramPlot::Color);
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
    hasFrame = false;
    newestWaits = false;
    lastMaximum = 0;
    calc = {};
    for (QDoubleSpinBox *box : ui.groupBox_calculations->findChildren<QDoubleSpinBox *>())
        box->setValue(box->minimum());
    showNoNumbers(QStringLiteral("NaN"));
    ui.label_valid->setText(RVXSpectrogram::tr("[+ Data Validity]"));
    ui.label_valid->setStyleSheet(QString());
}

void RVXSpectrogramPrivate::setCurrent(bool enabled)
{
    if (enabled != current) {
        lastMaximum *= enabled ? sampleRate : 1.0 / sampleRate;
        current = enabled;
        threshold->setFactor(readingFactor());
        discriminator->setFactor(readingFactor());
        presentAgain(); // converts the frame on the screen to the new unit
    }
    applyUnit();
    applyScale();
    plot->replot();
}

void RVXSpectrogramPrivate::setSampleRate(int rate)
{
    sampleRate = rate;
    threshold->setFactor(readingFactor());
    discriminator->setFactor(readingFactor());
}

void RVXSpectrogramPrivate::applyUnit()
{
    plot->setColorBarTitle(current ? RVXSpectrogram::tr("Intensity (A)")
                                   : RVXSpectrogram::tr("Intensity (C)"));
    const QString suffix = current ? QStringLiteral(" A") : QStringLiteral(" C");
    for (QDoubleSpinBox *box : {ui.threshold_QScienceSpinBox,
                                ui.discriminator_QScienceSpinBox,
                                ui.integral_QScienceSpinBox,
                                ui.max_QScienceSpinBox})
        box->setSuffix(suffix);
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
    timePlot->replot();
    presentAgain();
    plot->replot();
}

void RVXSpectrogramPrivate::takeFrame(const QVector<double> &data, double timestamp)
{
    if (!std::isfinite(timestamp)) {
        qCDebug(lcProfile) << "RVXSpectrogram::setData ignored: time stamp" << timestamp;
        return;
    }
    if (timestamp == lastTimestamp)
        return;
    const FrameReadings charges = frameReadings(data);
    const FrameReadings readings = scaled(charges, readingFactor());
    if (layout == ProfileLayout::StripPair && stripFrameIsEmpty(readings)) {
        qCDebug(lcProfile) << "2D incoming data is all 0";
        return;
    }
    const BeamFrame frame = computeFrame(layout, readings, frameOptions());
    remember(frame.calc, timestamp);
    if (layout == ProfileLayout::None)
        return;
    newestCharges = charges;
    newestWaits = true;
    if (redrawPending)
        present(frame);
}

void RVXSpectrogramPrivate::tick()
{
    redrawPending = true;
    // From now on the next frame is shown at once. If none comes, the timer shows the last one.
    if (newestWaits)
        showNewest.start();
}

BeamFrame RVXSpectrogramPrivate::frameOf(const FrameReadings &charges) const
{
    return computeFrame(plot->detector(), scaled(charges, readingFactor()), frameOptions());
}

void RVXSpectrogramPrivate::remember(const SpectrogramCalc &newCalc, double timestamp)
{
    if (sidebar && layout != ProfileLayout::None) {
        if (timestamp < lastTimestamp) {
            qCDebug(lcProfile).nospace()
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

void RVXSpectrogramPrivate::present(const BeamFrame &frame)
{
    Q_Q(RVXSpectrogram);
    if (!drawing)
        return;
    newestWaits = false;
    if (isBelowThreshold(frame)) {
        if (plot->hideEllipse())
            plot->replot();
        return; // the redraw stays pending, so that the next good frame is shown at once
    }
    shownCharges = newestCharges;
    if (!hasFrame)
        showNoNumbers(RVXSpectrogram::tr("N/A"));
    hasFrame = true;
    showFrame(frame);
    redrawPending = false;
    if (!sidebar)
        Q_EMIT q->calcUpdate();
}

//! Computes and shows the frame on the screen again, after a setting changed.
void RVXSpectrogramPrivate::presentAgain()
{
    if (hasFrame)
        showFrame(frameOf(shownCharges));
}

void RVXSpectrogramPrivate::showFrame(const BeamFrame &frame)
{
    calc = frame.calc;
    axisRotation = frame.axisRotation;
    if (calc.max > 0)
        lastMaximum = calc.max;
    plot->setFrame(frame);
    if (autoScale || !(fullScale() > 0))
        applyScale();
    showResults();
    if (sidebar)
        timePlot->replot();
    plot->replot();
}

//! Sets the text that boxes without a number show.
void RVXSpectrogramPrivate::showNoNumbers(const QString &text)
{
    for (QDoubleSpinBox *box : ui.groupBox_calculations->findChildren<QDoubleSpinBox *>()) {
        if (box->specialValueText() != text)
            box->setSpecialValueText(text);
    }
}

void RVXSpectrogramPrivate::showResults()
{
    const auto ifValid = [this](double number) {
        return calc.valid ? number : std::numeric_limits<double>::quiet_NaN();
    };
    showNumber(ui.doubleSpinBox_meanx, calc.meanX);
    showNumber(ui.doubleSpinBox_meany, calc.meanY);
    showNumber(ui.doubleSpinBox_elongation, ifValid(calc.elongation));
    if (!sidebar)
        return;
    showNumber(ui.doubleSpinBox_dx, calc.sigmaX);
    showNumber(ui.doubleSpinBox_dy, calc.sigmaY);
    showNumber(ui.doubleSpinBox_major, calc.sigmaMajor);
    showNumber(ui.doubleSpinBox_minor, calc.sigmaMinor);
    showNumber(ui.doubleSpinBox_rotation, ifValid(axisRotation));
    showNumber(ui.integral_QScienceSpinBox, ifValid(calc.integral));
    showNumber(ui.max_QScienceSpinBox, ifValid(calc.max));
    ui.label_valid->setText(calc.valid ? RVXSpectrogram::tr("DATA VALID")
                                       : RVXSpectrogram::tr("DATA NOT VALID"));
    // Text and background are both fixed, so that the label is readable in light and dark themes.
    ui.label_valid->setStyleSheet(
        calc.valid ? QStringLiteral("background: #1b5e20; color: white; padding: 3px;")
                   : QStringLiteral("background: #b71c1c; color: white; padding: 3px;"));
}

} // namespace Corvale_Qt
