// SPDX-License-Identifier: LGPL-2.1-or-later
// Shows a strip detector on a live scope and logs a Gaussian fit of each reading: the 25 lines of main().

#include "../common/RunExample.h"
#include <corvale_qt/ProfileFit>
#include <corvale_qt/RVXMultichannelProxyModel>
#include <corvale_qt/RVXScope>
#include <corvale_qt/RVXScopePlotView>
#include <corvale_qt/RVXSingleChannelDataModel>
#include <corvale_qt/RVX_StatisticsHistogramItem>

#include <QDir>
#include <QTextStream>

#include <array>
#include <cmath>

using namespace Corvale_Qt;

namespace {

// Stands for the instrument: returns the current of a strip in ampere.
double readStrip(int strip, double seconds)
{
    return 1e-9 * std::exp(-0.5 * std::pow((strip - 16.0 - 5.0 * std::sin(seconds)) / 3.0, 2));
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    std::array<RVXSingleChannelDataModel, 32> strips;
    RVXMultichannelProxyModel detector;
    for (auto &strip : strips)
        detector.addSourceModel(&strip, 1);
    RVXScope scope;
    scope.setModel(&detector);
    scope.setPlotMode(RVXScope::HistogramMode);
    RVXScopePlotView *plot = scope.plotView();
    plot->enableHistogramItem(RVXScopePlotView::RegressionItem, 1, {0.1, 10, 1e-11, 1e-11}, true);
    QFile file(QDir::temp().filePath("fits_in_25_lines.csv"));
    file.open(QIODevice::WriteOnly);
    QTextStream log(&file);
    QObject::connect(plot, &RVXScopePlotView::statisticsChanged, [&](auto type, int, double time) {
        for (const auto *fit : plot->histogramItems(type))
            log << time << ',' << fit->position() << ',' << fit->fit().sigma << '\n';
    });
    QTimer instrument;
    QObject::connect(&instrument, &QTimer::timeout, [&, time = 0.0]() mutable {
        time += 0.05;
        for (int i = 0; i < 32; ++i)
            strips[size_t(i)].AddData(time, readStrip(i, time));
    });
    instrument.start(50);
    return runExample(scope);
}
