// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_plot_curve.h>

#include <QColor>

namespace Corvale_Qt {

/*! A curve of dots without a line. The newest dot is larger and has the highlight colour; the others are
    small and translucent, so that several dots at one place look darker.

    A dot outside the canvas is drawn as an empty circle at its edge. A dot that is not finite is not drawn;
    if it is the newest one, no dot is highlighted. */
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
