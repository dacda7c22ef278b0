// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the position error plot.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <qwt_plot_curve.h>

#include <QColor>

namespace Corvale_Qt {

/*! Dots without a line, the last one larger, filled and in a colour of its own; the others small and
    translucent, so that many at one place show as darker. A dot outside the canvas is drawn as an empty
    circle at its edge, and one that is not finite not at all: then nothing is highlighted either. */
class HighlightRecentDot : public QwtPlotCurve
{
public:
    explicit HighlightRecentDot(const QString &title = QString());

    void setHighlightColor(const QColor &color);

protected:
    void drawDots(QPainter *painter,
                  const QwtScaleMap &xMap,
                  const QwtScaleMap &yMap,
                  const QRectF &canvasRect,
                  int from,
                  int to) const override;

private:
    QColor m_highlightColor;
};

} // namespace Corvale_Qt
