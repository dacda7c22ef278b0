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
    stretches it over whatever is filled: the unit square has to be filled, and boundingRect() is where to
    clip.

    The opacity is exact every 1/56 of the unit square and a straight line between: a sigma below 1/50 or so looks
    coarse, and shows the edges of its rectangle. Kept on purpose, for pictures that are compared with older ones.

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
    /*! A new brush, owned by the caller. \a amplitude is the opacity at the centre, 0 to 1, and replaces
        that of \a colour; within 1e-12 of 0, or not finite, it gives a transparent brush of no extent. */
    static GaussianRadialGradientBrush *
    create(const QPointF &centre, const QColor &colour, double amplitude, double sigma);

    //! What the spot covers: 5.2 sigma wide and high around the centre.
    QRectF boundingRect() const;
    //! Centre of the gradient.
    QPointF center() const;

private:
    GaussianRadialGradientBrush(const QGradient &gradient, double sigma);

    //! Amplitude \a a and variance \a s2, at distance x, or at (x, y); the "opt" forms take squares.
    static double gaussAt(double a, double s2, double x);
    static double gaussAt(double a, double s2, double x, double y);
    static double optGaussAt(double a, double s2, double x2);
    static double optGaussAt(double a, double s2, double x2, double y2);

    static const double _sigmaConst;

    QRectF m_boundingRect;
};

} // namespace Corvale_Qt
