// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_series_data.h>

#include <QRectF>

class QPainter;
class QwtScaleMap;

namespace Corvale_Qt {

class CurveLayer;
class LineBreaks;
class SeriesSpans;

/*! Draws the lines of a curve that breaks at missing samples. There are two methods, whose pictures differ at most in single
    pixels at corners:

    - With few samples for each pixel column, each sequence of finite samples is drawn as a polyline, as Qwt draws it. On finer
      device pixels each pair of neighbouring samples becomes a line, as it does where samples are many: a painter would fill the
      outline of a whole polyline, which takes four times as long and differs in a few pixels at corners.
    - With many samples, each pixel column becomes one run of pixels (PixelRuns). This is done only if the painter draws
      whole pixels of one opaque colour, without blending. */
class CurveLines
{
public:
    //! With more samples than this for each pixel column, the curve is drawn as runs.
    static constexpr double denseSamples = 2.0;
    //! The limit for device pixel ratios above 1, where a painter draws each line as a polygon, which takes longer.
    static constexpr double denseSamplesOnFinerPixels = 1.0;

    //! The maps convert to the painter's coordinates; \a canvasRect is the canvas in them. The maps must live as long.
    CurveLines(QPainter *painter,
               const QwtScaleMap &xMap,
               const QwtScaleMap &yMap,
               const QRectF &canvasRect);

    //! Sets whether polylines are clipped to the canvas (QwtPlotCurve::ClipPolygons); off at first.
    void setClipping(bool on) { m_clipping = on; }
    /*! Sets the layer that receives runs and says where the lines break; with null, the default, runs are painted directly
        and lines break at missing samples only. */
    void setLayer(CurveLayer *layer) { m_layer = layer; }
    //! Says which curve is drawn, so that the layer may keep its picture; null, the default, for none.
    void setOwner(const void *curve) { m_owner = curve; }
    //! Returns whether \a painter draws whole pixels of one opaque colour with its pen, without blending.
    static bool
    drawsWholePixels(const QPainter &painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap);
    //! Draws the lines between samples \a from to \a to, both included.
    void draw(const QwtSeriesData<QPointF> &series, int from, int to);

private:
    bool isDense(int samples) const;
    LineBreaks breaksFrom(int from) const;
    void drawPolylines(const QwtSeriesData<QPointF> &series, int from, int to);
    void drawRuns(const QwtSeriesData<QPointF> &series, int from, int to);
    bool isKept(const SeriesSpans &samples, int from, const QRect &clip) const;
    void addDense(const SeriesSpans &samples, int from, const QRect &clip) const;
    double columnOf(double x) const;
    void place(const double *positions, const double *y, int count, QPointF *points) const;
    void drawPolyline(const QPointF *points, int count) const;
    void strokePolyline(const QPointF *points, int count) const;

    QPainter *m_painter;
    const QwtScaleMap &m_xMap;
    const QwtScaleMap &m_yMap;
    QRectF m_canvasRect;
    CurveLayer *m_layer = nullptr;
    const void *m_owner = nullptr;
    bool m_clipping = false;
    bool m_aligned;
    bool m_drawsSegments; //!< instead of polylines
};

} // namespace Corvale_Qt
