// SPDX-License-Identifier: LGPL-2.1-or-later
#include "StockChart.h"

#include "Points.h"
#include "ScopeChart.h"

#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>

#include <QCoreApplication>

StockChart::StockChart(ScopeChart &chart)
{
    auto *plotCanvas = static_cast<QwtPlotCanvas *>(canvas());
    const auto *shown = static_cast<const QwtPlotCanvas *>(chart.plot()->canvas());
    plotCanvas->setFrameStyle(shown->frameStyle());
    plotCanvas->setLineWidth(shown->lineWidth());
    plotCanvas->setPaintAttribute(QwtPlotCanvas::ImmediatePaint, false);
    setCanvasBackground(Qt::black);
    plotLayout()->setAlignCanvasToScales(true);
    plotLayout()->setSpacing(0);
    setAutoReplot(false);
    copyScales(chart);
    copyCurves(chart);
    resize(canvasWidth + 100, canvasHeight + 100);
    show();
    fitCanvas();
}

void StockChart::copyScales(ScopeChart &chart)
{
    for (int axis : {int(QwtPlot::xBottom), int(QwtPlot::yLeft)})
        setAxisScaleDiv(axis, chart.plot()->axisScaleDiv(axis));
    auto *lines = new QwtPlotGrid;
    const QwtPlotGrid *shown = chart.shownGrid();
    lines->enableX(shown->xEnabled());
    lines->enableXMin(shown->xMinEnabled());
    lines->enableY(shown->yEnabled());
    lines->enableYMin(shown->yMinEnabled());
    lines->setMajorPen(shown->majorPen());
    lines->setMinorPen(shown->minorPen());
    lines->attach(this);
}

void StockChart::copyCurves(ScopeChart &chart)
{
    for (const QwtPlotCurve *shown : shownCurves(*chart.plot())) {
        auto *curve = new QwtPlotCurve;
        curve->setPaintAttribute(QwtPlotCurve::FilterPoints, false);
        curve->setPaintAttribute(QwtPlotCurve::ClipPolygons, false);
        curve->setPen(shown->pen());
        curve->setSamples(pointsOf(*shown));
        curve->setZ(shown->z());
        curve->attach(this);
    }
}

void StockChart::fitCanvas()
{
    const QSize wanted(canvasWidth, canvasHeight);
    for (int attempt = 0; attempt < 5; ++attempt) {
        drawFrame();
        QCoreApplication::processEvents();
        const QSize missing = wanted - canvas()->contentsRect().size();
        if (missing.isNull())
            return;
        resize(size() + missing);
    }
    qFatal("The stock canvas is not 1000 x 600");
}

void StockChart::drawFrame()
{
    replot();
    canvas()->repaint();
}

QImage StockChart::picture()
{
    drawFrame();
    return pictureOf(*this);
}
