// SPDX-License-Identifier: LGPL-2.1-or-later
// Shows a live current on a scope, as a strip chart or sweeps, with markers for measuring.

#include "../common/RunExample.h"
#include <corvale_qt/RVXScopePlotView>
#include <corvale_qt/RVXSingleChannelDataModel>
#include <corvale_qt/units/Units.h>

#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>
#include <QToolBar>

#include <cmath>

using namespace Corvale_Qt;

namespace {

// Returns a reading of an electrometer in ampere: a beam current with mains hum.
double reading(double seconds)
{
    return 5e-9 + 1e-9 * std::sin(6.28 * seconds) + 2e-10 * std::sin(314.0 * seconds);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const Units::nA nA;
    RVXSingleChannelDataModel model;
    model.SetUnits(&nA);
    model.setPlotWidthHintPoints(500);

    QMainWindow window;
    auto *view = new RVXScopePlotView(&window);
    view->setModel(&model);
    view->SetRange(-10, 10); // nA
    view->enablePlotMarker(true); // left and right button; arrow keys move the last one
    window.setCentralWidget(view);

    auto *tools = window.addToolBar("Display");
    auto *mode = new QComboBox;
    mode->addItems({"Strip chart", "Sweeps"});
    auto *scale = new QComboBox;
    scale->addItems({"Automatic", "Normalized", "Full scale", "50 %"});
    tools->addWidget(mode);
    tools->addWidget(scale);
    using Index = void (QComboBox::*)(int);
    const auto picked = static_cast<Index>(&QComboBox::currentIndexChanged);
    QObject::connect(mode, picked, view, [view](int index) {
        view->SetPlotMode(index);
    });
    QObject::connect(scale, picked, view, &RVXScopePlotView::SetYScaleMode);

    auto *samples = new QLabel;
    window.statusBar()->addWidget(samples);
    view->SetBufferSizeLabel(samples);

    QElapsedTimer clock;
    clock.start();
    QTimer instrument;
    QObject::connect(&instrument, &QTimer::timeout, &model, [&] {
        const double now = clock.nsecsElapsed() * 1e-9;
        model.AddData(now, reading(now));
    });
    instrument.start(5);

    window.resize(900, 500);
    return runExample(window);
}
