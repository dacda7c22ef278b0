// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXPositionPlot.h"

#include "corvale_qt/beam/profile/PositionPlot_p.h"
#include "corvale_qt/plot/PlotAxis_p.h"
#include "corvale_qt/plot/PlotRange_p.h"
#include "corvale_qt/plot/ScaleFractions_p.h"

#include "ui_RVXPositionPlot.h"

#include <QTimer>

namespace Corvale_Qt {

class RVXPositionPlotPrivate
{
public:
    void applyScale();
    void redraw();

    Ui::RVXPositionPlot ui;
    PositionPlot *plot = nullptr;
    QTimer timer;
    QTimer showNewest; // as soon as what waits in the event queue is done
    PlotRange xRange;
    PlotRange yRange;
    double fraction = 1.0;
    bool autoScale = true;
    bool redrawPending = false;
    bool newestWaits = false; // for a redraw
};

void RVXPositionPlotPrivate::applyScale()
{
    if (autoScale) {
        followData(plot, QwtPlot::xBottom);
        followData(plot, QwtPlot::yLeft);
    } else {
        xRange.apply(plot, QwtPlot::xBottom, fraction);
        yRange.apply(plot, QwtPlot::yLeft, fraction);
    }
    plot->replot();
}

void RVXPositionPlotPrivate::redraw()
{
    plot->replot();
    redrawPending = false;
    newestWaits = false;
}

RVXPositionPlot::RVXPositionPlot(QWidget *parent)
    : QWidget(parent)
    , d_ptr(new RVXPositionPlotPrivate)
{
    Q_D(RVXPositionPlot);
    d->ui.setupUi(this);
    d->plot = new PositionPlot(d->ui.frame);
    auto *layout = new QHBoxLayout(d->ui.frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(d->plot);
    connect(&d->timer, SIGNAL(timeout()), this, SLOT(update()));
    d->timer.start(100);
    d->showNewest.setSingleShot(true);
    connect(&d->showNewest, &QTimer::timeout, this, [d] {
        if (d->redrawPending && d->newestWaits)
            d->redraw();
    });
}

RVXPositionPlot::~RVXPositionPlot() = default;

void RVXPositionPlot::setData(double x, double y)
{
    Q_D(RVXPositionPlot);
    d->plot->append(x, y);
    d->newestWaits = true;
    if (d->redrawPending)
        d->redraw();
}

void RVXPositionPlot::setScale(int index)
{
    Q_D(RVXPositionPlot);
    d->autoScale = index == kAutoScaleIndex;
    if (!d->autoScale)
        d->fraction = scaleFraction(index);
    d->applyScale();
}

void RVXPositionPlot::setXScale(double min, double max)
{
    Q_D(RVXPositionPlot);
    if (d->xRange.set(min, max, "RVXPositionPlot::setXScale"))
        updateScale();
}

void RVXPositionPlot::setYScale(double min, double max)
{
    Q_D(RVXPositionPlot);
    if (d->yRange.set(min, max, "RVXPositionPlot::setYScale"))
        updateScale();
}

void RVXPositionPlot::updateScale()
{
    Q_D(RVXPositionPlot);
    d->applyScale();
}

void RVXPositionPlot::update()
{
    Q_D(RVXPositionPlot);
    d->redrawPending = true;
    // The next position is shown at once. Where none comes, the last one is.
    if (d->newestWaits)
        d->showNewest.start();
}

} // namespace Corvale_Qt
