// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_plot_canvas.h>

namespace Corvale_Qt {

/*! A canvas that copies its picture to the window in rectangles. Opaque widgets on the canvas, such as the box of the cursor,
    leave a region with holes. Clipped to that, Qt would copy the picture line by line, which takes twice as long. */
class PiecewiseCanvas : public QwtPlotCanvas
{
    Q_OBJECT

public:
    using QwtPlotCanvas::QwtPlotCanvas;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace Corvale_Qt
