// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/KeptText_p.h"

#include <qwt_plot_marker.h>
#include <qwt_text.h>

#include <QRectF>
#include <QSharedPointer>
#include <QSizeF>

namespace Corvale_Qt {

/*! A vertical line with a label at its top, on the side that the alignment of the label gives. The label stays inside
    the canvas if it fits, and moves below the label of another marker if it would cover that. */
class ScopeMarkerItem : public QwtPlotMarker
{
public:
    //! Makes the label give way to that of \a other.
    void keepBelow(const QSharedPointer<const ScopeMarkerItem> &other) { m_other = other; }

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvas) const override;

protected:
    //! Draws nothing: draw() draws the label, because it knows the place of the other one.
    void drawLabel(QPainter *painter, const QRectF &canvas, const QPointF &position) const override;

private:
    bool hasLabel() const;
    void drawLabelAt(QPainter *painter, const QRectF &place) const;
    QSizeF labelSize() const;
    //! Returns the place of the label without regard to the other marker.
    QRectF labelPlace(const QwtScaleMap &xMap, const QRectF &canvas) const;

    QSharedPointer<const ScopeMarkerItem> m_other;
    mutable KeptText m_letters;
    mutable QwtText m_measured; //!< the label whose size is kept
    mutable QSizeF m_size;
};

} // namespace Corvale_Qt
