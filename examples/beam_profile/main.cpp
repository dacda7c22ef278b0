// SPDX-License-Identifier: LGPL-2.1-or-later
// Shows a beam that wanders over a pair of strip detectors: its profile, its position, and its displacement as two
// bars.

#include "../common/RunExample.h"
#include <corvale_qt/RVXPositionPlot>
#include <corvale_qt/RVXSpectrogram>
#include <corvale_qt/RVXSplitPlot>

#include <QApplication>
#include <QSplitter>
#include <QTimer>

#include <cmath>

using namespace Corvale_Qt;

namespace {

// Returns the charges of the 32 + 32 strips of a strip pair, in coulomb: X in values 0 to 31, Y in 64 to 95.
QVector<double> frameAt(double seconds)
{
    const double x = 15.5 + 4 * std::sin(0.7 * seconds);
    const double y = 15.5 + 3 * std::cos(0.5 * seconds);
    QVector<double> frame(128, 0.0);
    for (int i = 0; i < 32; ++i) {
        frame[i] = 2e-12 * std::exp(-0.5 * std::pow((i - x) / 2.0, 2));
        frame[64 + i] = 2e-12 * std::exp(-0.5 * std::pow((i - y) / 3.5, 2));
    }
    return frame;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QSplitter window;
    auto *profile = new RVXSpectrogram(&window);
    auto *beside = new QSplitter(Qt::Vertical, &window);
    auto *position = new RVXPositionPlot(beside);
    auto *displacement = new RVXSplitPlot(beside);

    profile->setL408(true);
    profile->setRange(1e-6, 1e-9); // full scale: 1 uA, 1 nC
    position->setXScale(-30, 30); // mm
    position->setYScale(-30, 30);
    position->setScale(1);
    displacement->setNumberPlots(2);
    displacement->setAxisLabel("X displacement (mm)", 0);
    displacement->setAxisLabel("Y displacement (mm)", 1);
    displacement->setXScale(-30, 30);

    double seconds = 0;
    SpectrogramCalc shown;
    QTimer detector;
    QObject::connect(&detector, &QTimer::timeout, profile, [&] {
        seconds += 0.02;
        profile->setData(frameAt(seconds), seconds);
        const SpectrogramCalc calc = profile->getCalc();
        // The profile is calculated ten times per second, and each position goes into the trail once.
        if (!calc.valid || (calc.meanX == shown.meanX && calc.meanY == shown.meanY))
            return;
        shown = calc;
        position->setData(calc.meanX, calc.meanY);
        displacement->setData(calc.meanX, calc.meanY);
    });
    detector.start(20);

    window.resize(1500, 880);
    window.setSizes({1050, 450});
    return runExample(window);
}
