// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: a marker whose label can be read wherever it stands.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <qwt_plot_marker.h>

#include <QRectF>
#include <QSharedPointer>

namespace Corvale_Qt {

/*! A vertical line with a label at its top, on the side that the label's alignment says. The label stays inside the
    canvas, if it fits, and goes below that of another marker where it would cover it. */
class ScopeMarkerItem : public QwtPlotMarker
{
public:
    void keepBelow(const QSharedPointer<const ScopeMarkerItem> &other) { m_other = other; }

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvas) const override;

protected:
    //! Nothing: draw() has to know where the other marker is.
    void drawLabel(QPainter *painter, const QRectF &canvas, const QPointF &position) const override;

private:
    bool hasLabel() const;
    //! Where the label would be if there were no other.
    QRectF labelPlace(const QwtScaleMap &xMap, const QRectF &canvas) const;

    QSharedPointer<const ScopeMarkerItem> m_other;
};

} // namespace Corvale_Qt
