// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/MeanTimePlot_p.h"
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/plot/LayoutWhenShown_p.h"
#include "corvale_qt/plot/PlotAxis_p.h"
#include "corvale_qt/plot/RVXDiscontinuousPlotCurve.h"

#include <qwt_legend.h>
#include <qwt_plot_canvas.h>
#include <qwt_scale_engine.h>
#include <qwt_text.h>

namespace Corvale_Qt {

namespace {

constexpr double kMargin = 0.1; // mm, so that a constant mean is not drawn on the edge

//! Labels seconds in full: time stamps may count from 1970, and only their last digits change.
class SecondsDraw : public ThinnedScaleDraw
{
public:
    QwtText label(double value) const override { return QwtText(QString::number(value, 'f', 1)); }
};

RVXDiscontinuousPlotCurve *makeCurve(const QString &title, int color, MeanSeries *series)
{
    auto *curve = new RVXDiscontinuousPlotCurve(title);
    curve->setPen(RVXPlotColors::color(color));
    curve->setData(series);
    curve->setLegendAttribute(QwtPlotCurve::LegendShowLine);
    return curve;
}

} // namespace

MeanTimePlot::MeanTimePlot(const std::shared_ptr<const MeanHistory> &history, QWidget *parent)
    : QwtPlot(parent)
{
    new LayoutWhenShown(this);
    auto *plotCanvas = new QwtPlotCanvas(this);
    plotCanvas->setFrameStyle(QFrame::NoFrame);
    setCanvas(plotCanvas);
    setCanvasBackground(Qt::black);
    setMinimumSize(200, 120);
    setAxisTitle(xBottom, tr("Time (s)"));
    setAxisTitle(yLeft, tr("Position (mm)"));
    styleAxis(this, xBottom, new SecondsDraw);
    styleAxis(this, yLeft);
    setAxisMaxMajor(yLeft, 5);
    axisScaleEngine(yLeft)->setMargins(kMargin, kMargin);
    insertLegend(new QwtLegend, TopLegend);
    makeCurve(tr("Mean X"), 0, new MeanSeries(history, &MeanHistory::Entry::meanX))->attach(this);
    makeCurve(tr("Mean Y"), 5, new MeanSeries(history, &MeanHistory::Entry::meanY))->attach(this);
    followData(this, yLeft);
    setEnd(MeanHistory::span);
}

MeanTimePlot::~MeanTimePlot() = default;

void MeanTimePlot::setEnd(double time)
{
    const double half = MeanHistory::span / 2;
    // Keeps the axis as it is if \a time is so large that a double cannot resolve five seconds.
    if (time - half < time && time - 2 * half < time - half)
        setAxisScale(xBottom, time - 2 * half, time, half);
}

} // namespace Corvale_Qt
