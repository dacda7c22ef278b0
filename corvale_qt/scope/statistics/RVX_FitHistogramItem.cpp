// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/statistics/RVX_FitHistogramItem.h"

#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/scope/statistics/EnergyTable_p.h"
#include "corvale_qt/scope/statistics/StatisticsLabels_p.h"

#include <qwt_plot_curve.h>
#include <qwt_series_data.h>

#include <QCoreApplication>
#include <QPen>
#include <QPointF>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

//! Samples of the fitted curve, made again in place.
class FitSeries : public QwtArraySeriesData<QPointF>
{
public:
    //! At every quarter of a bin, from a quarter of the first channel's place on; zeros without a valid fit.
    void sample(const ProfileFit &fit, int offset, double divisor)
    {
        const int first = offset + 1;
        const int last = 4 * (fit.count() + offset) - 1;
        d_samples.resize(std::max(last - first + 1, 0));
        for (int i = first; i <= last; ++i) {
            const double x = i / 4.0;
            d_samples[i - first] = QPointF(x, double(fit.at(float(x - offset - 1))) / divisor);
        }
        d_boundingRect = QRectF(0.0, 0.0, -1.0, -1.0);
    }

    QRectF boundingRect() const override
    {
        if (d_boundingRect.width() < 0.0)
            d_boundingRect = qwtBoundingRect(*this);
        return d_boundingRect;
    }

    using QwtArraySeriesData<QPointF>::sample;
};

} // namespace

class RVX_FitHistogramItemPrivate
{
public:
    QwtPlotCurve curve;
    FitSeries *samples = nullptr; //!< the curve's
    double residualNoise = 0.0;
    EnergyTable energies;
    bool showsEnergy = false;
};

RVX_FitHistogramItem::RVX_FitHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                           const QString &title,
                                           const QColor &color,
                                           bool fullStatistics)
    : RVX_StatisticsHistogramItem(axisWidget, title, color, fullStatistics)
    , d(new RVX_FitHistogramItemPrivate)
{
    d->samples = new FitSeries;
    d->curve.setData(d->samples);
    d->curve.setTitle(
        QCoreApplication::translate("Corvale_Qt::RVX_FitHistogramItem", "Gaussian Fit"));
    d->curve.setPen(color, 1.0);
    d->curve.setZ(25.0); // over the bars, under the markers
}

RVX_FitHistogramItem::~RVX_FitHistogramItem() = default;

void RVX_FitHistogramItem::attach(QwtPlot *plot)
{
    RVX_StatisticsHistogramItem::attach(plot);
    d->curve.attach(plot);
}

void RVX_FitHistogramItem::detach()
{
    RVX_StatisticsHistogramItem::detach();
    d->curve.detach();
}

void RVX_FitHistogramItem::toggleMLFC(bool enable)
{
    d->showsEnergy = enable;
    showLabel();
}

void RVX_FitHistogramItem::upload_MLFC_calibration_table(std::vector<double> *table)
{
    d->energies = table ? EnergyTable(*table) : EnergyTable();
    showLabel();
}

double RVX_FitHistogramItem::residualNoise() const
{
    return d->residualNoise;
}

void RVX_FitHistogramItem::setResidualNoise(double noise)
{
    d->residualNoise = noise;
}

void RVX_FitHistogramItem::showFit(int offset)
{
    d->samples->sample(fit(), offset, plotDivisor());
    d->curve.itemChanged();
}

QString RVX_FitHistogramItem::label() const
{
    const bool full = hasFullStatistics();
    const int lines = full ? fullLabelLines() : 2;
    QString label;
    if (!isComputed())
        label = StatisticsLabels::empty(lines);
    else if (status() != FitStatus::Ok)
        label = StatisticsLabels::fitError(statusMessage(), lines);
    else
        label = full ? fullLabel() : StatisticsLabels::shortForm(*this);
    const bool showsEnergy = d->showsEnergy && !d->energies.isEmpty();
    return showsEnergy ? StatisticsLabels::withEnergy(label, energyText()) : label;
}

QString RVX_FitHistogramItem::fullLabel() const
{
    return StatisticsLabels::fit(*this);
}

int RVX_FitHistogramItem::fullLabelLines() const
{
    return 7;
}

QString RVX_FitHistogramItem::energyText() const
{
    const bool hasPosition = isComputed() && status() == FitStatus::Ok;
    const double energy = hasPosition ? d->energies.at(position()) : std::nan("");
    return std::isfinite(energy)
        ? QString::number(energy, 'g', 4)
        : QCoreApplication::translate("Corvale_Qt::StatisticsLabels", "N/A");
}

} // namespace Corvale_Qt
