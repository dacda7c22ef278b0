// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QPointF>
#include <QVector>

class QImage;
class QwtPlot;
class QwtPlotCurve;

//! The curves that a plot shows, lowest first.
QVector<const QwtPlotCurve *> shownCurves(const QwtPlot &plot);
QVector<QPointF> pointsOf(const QwtPlotCurve &curve);
//! The canvas without a frame that it may have.
QImage pictureOf(QwtPlot &plot);
int differingPixels(const QImage &a, const QImage &b);
