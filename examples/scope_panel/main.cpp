// SPDX-License-Identifier: LGPL-2.1-or-later
// Shows a strip detector of 32 channels on the scope panel, beside the page for the beam statistics of its histogram.
// The settings of that page are restored at the next start.

#include "../common/RunExample.h"
#include <corvale_qt/RVXMultichannelProxyModel>
#include <corvale_qt/RVXScope>
#include <corvale_qt/RVXScopePlotView>
#include <corvale_qt/RVXSingleChannelDataModel>
#include <corvale_qt/RVXStatisticsSetupPage>
#include <corvale_qt/units/Units.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSplitter>
#include <QStandardPaths>
#include <QTimer>

#include <array>
#include <cmath>

using namespace Corvale_Qt;

namespace {

constexpr int stripCount = 32;

// Returns the current of a strip in ampere: a Gaussian beam that wanders across the strips, with some noise.
double reading(int strip, double seconds)
{
    const double centre = 16.0 + 5.0 * std::sin(0.5 * seconds);
    const double distance = (strip - centre) / 3.0;
    const double noise = 0.02 * std::sin(1e4 * seconds * (strip + 1));
    return 1e-9 * (std::exp(-0.5 * distance * distance) + noise);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName("corvale_qt");
    QCoreApplication::setApplicationName("scope_panel");

    const Units::nA nA;
    std::array<RVXSingleChannelDataModel, stripCount> strips;
    RVXMultichannelProxyModel detector;
    for (RVXSingleChannelDataModel &strip : strips) {
        strip.SetUnits(&nA);
        detector.addSourceModel(&strip, 1);
    }

    QSplitter window;
    auto *scope = new RVXScope(&window);
    scope->setModel(&detector);
    scope->SetPlotMode(RVXScope::HistogramMode);

    auto *page = new RVXStatisticsSetupPage(&window);
    page->addPlotView(scope->plotView());
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    page->setApplicationSettings(QFileInfo(folder), true, true);

    QElapsedTimer clock;
    clock.start();
    QTimer instrument;
    QObject::connect(&instrument, &QTimer::timeout, &detector, [&] {
        const double now = clock.nsecsElapsed() * 1e-9;
        for (int i = 0; i < stripCount; ++i)
            strips[size_t(i)].AddData(now, reading(i, now));
    });
    instrument.start(50);

    window.setStretchFactor(0, 1);
    window.resize(1100, 640);
    return runExample(window);
}
