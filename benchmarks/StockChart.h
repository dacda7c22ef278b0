// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <qwt_plot.h>

#include <QImage>

class ScopeChart;

/*! What one gets from Qwt without this library: a plot with the same canvas, axes and grid as a scope chart, and
    its curves as stock QwtPlotCurve over QVector<QPointF>. */
class StockChart : public QwtPlot
{
public:
    //! Copies scales, points and colours of what \a chart shows now.
    explicit StockChart(ScopeChart &chart);

    void drawFrame();
    QImage picture();

private:
    void copyScales(ScopeChart &chart);
    void copyCurves(ScopeChart &chart);
    void fitCanvas();
};
