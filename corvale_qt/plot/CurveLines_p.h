// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_series_data.h>

#include <QRectF>

class QPainter;
class QwtScaleMap;

namespace Corvale_Qt {

class CurveLayer;

/*! Draws the lines of a curve that breaks at missing samples. Two ways, the same picture but for a pixel at a
    corner here and there:

    - few samples for each pixel column: a polyline for each run of finite samples, as Qwt draws it;
    - many: a run of pixels for each column (PixelRuns), where the painter draws whole pixels of one opaque
      colour, and nothing is blended. */
class CurveLines
{
public:
    //! From how many samples a pixel column on they are drawn as runs.
    static constexpr double denseSamples = 2.0;
    //! The same with more device pixels than one to a pixel, where a line is a polygon to the painter.
    static constexpr double denseSamplesOnFinerPixels = 1.0;

    CurveLines(QPainter *painter,
               const QwtScaleMap &xMap,
               const QwtScaleMap &yMap,
               const QRectF &canvasRect);

    //! Cuts polylines at the canvas, as QwtPlotCurve::ClipPolygons asks.
    void setClipping(bool on) { m_clipping = on; }
    //! Where runs go instead of onto the painter; null, as it is at first, for none.
    void setLayer(CurveLayer *layer) { m_layer = layer; }
    //! Samples \a from to \a to, both included.
    void draw(const QwtSeriesData<QPointF> &series, int from, int to);

private:
    bool isDense(int samples) const;
    bool drawsWholePixels() const;
    void drawPolylines(const QwtSeriesData<QPointF> &series, int from, int to);
    void drawRuns(const QwtSeriesData<QPointF> &series, int from, int to);
    void place(const double *positions, const double *y, int count, QPointF *points) const;
    void drawPolyline(const QPointF *points, int count) const;

    QPainter *m_painter;
    const QwtScaleMap &m_xMap;
    const QwtScaleMap &m_yMap;
    QRectF m_canvasRect;
    CurveLayer *m_layer = nullptr;
    bool m_clipping = false;
    bool m_aligned;
};

} // namespace Corvale_Qt
