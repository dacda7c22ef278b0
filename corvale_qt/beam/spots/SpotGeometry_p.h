// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QPointF>
#include <QRect>
#include <QRectF>

namespace Corvale_Qt {

//! The radius at which a spot ends, in sigmas.
constexpr double spotReach = 2.6;

//! Returns the square with the centre of \a rect and its longer side.
QRect makeSquare(const QRect &rect);
QRectF makeSquare(const QRectF &rect);

/*! Returns the part of \a viewport that a map of \a bounds fills. The side that is too long loses the same
    number of pixels at both ends. Empty bounds count as a square. */
QRect pictureRect(const QRect &viewport, const QRectF &bounds);

/*! Returns where \a point of the map lies in the unit square of the picture. The y of the picture grows
    downwards, that of the map upwards. \a bounds must not be empty. */
QPointF toUnitSquare(const QRectF &bounds, const QPointF &point);
//! The inverse of toUnitSquare().
QPointF fromUnitSquare(const QRectF &bounds, const QPointF &fraction);

} // namespace Corvale_Qt
