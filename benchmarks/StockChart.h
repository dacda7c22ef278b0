// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <qwt_plot.h>

#include <QImage>

class ScopeChart;

/*! A plot of Qwt without this library. It has the canvas, axes and grid of a scope chart, and its curves as
    QwtPlotCurve over QVector<QPointF>. */
class StockChart : public QwtPlot
{
public:
    //! Copies the scales, points and colours that \a chart shows now.
    explicit StockChart(ScopeChart &chart);

    void drawFrame();
    QImage picture();

private:
    void copyScales(ScopeChart &chart);
    void copyCurves(ScopeChart &chart);
    void fitCanvas();
};
