// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/CellPicture_p.h"
#include "corvale_qt/plot/PlotAxis_p.h"
#include "corvale_qt/scope/HistogramPlaces_p.h"
#include "corvale_qt/scope/HistogramStatistics_p.h"

#include <qwt_plot.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_widget.h>

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

using Axis = DetectorLayout::Axis;

//! Labels places; the plot keeps it, so it has a copy of what it needs.
class PlaceDraw : public ThinnedScaleDraw
{
public:
    explicit PlaceDraw(const HistogramPlaces &places)
        : m_places(places)
    {
    }
    QwtText label(double value) const override { return QwtText(m_places.label(value)); }

private:
    const HistogramPlaces m_places;
};

//! Adds round positions of a plane to the ticks of the axis.
void addTicks(double lower, double upper, double shift, int most, QList<double> ticks[])
{
    QwtLinearScaleEngine engine;
    const QwtScaleDiv own = engine.divideScale(lower, upper, most, 5);
    for (int type = 0; type < QwtScaleDiv::NTickTypes; ++type)
        for (const double tick : own.ticks(type))
            ticks[type].append(tick + shift);
}

} // namespace

void HistogramPlaces::setLayout(const DetectorLayout &layout)
{
    m_layout = layout;
    m_bars.clear();
    m_shiftY = m_lower = m_upper = 0;
    if (layout.isEmpty() || layout.kind() != DetectorKind::Strips)
        return;
    const bool hasX = layout.cells(Axis::X) > 0, hasY = layout.cells(Axis::Y) > 0;
    m_bars.resize(layout.readings());
    if (hasX && hasY) {
        const double lengths = layout.upperEdge(Axis::X) - layout.lowerEdge(Axis::X)
            + layout.upperEdge(Axis::Y) - layout.lowerEdge(Axis::Y);
        m_shiftY = layout.upperEdge(Axis::X) + 0.05 * lengths - layout.lowerEdge(Axis::Y);
    }
    for (const Axis axis : {Axis::X, Axis::Y}) {
        if (layout.cells(axis) > 0)
            addPlane(axis, shift(axis));
    }
    m_lower = hasX ? layout.lowerEdge(Axis::X) : layout.lowerEdge(Axis::Y);
    m_upper = hasY ? layout.upperEdge(Axis::Y) + m_shiftY : layout.upperEdge(Axis::X);
}

void HistogramPlaces::addPlane(Axis axis, double shift)
{
    const QVector<double> positions = m_layout.positions(axis);
    const CellEdges edges = cellEdges(m_layout, axis == Axis::X); // as the profile display has them
    const int first = axis == Axis::X ? 0 : m_layout.cells(Axis::X);
    for (int i = 0; i < positions.size(); ++i) {
        const int reading = m_layout.readingAt(first + i);
        if (reading < 0)
            continue;
        m_bars[reading] = {edges.lower(i) + shift,
                           edges.upper(i) + shift,
                           positions[i] + shift,
                           first + i};
    }
}

int HistogramPlaces::nearestChannel(double x) const
{
    int nearest = 0;
    double distance = std::numeric_limits<double>::infinity();
    for (int i = 0; i < m_bars.size(); ++i) {
        const double away = std::abs(m_bars[i].place - x);
        if (m_bars[i].cell >= 0 && away < distance) {
            distance = away;
            nearest = i;
        }
    }
    return nearest;
}

bool HistogramPlaces::planeOf(const ChannelGroup &group, Axis *axis) const
{
    bool hasX = false, hasY = false;
    for (int i = group.offset; i < group.offset + group.size && i < m_bars.size(); ++i) {
        if (m_bars[i].cell >= 0)
            (m_bars[i].cell < m_layout.cells(Axis::X) ? hasX : hasY) = true;
    }
    *axis = hasX ? Axis::X : Axis::Y;
    return hasX != hasY;
}

double HistogramPlaces::shift(Axis axis) const
{
    return axis == Axis::Y ? m_shiftY : 0;
}

QString HistogramPlaces::label(double x) const
{
    const bool isY = m_layout.cells(Axis::Y) > 0
        && (m_layout.cells(Axis::X) == 0 || x > m_layout.upperEdge(Axis::X));
    const double place = x - shift(isY ? Axis::Y : Axis::X);
    return QString::number(std::abs(place) < 1e-9 * (m_upper - m_lower) ? 0.0 : place, 'g', 5);
}

QString HistogramPlaces::title() const
{
    QStringList planes;
    for (const Axis axis : {Axis::X, Axis::Y}) {
        if (m_layout.cells(axis) == 0)
            continue;
        const QString unit = m_layout.unit(axis).isEmpty() ? tr("cells") : m_layout.unit(axis);
        const QString name = axis == Axis::X ? QStringLiteral("X") : QStringLiteral("Y");
        planes.append(QStringLiteral("%1 (%2)").arg(name, unit));
    }
    return planes.join(QStringLiteral(", "));
}

void HistogramPlaces::prepareAxis(QwtPlot *plot) const
{
    QList<double> ticks[QwtScaleDiv::NTickTypes];
    const bool two = m_layout.cells(Axis::X) > 0 && m_layout.cells(Axis::Y) > 0;
    for (const Axis axis : {Axis::X, Axis::Y}) {
        if (m_layout.cells(axis) == 0)
            continue;
        addTicks(m_layout.lowerEdge(axis),
                 m_layout.upperEdge(axis),
                 shift(axis),
                 two ? 6 : 10,
                 ticks);
    }
    plot->setAxisScaleDraw(QwtPlot::xBottom, new PlaceDraw(*this));
    plot->axisWidget(QwtPlot::xBottom)->setMinBorderDist(10, 5);
    plot->setAxisScale(QwtPlot::xTop, m_lower, m_upper);
    plot->setAxisScaleDiv(QwtPlot::xBottom, QwtScaleDiv(m_lower, m_upper, ticks));
}

} // namespace Corvale_Qt
