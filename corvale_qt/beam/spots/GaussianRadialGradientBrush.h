// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QBrush>
#include <QPointF>
#include <QRectF>

namespace Corvale_Qt {

/*! A brush that paints one Gaussian spot: a radial gradient whose opacity falls off as exp(-r² / 2 sigma²)
    and ends at 2.6 sigma, with the rectangle it covers.

    Centre and sigma are fractions of the unit square. The gradient is in object-bounding mode, so Qt
    stretches it over the rectangle that is filled: fill the whole unit square, and clip to boundingRect().

    The opacity is exact at multiples of 1/56 of the unit square and linear between them. So a sigma below about
    1/50 looks coarse and shows the edges of its rectangle. This is kept on purpose, for pictures that are compared
    with older ones.

    \code
    std::unique_ptr<GaussianRadialGradientBrush> brush(
        GaussianRadialGradientBrush::create(QPointF(0.3, 0.6), Qt::white, 1.0, 0.05));
    painter.scale(width, height);
    painter.setClipRect(brush->boundingRect());
    painter.fillRect(QRectF(0, 0, 1, 1), *brush);
    \endcode */
class CORVALE_QT_EXPORT GaussianRadialGradientBrush : public QBrush
{
public:
    /*! Returns a new brush, which the caller owns. \a center and \a sigma are fractions of the unit square.
        \a amplitude is the opacity at the centre, from 0 to 1, and replaces that of \a color. If it is within
        1e-12 of 0 or not finite, the brush is transparent and its boundingRect() empty. */
    static GaussianRadialGradientBrush *
    create(const QPointF &center, const QColor &color, double amplitude, double sigma);

    //! Returns the square that the spot covers, 5.2 sigma wide around the centre, in fractions of the unit square.
    QRectF boundingRect() const;
    //! Returns the centre of the spot, in fractions of the unit square.
    QPointF center() const;

private:
    GaussianRadialGradientBrush(const QGradient &gradient, double sigma);

    QRectF m_boundingRect;
};

} // namespace Corvale_Qt
