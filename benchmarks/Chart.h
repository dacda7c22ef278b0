// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <qwt_plot.h>

#include <QImage>

class QwtPlotCurve;
class QwtPlotCanvas;

/*! A plot whose canvas is exactly 1000 x 600 pixels, black, without axes, for comparing what curves cost. */
class Chart : public QwtPlot
{
public:
    explicit Chart(const QwtInterval &x);

    //! As the scope draws a channel: an opaque line of width 1.
    void addCurve(QwtPlotCurve *curve, int channel);
    //! One frame: everything from the scales to the pixels.
    void drawFrame();
    QImage picture();

private:
    QwtPlotCanvas *m_canvas;
};
