// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/RunImage_p.h"

#include <qwt_plot_item.h>

namespace Corvale_Qt {

class PixelRuns;

/*! One picture for all dense curves of a plot: their runs are written into it as bare pixels, and it is blended
    onto the canvas once, right above the curves. A painter spends some 40 instructions on each pixel of a
    vertical line; this spends two.

    Attach it above the curves of a plot that have it (RVXDiscontinuousPlotCurve::setLayer()). A curve that draws
    for itself flushes it first, so that what lies above what does not change. */
class CurveLayer : public QwtPlotItem
{
public:
    CurveLayer();

    //! What was gathered with \a clip, on the pixels of \a painter's device; \a colour is opaque.
    void add(QPainter *painter, const QRect &clip, const PixelRuns &runs, const QColor &colour);
    //! Puts what was added onto the canvas.
    void flush(QPainter *painter) const;

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    void begin(QPainter *painter, const QRect &clip);

    mutable RunImage m_image;
    QRect m_clip;
    // Whose paint the picture belongs to; null while it is empty.
    mutable QPainter *m_painter = nullptr;
};

} // namespace Corvale_Qt
