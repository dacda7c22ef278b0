// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"

#include "corvale_qt/scope/statistics/RVX_HistogramItemAxisWidget.h"
#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem_p.h"

#include <qwt_symbol.h>

#include <QCoreApplication>
#include <QPen>

#include <cmath>
#include <limits>

namespace Corvale_Qt {

QwtScaleDiv RVX_StatisticsHistogramItemPrivate::ticks(double axisUpper) const
{
    QList<double> ticks[QwtScaleDiv::NTickTypes];
    ticks[QwtScaleDiv::MajorTick] << position;
    if (status == FitStatus::Ok) {
        const double sigma = placed ? placed->estimate.sigma.value : double(fit.sigma);
        ticks[QwtScaleDiv::MediumTick] << position - sigma << position + sigma;
        ticks[QwtScaleDiv::MinorTick] << position - 3 * sigma << position + 3 * sigma;
    }
    return placed ? QwtScaleDiv(placed->lower, placed->upper, ticks)
                  : QwtScaleDiv(0.0, axisUpper, ticks);
}

void RVX_StatisticsHistogramItemPrivate::place(RVX_StatisticsHistogramItem &item,
                                               const PlacedFit &fit)
{
    RVX_StatisticsHistogramItemPrivate &d = of(item);
    d.placed = fit;
    d.status = fit.status;
    d.message = fit.message;
    d.position = fit.x();
    if (!d.showsResults)
        return;
    d.marker.setValue(d.position, fit.readingAt(fit.estimate.position.value) / d.plotDivisor);
    if (d.axisWidget)
        d.axisWidget->setTicks(&item, d.ticks(0.0));
    item.showFit(0);
    item.showLabel();
}

RVX_StatisticsHistogramItem::ScaleDraw::ScaleDraw()
{
    setTickLength(QwtScaleDiv::MajorTick, 12.0);
    setTickLength(QwtScaleDiv::MediumTick, 8.0);
    setTickLength(QwtScaleDiv::MinorTick, 5.0);
}

QwtText RVX_StatisticsHistogramItem::ScaleDraw::label(double) const
{
    return QwtText();
}

RVX_StatisticsHistogramItem::RVX_StatisticsHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                                         const QString &title,
                                                         const QColor &color,
                                                         bool fullStatistics)
    : d_ptr(new RVX_StatisticsHistogramItemPrivate)
{
    Q_D(RVX_StatisticsHistogramItem);
    d->axisWidget = axisWidget;
    d->color = color;
    d->fullStatistics = fullStatistics;
    d->marker.setTitle(title);
    d->marker.setLineStyle(QwtPlotMarker::VLine);
    d->marker.setLinePen(color, 1.0, Qt::DashLine);
    d->marker.setSymbol(
        new QwtSymbol(QwtSymbol::Diamond, QBrush(color), QPen(Qt::black), QSize(9, 9)));
    if (!axisWidget)
        return;
    axisWidget->setEstimator(title);
    axisWidget->add(this, color);
}

RVX_StatisticsHistogramItem::~RVX_StatisticsHistogramItem()
{
    Q_D(RVX_StatisticsHistogramItem);
    if (d->axisWidget)
        d->axisWidget->remove(this);
}

void RVX_StatisticsHistogramItem::attach(QwtPlot *plot)
{
    Q_D(RVX_StatisticsHistogramItem);
    d->marker.attach(plot);
}

void RVX_StatisticsHistogramItem::detach()
{
    Q_D(RVX_StatisticsHistogramItem);
    d->marker.detach();
}

bool RVX_StatisticsHistogramItem::isComputed() const
{
    return RVX_StatisticsHistogramItemPrivate::upToDate(*this).computed;
}

const ProfileFit &RVX_StatisticsHistogramItem::fit() const
{
    return RVX_StatisticsHistogramItemPrivate::upToDate(*this).fit;
}

FitStatus RVX_StatisticsHistogramItem::status() const
{
    return RVX_StatisticsHistogramItemPrivate::upToDate(*this).status;
}

QString RVX_StatisticsHistogramItem::statusMessage() const
{
    const auto &d = RVX_StatisticsHistogramItemPrivate::upToDate(*this);
    return d.computed
        ? d.message
        : QCoreApplication::translate("Corvale_Qt::RVX_StatisticsHistogramItem", "Not computed.");
}

int RVX_StatisticsHistogramItem::row() const
{
    return RVX_StatisticsHistogramItemPrivate::upToDate(*this).row;
}

double RVX_StatisticsHistogramItem::time() const
{
    return RVX_StatisticsHistogramItemPrivate::upToDate(*this).time;
}

int RVX_StatisticsHistogramItem::firstChannel() const
{
    return RVX_StatisticsHistogramItemPrivate::upToDate(*this).firstChannel;
}

int RVX_StatisticsHistogramItem::channelCount() const
{
    return RVX_StatisticsHistogramItemPrivate::upToDate(*this).fit.count();
}

double RVX_StatisticsHistogramItem::position() const
{
    return RVX_StatisticsHistogramItemPrivate::upToDate(*this).position;
}

BeamEstimate RVX_StatisticsHistogramItem::estimate() const
{
    const auto &d = RVX_StatisticsHistogramItemPrivate::upToDate(*this);
    return d.placed ? d.placed->estimate : BeamEstimate();
}

BeamVerdict RVX_StatisticsHistogramItem::verdict() const
{
    const auto &d = RVX_StatisticsHistogramItemPrivate::upToDate(*this);
    return d.placed ? d.placed->verdict : BeamVerdict();
}

QString RVX_StatisticsHistogramItem::positionUnit() const
{
    const auto &d = RVX_StatisticsHistogramItemPrivate::upToDate(*this);
    return d.placed ? d.placed->unit : QString();
}

bool RVX_StatisticsHistogramItem::hasSignalToNoise() const
{
    return RVX_StatisticsHistogramItemPrivate::upToDate(*this).signalToNoise.computed;
}

double RVX_StatisticsHistogramItem::signalToNoise() const
{
    return double(RVX_StatisticsHistogramItemPrivate::upToDate(*this).signalToNoise.ratio);
}

double RVX_StatisticsHistogramItem::noiseDeviation() const
{
    return double(RVX_StatisticsHistogramItemPrivate::upToDate(*this).signalToNoise.noiseSigma);
}

QColor RVX_StatisticsHistogramItem::color() const
{
    Q_D(const RVX_StatisticsHistogramItem);
    return d->color;
}

bool RVX_StatisticsHistogramItem::hasFullStatistics() const
{
    Q_D(const RVX_StatisticsHistogramItem);
    return d->fullStatistics;
}

void RVX_StatisticsHistogramItem::setValueUnit(const QString &name)
{
    Q_D(RVX_StatisticsHistogramItem);
    d->valueUnit = name;
}

QString RVX_StatisticsHistogramItem::valueUnit() const
{
    Q_D(const RVX_StatisticsHistogramItem);
    return d->valueUnit;
}

void RVX_StatisticsHistogramItem::setPlotDivisor(double divisor)
{
    Q_D(RVX_StatisticsHistogramItem);
    if (divisor > 0.0)
        d->plotDivisor = divisor;
}

double RVX_StatisticsHistogramItem::plotDivisor() const
{
    Q_D(const RVX_StatisticsHistogramItem);
    return d->plotDivisor;
}

void RVX_StatisticsHistogramItem::setLimitFactor(double factor)
{
    Q_D(RVX_StatisticsHistogramItem);
    if (factor > 0.0 && std::isfinite(factor))
        d->limitFactor = factor;
}

double RVX_StatisticsHistogramItem::limitFactor() const
{
    Q_D(const RVX_StatisticsHistogramItem);
    return d->limitFactor;
}

void RVX_StatisticsHistogramItem::clear()
{
    Q_D(RVX_StatisticsHistogramItem);
    detach();
    d->computed = false;
    d->fit = ProfileFit();
    d->status = FitStatus::NotComputed;
    d->message.clear();
    d->position = 0.0;
    d->channel = 0.0;
    d->placed.reset();
    d->signalToNoise = SignalToNoise();
    d->row = 0;
    d->time = std::numeric_limits<double>::quiet_NaN();
    d->firstChannel = 0;
    if (d->axisWidget)
        d->axisWidget->setTicks(this, QwtScaleDiv());
    showLabel();
}

bool RVX_StatisticsHistogramItem::take(int offset,
                                       const ProfileFit &fit,
                                       FitStatus status,
                                       double axisUpper,
                                       const QString &message)
{
    Q_D(RVX_StatisticsHistogramItem);
    const bool ok = status == FitStatus::Ok;
    d->computed = true;
    d->fit = fit;
    d->fit.valid = ok;
    d->status = status;
    d->message = message.isEmpty() ? messageOf(status) : message;
    // Bar i is centred at offset + i + 1.
    d->position = offset + (ok ? double(fit.mean) + 1.0 : (fit.count() + 1) / 2.0);
    d->channel = d->position;
    d->signalToNoise =
        ok && d->fullStatistics ? Corvale_Qt::signalToNoise(d->fit) : SignalToNoise();
    d->firstChannel = offset + 1;
    if (!d->showsResults)
        return ok;
    d->marker.setValue(d->position, ok ? double(fit.at(fit.mean)) / d->plotDivisor : 0.0);
    if (d->axisWidget)
        d->axisWidget->setTicks(this, d->ticks(axisUpper));
    showFit(offset);
    showLabel();
    return ok;
}

void RVX_StatisticsHistogramItem::showFit(int) { }

void RVX_StatisticsHistogramItem::showLabel()
{
    Q_D(RVX_StatisticsHistogramItem);
    if (d->axisWidget)
        d->axisWidget->setLabel(this, label());
}

QString RVX_StatisticsHistogramItem::messageOf(FitStatus status)
{
    const auto text = [](const char *message) {
        return QCoreApplication::translate("Corvale_Qt::RVX_StatisticsHistogramItem", message);
    };
    switch (status) {
    case FitStatus::Ok:
    case FitStatus::NotComputed:
        return QString();
    case FitStatus::NotEnoughChannels:
        return text(
            QT_TRANSLATE_NOOP("Corvale_Qt::RVX_StatisticsHistogramItem", "Not enough channels."));
    case FitStatus::PeakBelowThreshold:
        return text(
            QT_TRANSLATE_NOOP("Corvale_Qt::RVX_StatisticsHistogramItem", "Peak below threshold."));
    case FitStatus::PeakOnEdge:
        return text(QT_TRANSLATE_NOOP("Corvale_Qt::RVX_StatisticsHistogramItem", "Peak on edge."));
    case FitStatus::SignalBelowThreshold:
        return text(QT_TRANSLATE_NOOP("Corvale_Qt::RVX_StatisticsHistogramItem",
                                      "Signal below threshold."));
    case FitStatus::NotEnoughPeakChannels:
        return text(QT_TRANSLATE_NOOP("Corvale_Qt::RVX_StatisticsHistogramItem",
                                      "Not enough peak channels."));
    case FitStatus::NoiseAboveThreshold:
        return text(
            QT_TRANSLATE_NOOP("Corvale_Qt::RVX_StatisticsHistogramItem", "Noise above threshold."));
    case FitStatus::SingularEquations:
    case FitStatus::NoRealWidth:
        return text(
            QT_TRANSLATE_NOOP("Corvale_Qt::RVX_StatisticsHistogramItem", "Regression failed."));
    }
    return QString();
}

} // namespace Corvale_Qt
