// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// +------------------------------------------------------------------------------------+
// | This file is not part of the interface: it may change, or go, without notice.      |
// +------------------------------------------------------------------------------------+

#include <qwt_scale_draw.h>

class QwtPlot;

namespace Corvale_Qt {

/*! An axis whose ticks may stand closer than their labels: it leaves out labels, evenly, until the others fit.
    A label at 0 stays. */
class ThinnedScaleDraw : public QwtScaleDraw
{
protected:
    void drawLabel(QPainter *painter, double value) const override;

private:
    int labelStep(const QFont &font) const;
};

/*! Title and labels in the plot's own font, labels thinned; \a draw, which the plot takes, is the axis's own
    kind of label where it has one. */
void styleAxis(QwtPlot *plot, int axis, QwtScaleDraw *draw = new ThinnedScaleDraw);

} // namespace Corvale_Qt
