// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/GaussianRadialGradientBrush.h"

#include "corvale_qt/beam/spots/SpotGeometry_p.h"

#include <QRadialGradient>
#include <QtMath>

namespace Corvale_Qt {

namespace {

//! The number of steps of the gradient along its radius of 1.
constexpr int gradientSteps = 56;
constexpr double smallestAmplitude = 1e-12;

//! Returns the Gaussian with a given \a amplitude and variance at the square of a distance.
double gaussianAt(double amplitude, double variance, double squaredDistance)
{
    return amplitude * qExp(-0.5 * squaredDistance / variance);
}

} // namespace

GaussianRadialGradientBrush::GaussianRadialGradientBrush(const QGradient &gradient, double sigma)
    : QBrush(gradient)
{
    const double side = 2.0 * spotReach * sigma;
    m_boundingRect = QRectF(0.0, 0.0, side, side);
    m_boundingRect.moveCenter(center());
}

GaussianRadialGradientBrush *GaussianRadialGradientBrush::create(const QPointF &center,
                                                                 const QColor &color,
                                                                 double amplitude,
                                                                 double sigma)
{
    QRadialGradient gradient(center, 1.0);
    gradient.setCoordinateMode(QGradient::ObjectBoundingMode);
    gradient.setColorAt(1.0, Qt::transparent);

    if (!qIsFinite(amplitude) || qAbs(amplitude) <= smallestAmplitude) {
        gradient.setColorAt(0.0, Qt::transparent);
        return new GaussianRadialGradientBrush(gradient, 0.0);
    }

    const double end = spotReach * sigma;
    const double variance = sigma * sigma;
    QColor stop = color;
    for (int i = 0; i <= gradientSteps; ++i) {
        const double r = double(i) / gradientSteps;
        if (!(r < end)) {
            gradient.setColorAt(r, Qt::transparent);
            break;
        }
        stop.setAlphaF(qBound(0.0, gaussianAt(amplitude, variance, r * r), 1.0));
        gradient.setColorAt(r, stop);
    }
    return new GaussianRadialGradientBrush(gradient, sigma);
}

QRectF GaussianRadialGradientBrush::boundingRect() const
{
    return m_boundingRect;
}

QPointF GaussianRadialGradientBrush::center() const
{
    return static_cast<const QRadialGradient *>(gradient())->center();
}

} // namespace Corvale_Qt
