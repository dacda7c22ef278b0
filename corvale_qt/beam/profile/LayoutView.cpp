// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/LayoutView_p.h"
#include "corvale_qt/beam/profile/PlotZoom_p.h"
#include "corvale_qt/plot/PlotRange_p.h"
#include "corvale_qt/units/LibraryTexts_p.h"

#include <qwt_plot.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_widget.h>

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

using Axis = DetectorLayout::Axis;

QString axisTitle(const QString &name, const DetectorLayout &layout, Axis axis)
{
    const QString unit = layout.unit(axis);
    return QStringLiteral("%1 (%2)").arg(name, unit.isEmpty() ? tr("cells") : unit);
}

//! Returns places at the ends of the narrow cells of an axis.
QVector<QPair<double, double>> narrow(const CellEdges &edges)
{
    QVector<QPair<double, double>> places;
    for (const int cell : edges.narrowCells())
        places.append({edges.lower(cell), edges.upper(cell)});
    return places;
}

QString placeText(double place, const QString &unit)
{
    const QString number = QString::number(place, 'f', 2);
    return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
}

} // namespace

QwtInterval ColorSettings::range(double max) const
{
    double from = isTyped ? low : 0, to = isTyped ? high : max;
    if (!isPlottable(from) || !isPlottable(to) || !(to > from)) {
        from = 0;
        to = max;
    }
    constexpr double decades = 1e-3;
    if (isLogarithmic && !(to > 0))
        to = max;
    if (isLogarithmic && !(from > 0))
        from = to * decades;
    return {from, to};
}

QRectF homeOf(const DetectorLayout &layout)
{
    const auto span = [&layout](Axis axis) {
        return layout.cells(axis) > 0 ? QwtInterval(layout.lowerEdge(axis), layout.upperEdge(axis))
                                      : QwtInterval(0, 1);
    };
    const QwtInterval x = span(Axis::X), y = span(Axis::Y);
    QRectF home(x.minValue(), y.minValue(), x.width(), y.width());
    const bool comparable = layout.cells(Axis::X) > 0 && layout.cells(Axis::Y) > 0
        && layout.unit(Axis::X) == layout.unit(Axis::Y);
    const double longer = std::max(home.width(), home.height());
    constexpr double mostEmpty = 4; // a detector longer than this fills the square instead
    if (!comparable || longer > mostEmpty * std::min(home.width(), home.height()))
        return home;
    // A round beam is to look round.
    const QPointF centre = home.center();
    home.setSize({longer, longer});
    home.moveCenter(centre);
    return home;
}

LayoutView::LayoutView(QwtPlot *plot)
    : m_plot(plot)
    , m_picture(new CellPicture)
    , m_marks(new CellMarks)
    , m_projections(new ProjectionItem)
{
    for (QwtPlotItem *item :
         std::initializer_list<QwtPlotItem *>{m_picture, m_marks, m_projections})
        item->attach(plot);
}

void LayoutView::setLayout(const DetectorLayout &layout)
{
    m_layout = layout;
    m_frame = {};
    const bool shown = isShown();
    m_picture->setVisible(false);
    m_marks->setVisible(false);
    m_projections->setVisible(false);
    if (shown) {
        const CellEdges columns = cellEdges(layout, true), rows = cellEdges(layout, false);
        m_picture->setCells(columns, rows);
        m_marks->setNarrow(narrow(columns), narrow(rows));
    }
    if (!m_zoom && shown)
        m_zoom = new PlotZoom(m_plot);
    if (m_zoom)
        m_zoom->setHome(shown ? homeOf(layout) : QRectF());
    if (!shown)
        setBarLogarithmic(false);
    applyTitles();
}

void LayoutView::applyTitles()
{
    const bool shown = isShown();
    const bool hasX = !shown || m_layout.cells(Axis::X) > 0;
    const bool hasY = !shown || m_layout.cells(Axis::Y) > 0;
    m_plot->setAxisTitle(QwtPlot::xBottom,
                         shown ? axisTitle(QStringLiteral("X"), m_layout, Axis::X) : QString());
    m_plot->setAxisTitle(QwtPlot::yLeft,
                         shown ? axisTitle(QStringLiteral("Y"), m_layout, Axis::Y) : QString());
    m_plot->enableAxis(QwtPlot::xBottom, hasX);
    m_plot->enableAxis(QwtPlot::yLeft, hasY);
}

void LayoutView::setFrame(const JudgedFrame &frame)
{
    m_frame = frame;
    m_picture->setValues(frame.beam.raster);
    m_marks->setFrame(frame);
    m_marks->setVisible(true);
    m_projections->setPlanes(frame.x, frame.y);
    m_projections->setVisible(m_projectionsWanted);
}

void LayoutView::setProjectionsVisible(bool visible)
{
    m_projectionsWanted = visible;
    m_projections->setVisible(visible && m_frame.isJudged);
}

void LayoutView::setColors(const ColorSettings &settings, double max)
{
    const QwtInterval range = settings.range(max);
    const auto make = settings.isLogarithmic ? makeLogColorMap : makeColorMap;
    m_picture->setColors(make(settings.map), range);
    setBarLogarithmic(settings.isLogarithmic);
    m_plot->axisWidget(QwtPlot::yRight)->setColorMap(range, make(settings.map));
    if (m_unit.takesPrefix)
        m_barPrefix.follow(range.maxValue());
    m_plot->setAxisScale(QwtPlot::yRight, range.minValue(), range.maxValue());
    const QString unit = m_barPrefix.symbol();
    m_plot->setAxisTitle(QwtPlot::yRight,
                         unit.isEmpty() ? tr("Intensity") : tr("Intensity (%1)").arg(unit));
}

void LayoutView::setBarLogarithmic(bool logarithmic)
{
    if (logarithmic == m_isBarLogarithmic)
        return;
    m_isBarLogarithmic = logarithmic;
    QwtScaleEngine *engine = nullptr;
    if (logarithmic)
        engine = new QwtLogScaleEngine;
    else
        engine = new QwtLinearScaleEngine;
    m_plot->setAxisScaleEngine(QwtPlot::yRight, engine);
}

void LayoutView::setUnit(const AmountUnit &unit)
{
    if (unit == m_unit)
        return;
    m_unit = unit;
    m_barPrefix = unit.prefix();
}

QString LayoutView::cellText(int column, int row) const
{
    const bool matrix = m_layout.kind() == DetectorKind::Matrix;
    QStringList texts;
    const auto describe = [&](int cell) {
        const int reading = m_layout.readingAt(cell);
        if (reading < 0) {
            texts.append(tr("not wired"));
            return;
        }
        const QString name = m_layout.channel(reading).name;
        texts.append(name.isEmpty() ? tr("channel %1").arg(reading + 1) : name);
        const CellFlags flags = m_frame.cells.flags.value(cell);
        if (flags.testFlag(CellFlag::Dead))
            texts.append(tr("dead"));
        if (flags.testFlag(CellFlag::Saturated))
            texts.append(tr("saturated"));
    };
    if (matrix) {
        describe(row * m_layout.cells(Axis::X) + column);
    } else {
        if (m_layout.cells(Axis::X) > 0)
            describe(column);
        if (m_layout.cells(Axis::Y) > 0)
            describe(m_layout.cells(Axis::X) + row);
    }
    return texts.join(QStringLiteral(", "));
}

QString LayoutView::hoverText(const QPointF &place) const
{
    QStringList places;
    if (m_layout.cells(Axis::X) > 0)
        places.append(QStringLiteral("x ") + placeText(place.x(), m_layout.unit(Axis::X)));
    if (m_layout.cells(Axis::Y) > 0)
        places.append(QStringLiteral("y ") + placeText(place.y(), m_layout.unit(Axis::Y)));
    QString text = places.join(QStringLiteral(", "));
    const int column = m_picture->columns().cellAt(place.x());
    const int row = m_picture->rows().cellAt(place.y());
    if (column < 0 || row < 0)
        return text;
    const double value = m_picture->valueAt(place.x(), place.y());
    if (!std::isnan(value)) {
        Units::SiPrefix prefix = m_unit.prefix();
        if (m_unit.takesPrefix)
            prefix.follow(value);
        const QString unit = prefix.symbol();
        text += QStringLiteral(": ") + QString::number(prefix.shown(value), 'g', 5)
            + (unit.isEmpty() ? unit : QLatin1Char(' ') + unit);
    }
    return text + QLatin1Char('\n') + cellText(column, row);
}

} // namespace Corvale_Qt
