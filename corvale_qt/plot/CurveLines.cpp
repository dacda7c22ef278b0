// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/models/SampleBounds_p.h"
#include "corvale_qt/plot/CurveLayer_p.h"
#include "corvale_qt/plot/CurveLines_p.h"
#include "corvale_qt/plot/LineBreaks_p.h"
#include "corvale_qt/plot/PixelColumns_p.h"
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
    PixelColumns columns;
    SampleXCache sampleX;
    QVector<QPointF> points;
};

Scratch &scratch()
{
    static Scratch shared;
    return shared;
}

//! The samples of a series, read directly from the memory that holds them.
class SeriesSpans
{
public:
    SeriesSpans(const SeriesColumns &source, int from, int to)
        : m_row(source.startRow + from)
        , m_count(to - from + 1)
        , m_scale(source.scale)
        , m_found(source.columns && source.columns.spans(0, m_row, m_count, m_x)
                  && source.columns.spans(source.column, m_row, m_count, m_y))
    {
    }

    //! Returns false if the samples do not lie in memory.
    bool areFound() const { return m_found; }
    int count() const { return m_count; }
    double x(int i) const { return m_x.value(i); }
    double y(int i) const { return shown(m_y.stored(i)); }
    //! Writes the y that is shown of \a count samples, starting with sample \a first.
    void values(int first, int count, double *out) const
    {
        const int inFirst = std::clamp(m_y.size[0] - first, 0, count);
        for (int i = 0; i < inFirst; ++i)
            out[i] = shown(m_y.piece[0][first + i]);
        const int skipped = first - m_y.size[0];
        for (int i = inFirst; i < count; ++i)
            out[i] = shown(m_y.piece[1][skipped + i]);
    }
    //! Converts a stored number to the y that is shown.
    double shown(double stored) const
    {
        const double value = m_y.factor * stored - m_y.zero;
        // The division would take as long as the rest of the conversion.
        return m_scale == 1.0 ? value : value / m_scale;
    }
    const ColumnSpans &storedX() const { return m_x; }
    const ColumnSpans &storedY() const { return m_y; }

private:
    int m_row;
    int m_count;
    double m_scale;
    ColumnSpans m_x;
    ColumnSpans m_y;
    bool m_found;
};

//! Calls use(i, x, y) for each sample, counted from the first one, including missing ones. Reads in chunks if the model can.
template<typename Use>
void forEachSample(const QwtSeriesData<QPointF> &series, int from, int to, Use use)
{
    const SeriesColumns source = SeriesColumns::of(&series);
    if (!source.columns) {
        for (int i = from; i <= to; ++i) {
            const QPointF point = series.sample(size_t(i));
            use(i - from, point.x(), point.y());
        }
        return;
    }
    constexpr int chunk = 512;
    double x[chunk];
    double y[chunk];
    for (int first = from; first <= to; first += chunk) {
        const int count = std::min(chunk, to - first + 1);
        source.readX(size_t(first), count, x);
        source.readY(size_t(first), count, y);
        for (int i = 0; i < count; ++i)
            use(first - from + i, x[i], y[i]);
    }
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
    double nothing = 0.0;
    for (int i = 0; i < count; ++i)
        nothing += values[i] - values[i];
    return nothing == 0.0;
}

bool isFinite(double x, double y)
{
    return std::isfinite(x) && std::isfinite(y);
}

//! A curve with many samples for each pixel column, read directly from the memory that holds its samples.
class DenseCurve
{
public:
    DenseCurve(const QwtSeriesData<QPointF> &series, int from, int to, const QwtScaleMap &yMap)
        : m_source(SeriesColumns::of(&series))
        , m_spans(m_source, from, to)
        , m_yMap(yMap)
    {
    }

    //! Returns false if the samples do not lie in memory, or if x does not rise throughout.
    bool areFound() const
    {
        return m_spans.areFound() && m_source.columns.xRises() && std::isfinite(m_spans.x(0))
            && std::isfinite(m_spans.x(m_spans.count() - 1));
    }

    //! Adds one run for each pixel column of \a clip; \a columns may hold those of the curve before.
    void addTo(PixelRuns &runs,
               PixelColumns &columns,
               const QwtScaleMap &xMap,
               const QRect &clip,
               LineBreaks breaks) const
    {
        columns.find(m_spans.storedX(),
                     m_source.columns.xVersion(),
                     xMap,
                     clip.left(),
                     clip.right());
        const auto &edges = columns.edges();
        for (int i = 0; i < edges.size(); ++i) {
            const int end = i + 1 < edges.size() ? edges[i + 1].first : columns.end();
            for (int first = edges[i].first; first < end;) {
                if (breaks.isAt(first))
                    runs.gap();
                const int count = breaks.lengthOfLine(first, end - first);
                addRows(runs, edges[i].column, first, first + count);
                first += count;
            }
        }
    }

private:
    //! Adds rows of one pixel column that no break divides.
    void addRows(PixelRuns &runs, int column, int first, int end) const
    {
        const ValueRange range = storedRange(m_spans.storedY(), first, end);
        const double ends[] = {m_spans.shown(range.least), m_spans.shown(range.greatest)};
        // As long as all is finite, each step from the stored number to the pixel keeps the order or reverses it.
        if (!range.allFinite || !isFinite(ends[0], ends[1])) {
            addOneByOne(runs, column, first, end);
            return;
        }
        const auto pixels = std::minmax({pixelOf(m_yMap, ends[0]), pixelOf(m_yMap, ends[1])});
        runs.addColumn(column,
                       pixelOf(m_yMap, m_spans.y(first)),
                       pixels.first,
                       pixels.second,
                       pixelOf(m_yMap, m_spans.y(end - 1)));
    }

    void addOneByOne(PixelRuns &runs, int column, int first, int end) const
    {
        for (int i = first; i < end; ++i) {
            const double y = m_spans.y(i);
            if (std::isfinite(y))
                runs.addPoint(column, pixelOf(m_yMap, y));
            else
                runs.gap();
        }
    }

    SeriesColumns m_source;
    SeriesSpans m_spans;
    const QwtScaleMap &m_yMap;
};

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
{
}

void CurveLines::draw(const QwtSeriesData<QPointF> &series, int from, int to)
{
    if (isDense(to - from + 1) && drawsWholePixels(*m_painter, m_xMap, m_yMap))
        drawRuns(series, from, to);
    else
        drawPolylines(series, from, to);
}

bool CurveLines::isDense(int samples) const
{
    const bool finer = m_painter->device()->devicePixelRatioF() > 1.0;
    const double columns = std::max(m_canvasRect.width(), 1.0);
    return samples > (finer ? denseSamplesOnFinerPixels : denseSamples) * columns;
}

//! Returns whether runs look like the lines. Dashes cannot be seen where each column has many samples.
bool CurveLines::drawsWholePixels(const QPainter &painter,
                                  const QwtScaleMap &xMap,
                                  const QwtScaleMap &yMap)
{
    const QPen &pen = painter.pen();
    return QwtPainter::roundingAlignment(const_cast<QPainter *>(&painter))
        && !painter.testRenderHint(QPainter::Antialiasing)
        && painter.compositionMode() == QPainter::CompositionMode_SourceOver
        && painter.opacity() == 1.0 && pen.style() != Qt::NoPen && pen.widthF() <= 1.0
        && pen.brush().style() == Qt::SolidPattern && pen.color().alpha() == 255
        && !xMap.transformation() && !yMap.transformation();
}

void CurveLines::drawRuns(const QwtSeriesData<QPointF> &series, int from, int to)
{
    Scratch &reused = scratch();
    PixelRuns &runs = reused.runs;
    const QRect clip = m_canvasRect.toAlignedRect();
    runs.begin(clip);
    LineBreaks breaks = breaksFrom(from);
    const DenseCurve dense(series, from, to, m_yMap);
    if (dense.areFound()) {
        dense.addTo(runs, reused.columns, m_xMap, clip, breaks);
    } else {
        forEachSample(series, from, to, [&](int i, double x, double y) {
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
    const SeriesColumns source = SeriesColumns::of(&series);
    const SeriesSpans spans(source, from, to);
    if (spans.areFound()) {
        SampleXCache &found = scratch().sampleX;
        const double *positions =
            found.find(spans.storedX(), source.columns.xVersion(), m_xMap, m_aligned);
        constexpr int chunk = 256;
        double y[chunk];
        int count = 0;
        for (int first = 0; first < spans.count(); first += count) {
            if (breaks.isAt(first))
                endLine();
            count = breaks.lengthOfLine(first, std::min(chunk, spans.count() - first));
            spans.values(first, count, y);
            if (found.areFinite() && areFinite(y, count)) {
                place(positions + first, y, count, end);
                end += count;
                continue;
            }
            for (int i = 0; i < count; ++i)
                add(positions[first + i], y[i]);
        }
    } else {
        forEachSample(series, from, to, [&](int i, double x, double y) {
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
        for (int i = 0; i < count; ++i)
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
        QwtPainter::drawPolyline(m_painter, clipped);
    } else if (count > 1) {
        QwtPainter::drawPolyline(m_painter, points, count);
    }
}

} // namespace Corvale_Qt
