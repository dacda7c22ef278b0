// SPDX-License-Identifier: LGPL-2.1-or-later
#include "ScopeChart.h"

#include "Points.h"

#include <qwt_plot.h>

#include <QCoreApplication>

using namespace Corvale_Qt;

ScopeChart::ScopeChart(QAbstractItemModel &model, PlotScales scale, double fullScale)
{
    setModel(&model);
    SetRange(-fullScale, fullScale);
    SetYScaleMode(scale);
    resize(canvasWidth + 100, canvasHeight + 100);
    show();
    fitCanvas();
}

// The axes take part of the plot, so the size of the canvas is only known after a frame.
void ScopeChart::fitCanvas()
{
    const QSize wanted(canvasWidth, canvasHeight);
    for (int attempt = 0; attempt < 5; ++attempt) {
        drawFrame();
        QCoreApplication::processEvents();
        const QSize missing = wanted - plot()->canvas()->contentsRect().size();
        if (missing.isNull())
            return;
        resize(size() + missing);
    }
    qFatal("The canvas is not 1000 x 600");
}

void ScopeChart::drawFrame()
{
    plot()->replot();
    // The view computes its plot when its canvas is painted.
    plot()->canvas()->repaint();
}

QImage ScopeChart::picture()
{
    drawFrame();
    return pictureOf(*plot());
}
