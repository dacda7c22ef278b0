// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/SeriesSource_p.h"
#include "corvale_qt/numerics/NumberPair_p.h"
#include "corvale_qt/numerics/WideRegisters_p.h"
#include "corvale_qt/plot/CurveLayer_p.h"
#include "corvale_qt/plot/CurveLines_p.h"
#include "corvale_qt/plot/DenseCurve_p.h"
#include "corvale_qt/plot/PixelPen_p.h"
#include "corvale_qt/plot/PixelRuns_p.h"
#include "corvale_qt/plot/SampleXCache_p.h"

#include <qwt_clipper.h>
#include <qwt_painter.h>
#include <qwt_scale_map.h>

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Corvale_Qt {

namespace {

// Buffers that all curves share. Curves are painted one after the other on one thread.
struct Scratch
{
    PixelRuns runs;
    SampleXCache sampleX;
    QVector<QPointF> points;
    QVector<QLineF> segments;
};

Scratch &scratch()
{
    static Scratch shared;
    return shared;
}

//! Returns true if one of the points is so far away that, on the canvas, lines to it are vertical or horizontal.
bool reachesFar(const QPointF *points, int count)
{
    constexpr double far = 1e8;
    return std::any_of(points, points + count, [](const QPointF &point) {
        return std::abs(point.x()) > far || std::abs(point.y()) > far;
    });
}

void toWholePixels(QPolygonF &points)
{
    for (QPointF &point : points)
        point = QPointF(pixelOf(point.x()), pixelOf(point.y()));
}

bool areFinite(const double *values, int count)
{
    NumberPair nothing{0.0, 0.0};
    int i = 0;
    for (; i + 2 <= count; i += 2)
        nothing += pairAt(values + i) * 0.0; // no number but for finite ones
    if (i < count)
        nothing[0] += values[i] - values[i];
    return nothing[0] == 0.0 && nothing[1] == 0.0;
}

//! Finds the pixels of two values at a time, as pixelOf() finds them, on an axis without a transformation.
class PairsToPixels
{
public:
    explicit PairsToPixels(const QwtScaleMap &map)
        : m_value{map.s1(), map.s1()}
        , m_pixel{map.p1(), map.p1()}
        , m_pixels{pixelsForOne(map), pixelsForOne(map)}
    {
    }

    NumberPair operator()(NumberPair values) const
    {
        constexpr NumberPair limit{mostPixels, mostPixels};
        const NumberPair coordinates = m_pixel + (values - m_value) * m_pixels;
        const NumberPair raised = lesser(greater(coordinates, -limit), limit) + 0.5;
        // Numbers of this size have no fractions, so that adding it rounds to the nearest whole number. The one wanted is not above.
        constexpr double whole = 6755399441055744.0; // 1.5 * 2^52
        const NumberPair nearest = (raised + whole) - whole;
        return nearest > raised ? nearest - 1.0 : nearest;
    }

private:
    //! Returns what a map multiplies with, computed as it computes it.
    static double pixelsForOne(const QwtScaleMap &map)
    {
        return map.s1() != map.s2() ? (map.p2() - map.p1()) / (map.s2() - map.s1()) : 1.0;
    }

    NumberPair m_value;
    NumberPair m_pixel;
    NumberPair m_pixels;
};

bool isFinite(double x, double y)
{
    return std::isfinite(x) && std::isfinite(y);
}

} // namespace

CurveLines::CurveLines(QPainter *painter,
                       const QwtScaleMap &xMap,
                       const QwtScaleMap &yMap,
                       const QRectF &canvasRect)
    : m_painter(painter)
    , m_xMap(xMap)
    , m_yMap(yMap)
    , m_canvasRect(canvasRect)
    , m_aligned(QwtPainter::roundingAlignment(painter))
    , m_drawsSegments(isFiner(*painter) && paintsThinOpaque(*painter)
                      && painter->pen().style() == Qt::SolidLine)
{
}

void CurveLines::draw(const QwtSeriesData<QPointF> &series, int from, int to)
{
    clearWideRegisters(); // the curve before may have been painted by another library
    if (isDense(to - from + 1) && drawsWholePixels(*m_painter, m_xMap, m_yMap))
        drawRuns(series, from, to);
    else
        drawPolylines(series, from, to);
}

bool CurveLines::isDense(int samples) const
{
    const double columns = std::max(m_canvasRect.width(), 1.0);
    return samples > (isFiner(*m_painter) ? denseSamplesOnFinerPixels : denseSamples) * columns;
}

//! Returns whether runs look like the lines. Dashes cannot be seen where each column has many samples.
bool CurveLines::drawsWholePixels(const QPainter &painter,
                                  const QwtScaleMap &xMap,
                                  const QwtScaleMap &yMap)
{
    return paintsThinOpaque(painter) && !xMap.transformation() && !yMap.transformation();
}

void CurveLines::drawRuns(const QwtSeriesData<QPointF> &series, int from, int to)
{
    const QRect clip = m_canvasRect.toAlignedRect();
    const SeriesSpans samples(SeriesSource::of(&series), from, to - from + 1);
    const bool isInMemory = samples.areFound() && samples.rise();
    if (isInMemory && isKept(samples, from, clip))
        return;
    PixelRuns &runs = scratch().runs;
    runs.begin(clip);
    if (isInMemory) {
        addDense(samples, from, clip);
    } else {
        LineBreaks breaks = breaksFrom(from);
        forEachPoint(series, from, to - from + 1, [&](int i, double x, double y) {
            if (breaks.isAt(i))
                runs.gap();
            if (isFinite(x, y))
                runs.addPoint(pixelOf(m_xMap, x), pixelOf(m_yMap, y));
            else
                runs.gap();
        });
    }
    runs.end();

    if (m_layer)
        m_layer->add(m_painter, clip, runs, m_painter->pen().color());
    else
        m_painter->drawLines(runs.lines());
}

//! Hands the curve to the layer if it keeps the picture of such curves. Returns whether it does.
bool CurveLines::isKept(const SeriesSpans &samples, int from, const QRect &clip) const
{
    const bool isWhole = m_layer && m_owner && from == 0;
    return isWhole
        && m_layer->addKept(m_painter,
                            clip,
                            m_xMap,
                            {m_owner, samples, m_yMap, m_painter->pen().color().rgba()});
}

//! Adds the samples to the runs, one run for each pixel column.
void CurveLines::addDense(const SeriesSpans &samples, int from, const QRect &clip) const
{
    const DenseCurve curve(samples, m_yMap);
    LineBreaks breaks = breaksFrom(from);
    const SampleXCache::Columns &columns =
        scratch().sampleX.columns(samples, m_xMap, clip.left(), clip.right());
    const auto &edges = columns.edges;
    for (int i = 0; i < edges.size(); ++i) {
        const int end = i + 1 < edges.size() ? edges[i + 1].first : columns.end;
        for (int first = edges[i].first; first < end;) {
            if (breaks.isAt(first))
                scratch().runs.gap();
            const int count = breaks.lengthOfLine(first, end - first);
            const int next = first + count;
            const ColumnReadings readings = ColumnReadings::of(samples, first, next);
            curve.add(scratch().runs, edges[i].column, readings, first, next);
            first = next;
        }
    }
}

void CurveLines::drawPolylines(const QwtSeriesData<QPointF> &series, int from, int to)
{
    if (m_layer)
        m_layer->flush(m_painter);
    QVector<QPointF> &points = scratch().points;
    points.resize(std::max(points.size(), to - from + 1));
    QPointF *const begin = points.data();
    QPointF *end = begin;
    const auto endLine = [&] {
        drawPolyline(begin, int(end - begin));
        end = begin;
    };
    const auto add = [&](double position, double y) {
        if (!isFinite(position, y)) {
            endLine();
            return;
        }
        const double height = m_yMap.transform(y);
        *end++ = QPointF(position, m_aligned ? pixelOf(height) : height);
    };

    LineBreaks breaks = breaksFrom(from);
    const SeriesSpans samples(SeriesSource::of(&series), from, to - from + 1);
    if (samples.areFound()) {
        const SampleXCache::Positions &found =
            scratch().sampleX.positions(samples, m_xMap, m_aligned);
        constexpr int chunk = 256;
        double y[chunk];
        int count = 0;
        for (int first = 0; first < samples.count(); first += count) {
            if (breaks.isAt(first))
                endLine();
            count = breaks.lengthOfLine(first, std::min(chunk, samples.count() - first));
            samples.values(first, count, y);
            const double *const x = found.x.constData() + first;
            if (found.areFinite && areFinite(y, count)) {
                place(x, y, count, end);
                end += count;
                continue;
            }
            for (int i = 0; i < count; ++i)
                add(x[i], y[i]);
        }
    } else {
        forEachPoint(series, from, to - from + 1, [&](int i, double x, double y) {
            if (breaks.isAt(i))
                endLine();
            add(columnOf(x), y);
        });
    }
    endLine();
}

//! Returns where an x is drawn, on a whole pixel if the lines are aligned.
double CurveLines::columnOf(double x) const
{
    const double position = m_xMap.transform(x);
    return m_aligned && std::isfinite(x) ? pixelOf(position) : position;
}

//! Returns the breaks of the lines from sample \a from on, which all curves of the plot share.
LineBreaks CurveLines::breaksFrom(int from) const
{
    return LineBreaks(m_layer ? &m_layer->breaks() : nullptr, from);
}

//! Writes the points of samples that are all finite.
void CurveLines::place(const double *positions, const double *y, int count, QPointF *points) const
{
    if (m_aligned) {
        int i = 0;
        if (!m_yMap.transformation()) {
            const PairsToPixels pixels(m_yMap);
            for (; i + 2 <= count; i += 2) {
                const NumberPair rows = pixels(pairAt(y + i));
                points[i] = QPointF(positions[i], rows[0]);
                points[i + 1] = QPointF(positions[i + 1], rows[1]);
            }
        }
        for (; i < count; ++i)
            points[i] = QPointF(positions[i], pixelOf(m_yMap, y[i]));
    } else {
        for (int i = 0; i < count; ++i)
            points[i] = QPointF(positions[i], m_yMap.transform(y[i]));
    }
}

void CurveLines::drawPolyline(const QPointF *points, int count) const
{
    if (count == 1) {
        if (m_canvasRect.contains(*points))
            QwtPainter::drawPoint(m_painter, *points);
    } else if (count > 1 && m_clipping) {
        const qreal width = std::max(1.0, m_painter->pen().widthF());
        const QRectF clip = m_canvasRect.adjusted(-width, -width, width, width);
        QPolygonF polyline;
        polyline.reserve(count);
        std::copy_n(points, count, std::back_inserter(polyline));
        QPolygonF clipped = QwtClipper::clipPolygonF(clip, polyline, false);
        if (m_aligned && reachesFar(points, count))
            toWholePixels(clipped);
        strokePolyline(clipped.constData(), clipped.size());
    } else if (count > 1) {
        strokePolyline(points, count);
    }
}

void CurveLines::strokePolyline(const QPointF *points, int count) const
{
    if (!m_drawsSegments) {
        QwtPainter::drawPolyline(m_painter, points, count);
        return;
    }
    QVector<QLineF> &segments = scratch().segments;
    segments.resize(0);
    for (int i = 1; i < count; ++i)
        segments.append(QLineF(points[i - 1], points[i]));
    m_painter->drawLines(segments);
}

} // namespace Corvale_Qt
