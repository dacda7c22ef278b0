// SPDX-License-Identifier: LGPL-2.1-or-later
// The unit in which a profile display shows its readings, and the prefix of that unit.
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/beam/profile/RVXSpectrogram_p.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QScopedPointer>

namespace Corvale_Qt {

void RVXSpectrogramPrivate::setCurrent(bool enabled)
{
    const bool changes = enabled != current;
    if (changes) {
        lastMaximum *= enabled ? sampleRate : 1.0 / sampleRate;
        current = enabled;
        threshold->setFactor(readingFactor());
        discriminator->setFactor(readingFactor());
    }
    applyUnit();
    applyScale();
    plot->replot();
    if (changes)
        presentAgain(); // converts the frame on the screen to the new unit
}

void RVXSpectrogramPrivate::setSampleRate(int rate)
{
    const double before = readingFactor();
    sampleRate = rate;
    if (readingFactor() == before)
        return; // charges do not depend on the rate
    lastMaximum *= readingFactor() / before;
    threshold->setFactor(readingFactor());
    discriminator->setFactor(readingFactor());
    applyScale();
    plot->replot();
    presentAgain();
}

//! Returns the symbol of the unit of the readings that are shown.
QString RVXSpectrogramPrivate::amountUnit() const
{
    if (detector.isOn() && !intensityUnit.isEmpty())
        return intensityUnit;
    return current ? QStringLiteral("A") : QStringLiteral("C");
}

void RVXSpectrogramPrivate::applyUnit()
{
    const QString unit = amountUnit();
    const AmountUnit shownUnit{unit, siPrefix, valueUnit};
    plot->setAmountUnit(shownUnit);
    plot->layoutView().setUnit(
        {unit, siPrefix || intensityUnit.isEmpty(), siPrefix ? valueUnit : QString()});
    results.setAmountUnit(shownUnit);
    for (QDoubleSpinBox *box : {ui.threshold_QScienceSpinBox, ui.discriminator_QScienceSpinBox})
        box->setSuffix(QLatin1Char(' ') + unit);
}

QString RVXSpectrogram::intensityUnit() const
{
    Q_D(const RVXSpectrogram);
    return d->intensityUnit;
}

void RVXSpectrogram::setIntensityUnit(const QString &unit)
{
    Q_D(RVXSpectrogram);
    const QScopedPointer<Units::MeasurementUnit> known(Units::MeasurementUnit::fromString(unit));
    d->intensityUnit = unit;
    d->intensityFactor = known ? known->scale(1.0) : 1.0;
    d->applyUnit();
    d->applyScale();
    d->plot->replot();
    d->presentAgain(); // the smallest peak of a fit is a charge
}

bool RVXSpectrogram::hasSiPrefix() const
{
    Q_D(const RVXSpectrogram);
    return d->siPrefix;
}

void RVXSpectrogram::setSiPrefix(bool on)
{
    Q_D(RVXSpectrogram);
    if (on == d->siPrefix)
        return;
    d->siPrefix = on;
    d->applyUnit();
    d->applyScale();
    d->plot->replot();
}

QString RVXSpectrogram::valueUnit() const
{
    Q_D(const RVXSpectrogram);
    return d->valueUnit;
}

void RVXSpectrogram::setValueUnit(const QString &symbol)
{
    Q_D(RVXSpectrogram);
    if (symbol == d->valueUnit)
        return;
    d->valueUnit = symbol;
    d->applyUnit();
    d->applyScale();
    d->plot->replot();
}

} // namespace Corvale_Qt
