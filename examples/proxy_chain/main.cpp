// SPDX-License-Identifier: LGPL-2.1-or-later
// Shows a noisy beam current that two proxies average and zero: device model -> averaging -> zeroing -> plot.

#include "../common/RunExample.h"
#include <corvale_qt/RVXAveragingProxyModel>
#include <corvale_qt/RVXSeriesData>
#include <corvale_qt/RVXSingleChannelDataModel>
#include <corvale_qt/RVXZeroingProxyModel>
#include <corvale_qt/units/Units.h>

#include <qwt_legend.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>

#include <cmath>
#include <random>

using namespace Corvale_Qt;

namespace {

QwtPlotCurve *addCurve(QwtPlot *plot, const QString &title, const QColor &color, double width)
{
    auto *curve = new QwtPlotCurve(title);
    curve->setPen(QPen(color, width));
    curve->attach(plot);
    return curve;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const Units::nA nA;
    RVXSingleChannelDataModel model;
    model.SetUnits(&nA);
    RVXAveragingProxyModel averaging;
    averaging.setSourceModel(&model);
    RVXZeroingProxyModel zeroing;
    zeroing.setSourceModel(&averaging);
    QWidget window;
    auto *plot = new QwtPlot;
    plot->setAxisTitle(QwtPlot::xBottom, model.xUnits()->description());
    plot->setAxisTitle(QwtPlot::yLeft, nA.description());
    plot->insertLegend(new QwtLegend, QwtPlot::TopLegend);
    const QPalette palette = plot->palette();
    auto *raw =
        addCurve(plot, "as measured", palette.color(QPalette::Disabled, QPalette::Text), 1.0);
    auto *shown = addCurve(plot, "averaged and zeroed", palette.color(QPalette::Highlight), 2.0);

    auto *length = new QSpinBox;
    length->setRange(1, 500);
    length->setPrefix("average over ");
    QObject::connect(length, qOverload<int>(&QSpinBox::valueChanged), &averaging, [&](int rows) {
        averaging.setAveraging(rows);
    });
    length->setValue(20);
    auto *zero = new QPushButton("&Zero now");
    QObject::connect(zero, &QPushButton::clicked, &zeroing, &RVXZeroingProxyModel::zeroNow);
    auto *unzero = new QPushButton("&Clear zero");
    QObject::connect(unzero, &QPushButton::clicked, &zeroing, &RVXZeroingProxyModel::zeroClear);
    auto *reading = new QLabel;
    auto *layout = new QGridLayout(&window);
    layout->addWidget(length, 0, 0);
    layout->addWidget(zero, 0, 1);
    layout->addWidget(unzero, 0, 2);
    layout->addWidget(reading, 0, 3, Qt::AlignRight);
    layout->addWidget(plot, 1, 0, 1, 4);

    std::mt19937 random;
    std::normal_distribution<double> noise(0.0, 0.3e-9);
    double now = 0.0;
    QTimer instrument;
    QObject::connect(&instrument, &QTimer::timeout, &model, [&] {
        now += 0.02;
        model.AddData(now, 4e-9 + 1.5e-9 * std::sin(now) + noise(random));
    });
    QTimer display;
    QObject::connect(&display, &QTimer::timeout, plot, [&] {
        const int newest = zeroing.rowCount() - 1;
        const int oldest = qMax(1, newest - 500);
        raw->setSamples(model.seriesData(1, oldest, -1));
        shown->setSamples(zeroing.seriesData(1, oldest, -1));
        reading->setText(zeroing.index(newest, 1).data(Qt::ToolTipRole).toString());
        plot->replot();
    });
    instrument.start(20);
    display.start(50);
    window.resize(900, 420);
    return runExample(window);
}
