// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_plot_item.h>

#include <QPen>
#include <QPointF>

namespace Corvale_Qt {

class CurveLayer;
class HistoryFrame;
class PixelRuns;

/*! Draws the blocks of one channel: each as a run from its smallest to its largest reading in each of its pixel columns.
    Neighbouring blocks are joined, and the newest one is joined to the first point of the curve that goes on with the rows. A
    block without readings leaves a gap. A block that some of its readings are missing from is not joined to its neighbours. */
class HistoryCurve : public QwtPlotItem
{
public:
    //! The frame, which is shared by all channels, and the layer, which may be null, are not owned.
    HistoryCurve(const HistoryFrame &frame, CurveLayer *layer);

    //! Shows the channel in \a column, 1 or more, divided by \a divisor, in the colour of \a pen.
    void show(int column, double divisor, const QPen &pen);
    //! Joins the newest block to \a point, the first one of the rows. A point that is not finite is joined to nothing.
    void joinTo(const QPointF &point) { m_next = point; }

    //! Returns the range of the blocks, divided by the divisor; invalid without readings.
    QRectF boundingRect() const override;
    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    void addBlocks(PixelRuns &runs,
                   const QwtScaleMap &xMap,
                   const QwtScaleMap &yMap,
                   const QRect &clip) const;

    const HistoryFrame &m_frame;
    CurveLayer *m_layer;
    int m_column = 0;
    double m_divisor = 1.0;
    QPen m_pen;
    QPointF m_next;
};

} // namespace Corvale_Qt
