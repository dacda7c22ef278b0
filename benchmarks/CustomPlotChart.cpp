// SPDX-License-Identifier: LGPL-2.1-or-later
// The header of QCustomPlot uses Qt's short keywords.
#undef QT_NO_KEYWORDS
#undef QT_NO_FOREACH
#include "PeerCharts.h"
#include "Points.h"
#include "ScopeChart.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <QCoreApplication>
#include <qcustomplot.h>

namespace {

void copyCurve(QCustomPlot &plot, const QwtPlotCurve &curve)
{
    QCPGraph *graph = plot.addGraph();
    const QVector<QPointF> points = pointsOf(curve);
    QVector<double> x;
    QVector<double> y;
    for (const QPointF &point : points) {
        x.append(point.x());
        y.append(point.y());
    }
    graph->setData(x, y, true);
    graph->setPen(QPen(curve.pen().color(), 1.0));
    graph->setAdaptiveSampling(true);
}

} // namespace

CustomPlotChart::CustomPlotChart(ScopeChart &chart)
    : m_plot(std::make_unique<QCustomPlot>())
{
    m_plot->setBackground(Qt::black);
    m_plot->setNotAntialiasedElements(QCP::aeAll);
    m_plot->axisRect()->setAutoMargins(QCP::msNone);
    m_plot->axisRect()->setMargins(QMargins());
    const QwtScaleDiv x = chart.plot()->axisScaleDiv(QwtPlot::xBottom);
    const QwtScaleDiv y = chart.plot()->axisScaleDiv(QwtPlot::yLeft);
    m_plot->xAxis->setRange(x.lowerBound(), x.upperBound());
    m_plot->yAxis->setRange(y.lowerBound(), y.upperBound());
    for (const QwtPlotCurve *curve : shownCurves(*chart.plot()))
        copyCurve(*m_plot, *curve);
    m_plot->resize(canvasWidth, canvasHeight);
    m_plot->show();
    QCoreApplication::processEvents();
    drawFrame();
    if (m_plot->axisRect()->size() != QSize(canvasWidth, canvasHeight))
        qFatal("QCustomPlot's canvas is not 1000 x 600");
}

CustomPlotChart::~CustomPlotChart() = default;

void CustomPlotChart::drawFrame()
{
    m_plot->replot(QCustomPlot::rpImmediateRefresh);
}

void CustomPlotChart::setPixelRatio(double ratio)
{
    m_plot->setBufferDevicePixelRatio(ratio);
}
