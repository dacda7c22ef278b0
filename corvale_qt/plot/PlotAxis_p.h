// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_scale_draw.h>

class QwtPlot;

namespace Corvale_Qt {

/*! An axis whose ticks may stand closer than their labels, or than pixels: it leaves out labels, evenly, until the
    others fit, and ticks that would run into one. A label at 0 stays.

    Labels have a decimal point and no group signs whatever the locale, as the numbers beside the plots have, and
    as many digits as tell neighbouring ticks apart. */
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

    // Of the drawing that goes on.
    mutable int m_labelStep = 1;
    mutable double m_lastTick = 0;
    mutable double m_lastLength = 0;
};

/*! Title and labels in the plot's own font, labels thinned; \a draw, which the plot takes, is the axis's own
    kind of label where it has one. */
void styleAxis(QwtPlot *plot, int axis, QwtScaleDraw *draw = new ThinnedScaleDraw);

/*! Has \a axis follow the data, and show [-1, 1] until there are any; Qwt's own choice would be [0, 1000]. */
void followData(QwtPlot *plot, int axis);

} // namespace Corvale_Qt
