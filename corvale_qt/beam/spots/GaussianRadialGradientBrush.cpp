// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/GaussianRadialGradientBrush.h"

#include "corvale_qt/beam/spots/SpotGeometry_p.h"

#include <QRadialGradient>
#include <QtMath>

namespace Corvale_Qt {

namespace {

//! Steps of the gradient along its radius of 1.
constexpr int gradientSteps = 56;
constexpr double smallestAmplitude = 1e-12;

} // namespace

const double GaussianRadialGradientBrush::_sigmaConst = -0.5;

GaussianRadialGradientBrush::GaussianRadialGradientBrush(const QGradient &gradient, double sigma)
    : QBrush(gradient)
{
    const double side = 2.0 * spotReach * sigma;
    m_boundingRect = QRectF(0.0, 0.0, side, side);
    m_boundingRect.moveCenter(center());
}

GaussianRadialGradientBrush *GaussianRadialGradientBrush::create(const QPointF &centre,
                                                                 const QColor &colour,
                                                                 double amplitude,
                                                                 double sigma)
{
    QRadialGradient gradient(centre, 1.0);
    gradient.setCoordinateMode(QGradient::ObjectBoundingMode);
    gradient.setColorAt(1.0, Qt::transparent);

    if (!qIsFinite(amplitude) || qAbs(amplitude) <= smallestAmplitude) {
        gradient.setColorAt(0.0, Qt::transparent);
        return new GaussianRadialGradientBrush(gradient, 0.0);
    }

    const double end = spotReach * sigma;
    const double variance = sigma * sigma;
    QColor stop = colour;
    for (int i = 0; i <= gradientSteps; ++i) {
        const double r = double(i) / gradientSteps;
        if (!(r < end)) {
            gradient.setColorAt(r, Qt::transparent);
            break;
        }
        stop.setAlphaF(qBound(0.0, optGaussAt(amplitude, variance, r * r), 1.0));
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

double GaussianRadialGradientBrush::gaussAt(double a, double s2, double x)
{
    return optGaussAt(a, s2, x * x);
}

double GaussianRadialGradientBrush::gaussAt(double a, double s2, double x, double y)
{
    return optGaussAt(a, s2, x * x, y * y);
}

double GaussianRadialGradientBrush::optGaussAt(double a, double s2, double x2)
{
    return a * qExp(_sigmaConst * x2 / s2);
}

double GaussianRadialGradientBrush::optGaussAt(double a, double s2, double x2, double y2)
{
    return optGaussAt(a, s2, x2 + y2);
}

} // namespace Corvale_Qt
