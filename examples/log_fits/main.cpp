// SPDX-License-Identifier: LGPL-2.1-or-later
// Logs the beam position of a strip detector to a file while the scope that computes it is hidden. A check box shows the
// scope; the log goes on either way, a line for each reading.

#include "../common/RunExample.h"
#include <corvale_qt/ProfileFit>
#include <corvale_qt/RVXMultichannelProxyModel>
#include <corvale_qt/RVXScope>
#include <corvale_qt/RVXScopePlotView>
#include <corvale_qt/RVXSingleChannelDataModel>
#include <corvale_qt/RVX_StatisticsHistogramItem>
#include <corvale_qt/units/Units.h>

#include <QCheckBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QTextStream>
#include <QVBoxLayout>

#include <array>
#include <cmath>

using namespace Corvale_Qt;

namespace {

constexpr int stripCount = 32;

// Returns the current of a strip in ampere: a beam that wanders across the strips and is off one second in five.
double reading(int strip, double seconds)
{
    const double distance = (strip - 16.0 - 5.0 * std::sin(0.5 * seconds)) / 3.0;
    const bool isOn = std::fmod(seconds, 5.0) < 4.0;
    return isOn ? 1e-8 * std::exp(-0.5 * distance * distance) : 0.0;
}

// Writes one line: the time of the sample, and its position and width in strips, or why there are none.
void logFit(QTextStream &log, const RVX_StatisticsHistogramItem &fit)
{
    log << fit.time() << ',';
    if (fit.status() == FitStatus::Ok)
        log << fit.position() << ',' << fit.fit().sigma << '\n';
    else
        log << ",," << fit.statusMessage() << '\n';
    log.flush(); // the lines survive whatever happens to the program
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const Units::nA nA;
    std::array<RVXSingleChannelDataModel, stripCount> strips;
    RVXMultichannelProxyModel detector;
    for (RVXSingleChannelDataModel &strip : strips) {
        strip.SetUnits(&nA);
        detector.addSourceModel(&strip, 1);
    }

    RVXScope scope; // hidden, and in strip mode: neither matters to the fits
    scope.setModel(&detector);
    RVXScopePlotView *plot = scope.plotView();
    // The smallest peak and the smallest sum that are fitted, 100 pA each, are in ampere although the chart shows nA.
    plot->enableHistogramItem(RVXScopePlotView::RegressionItem, 1, {0.1, 10, 1e-10, 1e-10}, true);

    QWidget window;
    QVBoxLayout layout(&window);
    QLabel state("No reading yet.");
    QCheckBox shown("Show the scope");
    layout.addWidget(&state);
    layout.addWidget(&shown);
    QObject::connect(&shown, &QCheckBox::toggled, &scope, &QWidget::setVisible);

    QFile file(QDir::temp().filePath("log_fits.csv"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        qFatal("%s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
    QTextStream log(&file);
    int lines = 0;
    QObject::connect(plot, &RVXScopePlotView::statisticsChanged, &window, [&](auto type) {
        logFit(log, *plot->histogramItems(type).first());
        state.setText(QString("%1 lines in %2").arg(++lines).arg(file.fileName()));
    });

    QElapsedTimer clock;
    clock.start();
    QTimer instrument;
    QObject::connect(&instrument, &QTimer::timeout, &detector, [&] {
        const double now = 1e-9 * clock.nsecsElapsed();
        for (int i = 0; i < stripCount; ++i)
            strips[size_t(i)].AddData(now, reading(i, now));
    });
    instrument.start(50);
    return runExample(window);
}
