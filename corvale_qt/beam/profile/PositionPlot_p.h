// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// +------------------------------------------------------------------------------------+
// | This file is not part of the interface: it may change, or go, without notice.      |
// +------------------------------------------------------------------------------------+

#include "corvale_qt/plot/SquarePlot_p.h"

#include <qwt_plot_curve.h>

#include <QPointF>
#include <QVector>

namespace Corvale_Qt {

/*! The latest position: an open circle with a cross, or an arrow at the edge of the canvas that it lies beyond. Not
    drawn where there is none. */
class PlotItem : public QwtPlotCurve
{
public:
    PlotItem();

    void setPosition(double x, double y);

protected:
    void drawSeries(QPainter *painter,
                    const QwtScaleMap &xMap,
                    const QwtScaleMap &yMap,
                    const QRectF &canvasRect,
                    int from,
                    int to) const override;

private:
    static void drawMarker(QPainter *painter, const QPointF &centre, double radius);
    void
    drawArrow(QPainter *painter, const QRectF &canvas, const QPointF &centre, double radius) const;

    QPointF m_position;
};

/*! The last positions: dots that fade with age, the last sample being the newest. */
class TrailCurve : public QwtPlotCurve
{
public:
    TrailCurve();

    QRectF boundingRect() const override;

protected:
    void drawDots(QPainter *painter,
                  const QwtScaleMap &xMap,
                  const QwtScaleMap &yMap,
                  const QRectF &canvasRect,
                  int from,
                  int to) const override;
};

/*! The plane that both lie on. */
class PositionPlot : public SquarePlot
{
    Q_OBJECT

public:
    static constexpr int trailLength = 20;

    explicit PositionPlot(QWidget *parent = nullptr);
    ~PositionPlot() override;

    //! Takes the newest position; shown at the next replot.
    void append(double x, double y);

private:
    TrailCurve *m_trail; // the items belong to the plot
    PlotItem *m_marker;
    QVector<double> m_trailX;
    QVector<double> m_trailY;
};

} // namespace Corvale_Qt
