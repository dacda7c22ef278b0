// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QColor>

class QwtPlot;

namespace Corvale_Qt {

/*! Returns the colour itself if it can be seen on white, otherwise a darker one of the same hue, whose contrast to white (WCAG 2.1)
    is 3 or more. */
QColor colorOnWhite(const QColor &color);

//! Returns whether the canvas of a plot, which may be null, is white, as for paper.
bool hasWhiteCanvas(const QwtPlot *plot);

//! Returns a colour that was chosen for a black canvas, changed where it could not be seen on that of \a plot, which may be null.
QColor colorOnCanvas(const QColor &color, const QwtPlot *plot);

} // namespace Corvale_Qt
