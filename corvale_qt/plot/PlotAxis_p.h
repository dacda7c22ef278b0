// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_scale_draw.h>

class QwtPlot;

namespace Corvale_Qt {

/*! Draws an axis whose ticks may be closer together than their labels or than pixels. It leaves out labels at even distances
    until the others fit, and ticks that would merge. The label at 0 is always drawn.

    In every locale, labels have a decimal point and no group separators, like the numbers beside the plots. They have as
    many digits as distinguish neighbouring ticks. */
class ThinnedScaleDraw : public QwtScaleDraw
{
public:
    QwtText label(double value) const override;
    void draw(QPainter *painter, const QPalette &palette) const override;

protected:
    void drawTick(QPainter *painter, double value, double length) const override;
    void drawLabel(QPainter *painter, double value) const override;

private:
    int labelStep(const QFont &font) const;

    // State of the drawing in progress.
    mutable int m_labelStep = 1;
    mutable double m_lastTick = 0;
    mutable double m_lastLength = 0;
};

/*! Sets the title and the labels of an axis in the plot's font. \a draw draws the labels; the plot takes ownership of it. */
void styleAxis(QwtPlot *plot, int axis, QwtScaleDraw *draw = new ThinnedScaleDraw);

//! Makes \a axis follow the data and show [-1, 1] while there are none; Qwt would show [0, 1000].
void followData(QwtPlot *plot, int axis);

} // namespace Corvale_Qt
