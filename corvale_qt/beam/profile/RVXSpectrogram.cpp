// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXSpectrogram.h"

#include "corvale_qt/beam/profile/Logging_p.h"
#include "corvale_qt/beam/profile/RVXSpectrogram_p.h"
#include "corvale_qt/numerics/ClampedInt_p.h"
#include "corvale_qt/plot/PlotRange_p.h"
#include "corvale_qt/plot/ScaleFractions_p.h"

#include <QEvent>

#include <cmath>

namespace Corvale_Qt {

namespace {

//! Rounds towards zero, within a range in which sums and differences of two cannot overflow. Returns 0 for a NaN.
int truncated(double number)
{
    constexpr int most = 1000000000;
    return clampedToInt(number, -most, most);
}

} // namespace

RVXSpectrogram::RVXSpectrogram(QWidget *parent)
    : QWidget(parent)
    , d_ptr(new RVXSpectrogramPrivate(this))
{
    Q_D(RVXSpectrogram);
    qRegisterMetaType<SpectrogramResult>("Corvale_Qt::SpectrogramResult");
    d->build();
    for (QTimer *timer : {&d->timer, &d->showNewest})
        timer->setParent(this); // children of the widget tell whether it rests
    connect(&d->timer, SIGNAL(timeout()), this, SLOT(update()));
    d->timer.start(100);
}

RVXSpectrogram::~RVXSpectrogram()
{
    Q_D(RVXSpectrogram);
    // Deleting the controls moves the focus, and a box that loses it may still commit a typed number.
    for (QWidget *control : d->ui.sidebar->findChildren<QWidget *>())
        control->disconnect(this);
}

void RVXSpectrogram::setData(const QVector<double> &readings, double timestamp)
{
    Q_D(RVXSpectrogram);
    d->takeFrame(readings, timestamp);
}

SpectrogramCalc RVXSpectrogram::getCalc() const
{
    Q_D(const RVXSpectrogram);
    return d->judged.beam.calc;
}

void RVXSpectrogram::SetRegressionOptions(bool /*enabled*/,
                                          const QVector<double> &options,
                                          int /*peaks*/)
{
    Q_D(RVXSpectrogram);
    d->regression = {};
    if (options.size() >= 4) {
        d->regression.thresholdFraction = options[0];
        d->regression.halfWidth = truncated(options[1]);
        d->regression.minimumPeak = options[2];
    }
    if (options.size() >= 5)
        d->regression.weightPower = truncated(std::floor(options[4] + 0.5));
    d->presentAgain();
}

void RVXSpectrogram::SetCoGOptions(bool /*enabled*/, const QVector<double> &options, int /*peaks*/)
{
    Q_D(RVXSpectrogram);
    d->detector.centreOfGravity = centreOfGravityOptions(options);
    d->presentAgain();
}

void RVXSpectrogram::setL408(bool enabled)
{
    Q_D(RVXSpectrogram);
    if (enabled)
        d->setLayout(ProfileLayout::StripPair, tr("LR40-8 Plot"));
    else if (d->layout == ProfileLayout::StripPair)
        d->layout = ProfileLayout::None;
}

void RVXSpectrogram::setPixelated(bool enabled)
{
    Q_D(RVXSpectrogram);
    if (enabled)
        d->setLayout(ProfileLayout::PixelMatrix, tr("DW7/DW9 Plot"));
    else if (d->layout == ProfileLayout::PixelMatrix)
        d->layout = ProfileLayout::None;
}

void RVXSpectrogram::setName(const char *name)
{
    Q_D(RVXSpectrogram);
    d->name = QString::fromUtf8(name);
    qCDebug(profileLog).noquote().nospace() << "Spectrogram created for " << d->name;
}

void RVXSpectrogram::setRange(double current, double charge)
{
    Q_D(RVXSpectrogram);
    if (!isPlottable(current) || !isPlottable(charge) || current < 0 || charge < 0) {
        qCDebug(profileLog) << "RVXSpectrogram::setRange ignored: no full scale of" << current
                            << "and" << charge;
        return;
    }
    d->currentFullScale = current;
    d->chargeFullScale = charge;
    currentEnabled(d->current);
}

void RVXSpectrogram::setSampleRate(int rate)
{
    Q_D(RVXSpectrogram);
    if (rate > 0)
        d->setSampleRate(rate);
    else
        qCDebug(profileLog) << "RVXSpectrogram::setSampleRate ignored:" << rate;
}

void RVXSpectrogram::setScale(int index)
{
    Q_D(RVXSpectrogram);
    const bool known = index >= 0 && index < d->ui.comboBox_scaling->count();
    d->settingScale = true;
    d->ui.comboBox_scaling->setCurrentIndex(known ? index : 2); // 100 %
    d->settingScale = false;
}

void RVXSpectrogram::currentEnabled(bool enabled)
{
    Q_D(RVXSpectrogram);
    d->setCurrent(enabled);
}

void RVXSpectrogram::scaleEnabled(bool enabled)
{
    Q_D(RVXSpectrogram);
    d->plot->setColorBarVisible(enabled);
}

void RVXSpectrogram::sidebarEnabled(bool enabled)
{
    Q_D(RVXSpectrogram);
    d->sidebar = enabled;
    d->ui.scrollArea_sidebar->setVisible(enabled);
    if (enabled && d->shown.exists())
        d->showResults(); // most numbers are not updated while it is hidden
}

void RVXSpectrogram::setEnabled(bool enabled)
{
    QWidget::setEnabled(enabled);
}

void RVXSpectrogram::changeEvent(QEvent *event)
{
    Q_D(RVXSpectrogram);
    QWidget::changeEvent(event);
    // Not in setEnabled(), because a parent may also disable the display.
    if (event->type() == QEvent::EnabledChange)
        d->drawing = isEnabled();
}

SpectrogramResult RVXSpectrogram::result() const
{
    Q_D(const RVXSpectrogram);
    return d->newestResult();
}

SpectrogramResult RVXSpectrogram::shownResult() const
{
    Q_D(const RVXSpectrogram);
    return d->shownResult();
}

bool RVXSpectrogram::getCurrentEnabled() const
{
    Q_D(const RVXSpectrogram);
    return d->current;
}

double RVXSpectrogram::getDiscriminator() const
{
    Q_D(const RVXSpectrogram);
    return d->ui.discriminator_QScienceSpinBox->value();
}

bool RVXSpectrogram::getXinverted() const
{
    Q_D(const RVXSpectrogram);
    return d->ui.checkBox_invertX->isChecked();
}

bool RVXSpectrogram::getYinverted() const
{
    Q_D(const RVXSpectrogram);
    return d->ui.checkBox_invertY->isChecked();
}

bool RVXSpectrogram::unlimitedHistory() const
{
    Q_D(const RVXSpectrogram);
    return d->history->isUnlimited();
}

void RVXSpectrogram::setUnlimitedHistory(bool unlimited)
{
    Q_D(RVXSpectrogram);
    d->history->setUnlimited(unlimited);
}

void RVXSpectrogram::update()
{
    Q_D(RVXSpectrogram);
    d->tick();
}

} // namespace Corvale_Qt
