// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the spot map's own classes.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QPointF>
#include <QRect>
#include <QRectF>

namespace Corvale_Qt {

//! How far a spot is drawn from its centre, in sigmas.
constexpr double spotReach = 2.6;

//! The square around \a rect: its longer side, its centre.
QRect makeSquare(const QRect &rect);
QRectF makeSquare(const QRectF &rect);

/*! The part of \a viewport that a map of \a bounds fills: the longer side loses the same margin, in whole
    pixels, at both ends. Bounds without extent are taken for a square. */
QRect pictureRect(const QRect &viewport, const QRectF &bounds);

/*! Where a point of the map lies in its picture's unit square, whose y grows downwards, while that of the
    map grows upwards. \a bounds must have an extent. */
QPointF toUnitSquare(const QRectF &bounds, const QPointF &point);
//! The reverse of toUnitSquare().
QPointF fromUnitSquare(const QRectF &bounds, const QPointF &fraction);

} // namespace Corvale_Qt
