// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/RVXScopePlotView>

#include <QImage>

class QwtPlot;

//! The size of the canvas of all charts that are compared.
constexpr int canvasWidth = 1000;
constexpr int canvasHeight = 600;

//! The scope view as a strip chart, with a canvas of exactly 1000 x 600 pixels.
class ScopeChart : public Corvale_Qt::RVXScopePlotView
{
public:
    //! In full-scale mode y runs from -\a fullScale to \a fullScale.
    ScopeChart(QAbstractItemModel &model, PlotScales scale, double fullScale = 2.0);

    //! Draws one frame, from the rows to the pixels.
    void drawFrame();
    QImage picture();
    QwtPlot *plot() { return qwtPlot(); }
    //! Returns the grid below the curves.
    const QwtPlotGrid *shownGrid() { return grid(); }

protected:
    //! Resizes the window until the canvas has its size; for after something beside the canvas has changed.
    void fitCanvas();
};
