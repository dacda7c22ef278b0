// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXSplitPlot.h"

#include "corvale_qt/beam/profile/SplitPlot_p.h"
#include "corvale_qt/plot/PlotRange_p.h"
#include "corvale_qt/plot/ScaleFractions_p.h"

#include "ui_RVXSplitPlot.h"

#include <QDebug>
#include <QTimer>
#include <QVector>

namespace Corvale_Qt {

namespace {

constexpr int kMostPlots = 256;

} // namespace

class RVXSplitPlotPrivate
{
public:
    SplitPlot *plotAt(int i) const { return i >= 0 && i < plots.size() ? plots[i] : nullptr; }

    Ui::RVXSplitPlot ui;
    QVector<SplitPlot *> plots; // children of the widget
    QTimer timer;
    PlotRange range;
    double fraction = 1.0;
    bool autoScale = false;
    bool redrawPending = false;
};

RVXSplitPlot::RVXSplitPlot(QWidget *parent)
    : QWidget(parent)
    , d_ptr(new RVXSplitPlotPrivate)
{
    Q_D(RVXSplitPlot);
    d->ui.setupUi(this);
    connect(&d->timer, SIGNAL(timeout()), this, SLOT(update()));
    d->timer.start(100);
}

RVXSplitPlot::~RVXSplitPlot() = default;

void RVXSplitPlot::setNumberPlots(int n)
{
    Q_D(RVXSplitPlot);
    if (n > kMostPlots)
        qDebug() << "RVXSplitPlot::setNumberPlots:" << n << "asked," << kMostPlots << "made";
    qDeleteAll(d->plots);
    d->plots.clear();
    for (int i = 0; i < qMin(n, kMostPlots); ++i) {
        d->plots << new SplitPlot(i, this);
        d->ui.verticalLayout->addWidget(d->plots.last());
    }
}

void RVXSplitPlot::setData(double value, int i)
{
    Q_D(RVXSplitPlot);
    if (SplitPlot *plot = d->plotAt(i))
        plot->show(value);
}

void RVXSplitPlot::setData(double a, double b)
{
    Q_D(RVXSplitPlot);
    if (!d->redrawPending)
        return;
    setData(a, 0);
    setData(b, 1);
    d->redrawPending = false;
}

void RVXSplitPlot::setAxisLabel(const QString &text, int i)
{
    Q_D(RVXSplitPlot);
    if (SplitPlot *plot = d->plotAt(i))
        plot->setAxisTitle(QwtPlot::xBottom, text);
}

void RVXSplitPlot::setScale(int index)
{
    Q_D(RVXSplitPlot);
    d->autoScale = index == kAutoScaleIndex;
    if (!d->autoScale)
        d->fraction = scaleFraction(index);
    updateScale();
}

void RVXSplitPlot::setXScale(double min, double max)
{
    Q_D(RVXSplitPlot);
    if (d->range.set(min, max, "RVXSplitPlot::setXScale"))
        updateScale();
}

void RVXSplitPlot::updateScale()
{
    Q_D(RVXSplitPlot);
    for (SplitPlot *plot : qAsConst(d->plots)) {
        if (d->autoScale)
            plot->setAxisAutoScale(QwtPlot::xBottom, true);
        else
            d->range.apply(plot, QwtPlot::xBottom, d->fraction);
        plot->replot();
    }
}

void RVXSplitPlot::update()
{
    Q_D(RVXSplitPlot);
    d->redrawPending = true;
}

} // namespace Corvale_Qt
