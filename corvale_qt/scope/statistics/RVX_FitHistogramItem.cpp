// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/statistics/RVX_FitHistogramItem.h"

#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/plot/CanvasColors_p.h"
#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem_p.h"
#include "corvale_qt/scope/statistics/StatisticsLabels_p.h"

#include <qwt_plot_curve.h>
#include <qwt_series_data.h>

#include <QCoreApplication>
#include <QPainter>
#include <QPen>
#include <QPointF>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Corvale_Qt {

namespace {

//! Beam energy in MeV by the channel in which the beam stops; the first entry belongs to channel 1.
class EnergyTable
{
public:
    EnergyTable() = default;
    explicit EnergyTable(std::vector<double> energies)
        : m_energies(std::move(energies))
    {
    }

    bool isEmpty() const { return m_energies.empty(); }

    //! Returns the energy at a position in channels, interpolated linearly; NaN outside the table.
    double at(double channel) const
    {
        const double index = channel - 1.0;
        const double last = double(m_energies.size()) - 1.0;
        if (!(index >= 0.0 && index <= last))
            return std::numeric_limits<double>::quiet_NaN();
        const double below = std::floor(index);
        const double left = m_energies[size_t(below)];
        if (index == below)
            return left;
        return left + (index - below) * (m_energies[size_t(below) + 1] - left);
    }

private:
    std::vector<double> m_energies;
};

//! The fitted curve, in a colour that can be seen on the canvas.
class FitCurve : public QwtPlotCurve
{
protected:
    void drawCurve(QPainter *painter,
                   int style,
                   const QwtScaleMap &xMap,
                   const QwtScaleMap &yMap,
                   const QRectF &canvas,
                   int from,
                   int to) const override
    {
        QPen seen = pen();
        seen.setColor(colorOnCanvas(seen.color(), plot()));
        painter->setPen(seen);
        QwtPlotCurve::drawCurve(painter, style, xMap, yMap, canvas, from, to);
    }
};

//! Samples of the fitted curve. Their memory is reused from one fit to the next.
class FitSeries : public QwtArraySeriesData<QPointF>
{
public:
    /*! Samples the fit four times per channel, from x = (offset + 1) / 4 to a quarter below the last channel. The
        heights are 0 if the fit is not valid. */
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

    void setPoints(const QVector<QPointF> &points)
    {
        d_samples = points;
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
    FitCurve curve;
    FitSeries *samples = nullptr; //!< owned by the curve
    double residualNoise = 0.0;
    EnergyTable energies;
    bool showsEnergy = false;
};

RVX_FitHistogramItem::RVX_FitHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                           const QString &title,
                                           const QColor &color,
                                           bool fullStatistics)
    : RVX_StatisticsHistogramItem(axisWidget, title, color, fullStatistics)
    , d_ptr(new RVX_FitHistogramItemPrivate)
{
    Q_D(RVX_FitHistogramItem);
    d->samples = new FitSeries;
    d->curve.setData(d->samples);
    d->curve.setTitle(
        QCoreApplication::translate("Corvale_Qt::RVX_FitHistogramItem", "Gaussian Fit"));
    d->curve.setPen(color, 1.0);
    d->curve.setZ(25.0); // above the bars, below the markers
}

RVX_FitHistogramItem::~RVX_FitHistogramItem() = default;

void RVX_FitHistogramItem::attach(QwtPlot *plot)
{
    Q_D(RVX_FitHistogramItem);
    RVX_StatisticsHistogramItem::attach(plot);
    d->curve.attach(plot);
}

void RVX_FitHistogramItem::detach()
{
    Q_D(RVX_FitHistogramItem);
    RVX_StatisticsHistogramItem::detach();
    d->curve.detach();
}

void RVX_FitHistogramItem::toggleMLFC(bool enable)
{
    Q_D(RVX_FitHistogramItem);
    d->showsEnergy = enable;
    showLabel();
}

void RVX_FitHistogramItem::upload_MLFC_calibration_table(std::vector<double> *table)
{
    Q_D(RVX_FitHistogramItem);
    d->energies = table ? EnergyTable(*table) : EnergyTable();
    showLabel();
}

double RVX_FitHistogramItem::residualNoise() const
{
    Q_D(const RVX_FitHistogramItem);
    return isComputed() ? d->residualNoise : 0.0;
}

void RVX_FitHistogramItem::setResidualNoise(double noise)
{
    Q_D(RVX_FitHistogramItem);
    d->residualNoise = noise;
}

void RVX_FitHistogramItem::showFit(int offset)
{
    Q_D(RVX_FitHistogramItem);
    const auto &placed = RVX_StatisticsHistogramItemPrivate::of(*this).placed;
    if (placed)
        d->samples->setPoints(placed->curve(plotDivisor()));
    else
        d->samples->sample(fit(), offset, plotDivisor());
    d->curve.itemChanged();
}

QString RVX_FitHistogramItem::label() const
{
    Q_D(const RVX_FitHistogramItem);
    const bool full = hasFullStatistics();
    const int lines = full ? fullLabelLines() : 2;
    QString label;
    if (!isComputed())
        label = StatisticsLabels::empty(lines);
    else if (status() != FitStatus::Ok)
        label = StatisticsLabels::fitError(statusMessage(), lines);
    else
        label = full ? fullLabel() : StatisticsLabels::shortForm(*this);
    label = StatisticsLabels::withVerdict(label, *this);
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
    Q_D(const RVX_FitHistogramItem);
    const bool hasPosition = isComputed() && status() == FitStatus::Ok;
    const double energy = hasPosition
        ? d->energies.at(RVX_StatisticsHistogramItemPrivate::upToDate(*this).channel)
        : std::nan("");
    return std::isfinite(energy)
        ? QString::number(energy, 'g', 4)
        : QCoreApplication::translate("Corvale_Qt::StatisticsLabels", "N/A");
}

} // namespace Corvale_Qt
