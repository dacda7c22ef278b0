// SPDX-License-Identifier: LGPL-2.1-or-later
#include "PeerCharts.h"
#include "Points.h"
#include "ScopeChart.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <QChart>
#include <QChartView>
#include <QCoreApplication>
#include <QLineSeries>
#include <QValueAxis>

using namespace QtCharts;

namespace {

QValueAxis *copyAxis(QChart &peer, const QwtScaleDiv &scale, Qt::Alignment side)
{
    auto *axis = new QValueAxis;
    axis->setRange(scale.lowerBound(), scale.upperBound());
    axis->setLabelsVisible(false);
    peer.addAxis(axis, side);
    return axis;
}

} // namespace

QtChartsChart::QtChartsChart(ScopeChart &chart)
    : m_view(std::make_unique<QChartView>())
{
    QChart &peer = *m_view->chart();
    peer.legend()->hide();
    peer.setBackgroundRoundness(0);
    peer.setBackgroundBrush(Qt::black);
    QValueAxis *x = copyAxis(peer, chart.plot()->axisScaleDiv(QwtPlot::xBottom), Qt::AlignBottom);
    QValueAxis *y = copyAxis(peer, chart.plot()->axisScaleDiv(QwtPlot::yLeft), Qt::AlignLeft);
    for (const QwtPlotCurve *curve : shownCurves(*chart.plot())) {
        auto *series = new QLineSeries;
        series->replace(pointsOf(*curve));
        series->setPen(QPen(curve->pen().color(), 1.0));
        peer.addSeries(series);
        series->attachAxis(x);
        series->attachAxis(y);
    }
    m_view->setFrameStyle(QFrame::NoFrame);
    m_view->resize(canvasWidth, canvasHeight);
    peer.setPlotArea(QRectF(0, 0, canvasWidth, canvasHeight));
    m_view->show();
    QCoreApplication::processEvents();
    if (peer.plotArea().size() != QSizeF(canvasWidth, canvasHeight))
        qFatal("Qt Charts' canvas is not 1000 x 600");
}

QtChartsChart::~QtChartsChart() = default;

void QtChartsChart::drawFrame()
{
    m_view->viewport()->repaint();
}
