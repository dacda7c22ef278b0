// SPDX-License-Identifier: LGPL-2.1-or-later
#include "Chart.h"

#include <corvale_qt/RVXPlotColors>

#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_layout.h>

#include <QCoreApplication>
#include <QPen>
#include <QtDebug>

namespace {

const QSize canvasSize(1000, 600);

} // namespace

Chart::Chart(const QwtInterval &x)
    : m_canvas(static_cast<QwtPlotCanvas *>(canvas()))
{
    m_canvas->setFrameStyle(QFrame::NoFrame);
    m_canvas->setPaintAttribute(QwtPlotCanvas::ImmediatePaint, false);
    setCanvasBackground(Qt::black);
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis)
        enableAxis(axis, false);
    plotLayout()->setCanvasMargin(0);
    plotLayout()->setSpacing(0);
    setAutoReplot(false);
    setAxisScale(QwtPlot::xBottom, x.minValue(), x.maxValue());
    setAxisScale(QwtPlot::yLeft, -1.0, 1.0);
    resize(canvasSize);
    show();
    QCoreApplication::processEvents();
    replot();
    if (m_canvas->contentsRect().size() != canvasSize)
        qFatal("The canvas is not 1000 x 600");
}

void Chart::addCurve(QwtPlotCurve *curve, int channel)
{
    curve->setPen(QPen(Corvale_Qt::RVXPlotColors::color(channel),
                       1.0,
                       Qt::SolidLine,
                       Qt::SquareCap,
                       Qt::BevelJoin));
    curve->attach(this);
}

void Chart::drawFrame()
{
    replot();
    m_canvas->repaint();
}

QImage Chart::picture()
{
    drawFrame();
    return m_canvas->grab().toImage();
}
