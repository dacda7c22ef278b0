// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QPointF>
#include <QVector>

class QImage;
class QwtPlot;
class QwtPlotCurve;

//! Returns the visible curves of a plot, the lowest one first.
QVector<const QwtPlotCurve *> shownCurves(const QwtPlot &plot);
QVector<QPointF> pointsOf(const QwtPlotCurve &curve);
//! Returns a picture of the canvas without its frame.
QImage pictureOf(QwtPlot &plot);
int differingPixels(const QImage &a, const QImage &b);
