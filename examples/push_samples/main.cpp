// SPDX-License-Identifier: LGPL-2.1-or-later
// Adds samples to a model ten times per second. A table and a plot show what the model holds.

#include "../common/RunExample.h"
#include <corvale_qt/RVXSeriesData>
#include <corvale_qt/RVXSingleChannelDataModel>
#include <corvale_qt/units/Units.h>

#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QSplitter>
#include <QTableView>
#include <QTimer>

#include <cmath>

using namespace Corvale_Qt;

namespace {

// Returns a reading of an electrometer in ampere: a beam current that rises and falls slowly.
double reading(double seconds)
{
    return 5e-9 + 2e-9 * std::sin(seconds);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const Units::nA nA;
    RVXSingleChannelDataModel model;
    model.SetUnits(&nA);
    model.setAutoUpdate(false); // views are notified in batches, below

    QSplitter window;
    auto *table = new QTableView(&window);
    table->setModel(&model);
    table->setMinimumWidth(280);

    auto *plot = new QwtPlot(&window);
    plot->setAxisTitle(QwtPlot::xBottom, model.xUnits()->description());
    plot->setAxisTitle(QwtPlot::yLeft, nA.description());
    auto *curve = new QwtPlotCurve;
    curve->setPen(QPen(plot->palette().highlight(), 1.5));
    curve->attach(plot);

    QElapsedTimer clock;
    clock.start();
    QTimer instrument;
    QObject::connect(&instrument, &QTimer::timeout, &model, [&] {
        const double now = clock.nsecsElapsed() * 1e-9;
        model.AddData(now, reading(now));
    });
    QTimer display;
    QObject::connect(&display, &QTimer::timeout, plot, [&] {
        model.UpdateView();
        table->scrollToBottom();
        curve->setSamples(new RVXSeriesData(model, 1, 1, -1));
        plot->replot();
    });
    instrument.start(20);
    display.start(100);

    window.resize(900, 420);
    return runExample(window);
}
