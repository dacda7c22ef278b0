// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/RVXSpectrogram_p.h"
#include "corvale_qt/numerics/ScaleFractions.h"

#include <QDebug>

#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

//! "NaN" where there is no number, or none that the box can hold.
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
    buildPlots();
    connectControls();
    connectDisplayOptions();
    plot->setEllipseOptions(ellipseOptions());
    applyUnit();
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
    options.discriminator = ui.discriminator_QScienceSpinBox->value();
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

void RVXSpectrogramPrivate::setLayout(DetectorLayout newLayout, const QString &title)
{
    layout = newLayout;
    ui.label_title->setText(title);
    ui.discriminator_QScienceSpinBox->setEnabled(layout == DetectorLayout::PixelMatrix);
    history->clear();
    timePlot->replot();
    if (layout == plot->detector())
        return;
    clearFrame(); // it was another detector's
    plot->setDetector(layout);
    plot->replot();
}

void RVXSpectrogramPrivate::clearFrame()
{
    hasFrame = false;
    calc = {};
    for (QDoubleSpinBox *box : ui.groupBox_calculations->findChildren<QDoubleSpinBox *>())
        box->setValue(box->minimum());
    ui.label_valid->setText(RVXSpectrogram::tr("[+ Data Validity]"));
    ui.label_valid->setStyleSheet(QString());
}

void RVXSpectrogramPrivate::setCurrent(bool enabled)
{
    if (enabled != current) {
        const double factor = enabled ? sampleRate : 1.0 / sampleRate;
        current = enabled;
        for (QScienceSpinBox *box :
             {ui.threshold_QScienceSpinBox, ui.discriminator_QScienceSpinBox}) {
            const QSignalBlocker blocker(box);
            box->setValue(box->value() * factor);
        }
        presentAgain(); // what is shown gets the new unit, and its numbers with it
    }
    applyUnit();
    applyScale();
    plot->replot();
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
    if (!autoScale) {
        plot->setColorRange(fraction * fullScale());
    } else if (lastMaximum > 0) {
        fraction = lastMaximum / fullScale();
        plot->setColorRange(lastMaximum);
    }
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
        qDebug() << "RVXSpectrogram::setData ignored: time stamp" << timestamp;
        return;
    }
    if (timestamp == lastTimestamp)
        return;
    const FrameReadings charges = frameReadings(data);
    const FrameReadings readings = scaled(charges, readingFactor());
    if (layout == DetectorLayout::StripPair && stripFrameIsEmpty(readings)) {
        qDebug() << "2D incoming data is all 0";
        return;
    }
    const BeamFrame frame = computeFrame(layout, readings, frameOptions());
    remember(frame.calc, timestamp);
    if (redrawPending && drawing && layout != DetectorLayout::None)
        present(charges, frame);
}

void RVXSpectrogramPrivate::remember(const SpectrogramCalc &newCalc, double timestamp)
{
    if (sidebar && layout != DetectorLayout::None) {
        if (timestamp < lastTimestamp) {
            qDebug().nospace() << "Incoming timestamp " << timestamp
                               << " is less than old timestamp " << lastTimestamp
                               << " so the Pixelated X/Y plot has been cleared.";
            history->clear();
        }
        history->append({timestamp, newCalc.meanX, newCalc.meanY});
        timePlot->setEnd(timestamp);
    }
    lastTimestamp = timestamp;
}

bool RVXSpectrogramPrivate::isAboveThreshold(const SpectrogramCalc &newCalc) const
{
    return !ui.checkBox_threshold->isChecked()
        || newCalc.max >= ui.threshold_QScienceSpinBox->value();
}

void RVXSpectrogramPrivate::present(const FrameReadings &charges, const BeamFrame &frame)
{
    Q_Q(RVXSpectrogram);
    if (!isAboveThreshold(frame.calc)) {
        plot->setEllipseHidden(true);
        plot->replot();
        return; // the redraw stays pending: the next good frame is taken at once
    }
    shownCharges = charges;
    hasFrame = true;
    showFrame(frame);
    redrawPending = false;
    if (!sidebar)
        Q_EMIT q->calcUpdate();
}

//! The frame that is shown, after something changed how it is read.
void RVXSpectrogramPrivate::presentAgain()
{
    if (hasFrame)
        showFrame(
            computeFrame(plot->detector(), scaled(shownCharges, readingFactor()), frameOptions()));
}

void RVXSpectrogramPrivate::showFrame(const BeamFrame &frame)
{
    calc = frame.calc;
    lastMaximum = calc.max;
    plot->setFrame(frame);
    if (autoScale)
        applyScale();
    showResults();
    if (sidebar)
        timePlot->replot();
    plot->replot();
}

void RVXSpectrogramPrivate::showResults()
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    showNumber(ui.doubleSpinBox_meanx, calc.meanX);
    showNumber(ui.doubleSpinBox_meany, calc.meanY);
    showNumber(ui.doubleSpinBox_elongation, calc.valid ? calc.elongation : none);
    if (!sidebar)
        return;
    showNumber(ui.doubleSpinBox_dx, calc.sigmaX);
    showNumber(ui.doubleSpinBox_dy, calc.sigmaY);
    showNumber(ui.doubleSpinBox_major, calc.sigmaMajor);
    showNumber(ui.doubleSpinBox_minor, calc.sigmaMinor);
    showNumber(ui.doubleSpinBox_rotation, calc.valid ? calc.rotation : none);
    showNumber(ui.integral_QScienceSpinBox, calc.integral);
    showNumber(ui.max_QScienceSpinBox, calc.max);
    ui.label_valid->setText(calc.valid ? RVXSpectrogram::tr("DATA VALID")
                                       : RVXSpectrogram::tr("DATA NOT VALID"));
    // Both colours are its own, so that it reads in light and in dark.
    ui.label_valid->setStyleSheet(
        calc.valid ? QStringLiteral("background: #1b5e20; color: white; padding: 3px;")
                   : QStringLiteral("background: #b71c1c; color: white; padding: 3px;"));
}

} // namespace Corvale_Qt
