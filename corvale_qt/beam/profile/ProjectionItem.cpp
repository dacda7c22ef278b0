// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/CellPicture_p.h"
#include "corvale_qt/beam/profile/ProjectionItem_p.h"
#include "corvale_qt/beam/profile/SpectrogramItems_p.h"

#include <qwt_scale_map.h>

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace Corvale_Qt {

namespace {

constexpr double kHeight = 0.18; // of the canvas
const QColor kProfile(255, 255, 255, 220);
const QColor kFit(255, 160, 0);

//! Turns densities along one axis into points on the canvas.
class Strip
{
public:
    Strip(const PlaneResult &plane, const QwtScaleMap &map, const QRectF &canvas, bool alongX)
        : m_plane(plane)
        , m_map(map)
        , m_canvas(canvas)
        , m_alongX(alongX)
    {
        for (int i = 0; i < plane.profile.count(); ++i) {
            if (!plane.profile.has(i, CellFlag::Dead | CellFlag::Hot))
                m_most = std::max(m_most, plane.profile.density(i));
        }
    }

    bool isEmpty() const { return !(m_most > 0); }
    bool isAlongX() const { return m_alongX; }

    QPolygonF steps() const
    {
        QPolygonF line;
        const BeamProfile &profile = m_plane.profile;
        for (int i = 0; i < profile.count(); ++i) {
            const double half = profile.intervals[i] / 2;
            line << point(profile.positions[i] - half, profile.density(i))
                 << point(profile.positions[i] + half, profile.density(i));
        }
        return line;
    }

    QPolygonF fit() const
    {
        QPolygonF line;
        const BeamEstimate &estimate = m_plane.estimate;
        if (!m_plane.isGood()) // a Gaussian that does not describe the profile would mislead
            return line;
        constexpr int points = 200;
        const double from = m_plane.profile.lowerEdge(), to = m_plane.profile.upperEdge();
        for (int i = 0; i <= points; ++i) {
            const double place = from + (to - from) * i / points;
            line << point(place, estimate.densityAt(place));
        }
        return line;
    }

private:
    QPointF point(double place, double density) const
    {
        const double share = std::clamp(density / m_most, 0.0, 1.2);
        const double along = m_map.transform(place);
        if (m_alongX)
            return {along, m_canvas.bottom() - share * kHeight * m_canvas.height()};
        return {m_canvas.left() + share * kHeight * m_canvas.width(), along};
    }

    const PlaneResult &m_plane;
    const QwtScaleMap &m_map;
    QRectF m_canvas;
    bool m_alongX;
    double m_most = 0;
};

/*! Draws a line with the same pixels as QPainter::drawPolyline(). For Qt's rasteriser a long line of many short pieces is slow: it
    looks for each edge among the others in its row of pixels from the left, and goes over the whole line again for every few
    rows. So the line is drawn in parts, each of which is clipped to some columns or rows of pixels. */
class LineInParts
{
public:
    LineInParts(const QPolygonF &line, const QRectF &canvas, bool alongX)
        : m_line(line)
        , m_canvas(canvas)
        , m_alongX(alongX)
        , m_start(std::floor(alongX ? canvas.left() : canvas.top()))
    {
    }

    //! Returns whether pixels can be counted up to all points.
    bool isCountable() const
    {
        constexpr double furthest = 1e6; // pixels
        return std::all_of(m_line.begin(), m_line.end(), [this](const QPointF &point) {
            return std::abs(place(point)) <= furthest; // false for a NaN
        });
    }

    void draw(QPainter *painter) const
    {
        const std::vector<Part> parts = partsFor(painter->pen());
        for (size_t i = 0; i < parts.size(); ++i) {
            const Part &part = parts[i];
            if (part.last < 0)
                continue;
            painter->save();
            painter->setClipRect(clip(i), Qt::IntersectClip);
            painter->drawPolyline(m_line.constData() + part.first, part.last - part.first + 1);
            painter->restore();
        }
    }

private:
    //! The points from the first to the last one that matter to a part of the canvas.
    struct Part
    {
        int first = std::numeric_limits<int>::max();
        int last = -1;
    };

    double place(const QPointF &point) const { return m_alongX ? point.x() : point.y(); }

    std::vector<Part> partsFor(const QPen &pen) const
    {
        // A part begins and ends with caps instead of joins, beyond its clip.
        const double margin = pen.widthF() + 1;
        const double end = m_alongX ? m_canvas.right() : m_canvas.bottom();
        std::vector<Part> parts(size_t(std::max(std::ceil((end - m_start) / kPart), 0.0)));
        const auto partAt = [this](double pixel) {
            return int(std::floor((pixel - m_start) / kPart));
        };
        for (int i = 0; i + 1 < m_line.size(); ++i) {
            const auto [from, to] = std::minmax({place(m_line[i]), place(m_line[i + 1])});
            const int behind = std::min(partAt(to + margin) + 1, int(parts.size()));
            for (int number = std::max(partAt(from - margin), 0); number < behind; ++number) {
                Part &part = parts[size_t(number)];
                part.first = std::min(part.first, i);
                part.last = i + 1;
            }
        }
        return parts;
    }

    //! Returns real numbers, since Qt would round the width of a QRect, and those of a scaled picture would not meet.
    QRectF clip(size_t part) const
    {
        const double from = m_start + kPart * double(part);
        return m_alongX ? QRectF(from, m_canvas.top(), kPart, m_canvas.height())
                        : QRectF(m_canvas.left(), from, m_canvas.width(), kPart);
    }

    static constexpr double kPart = 64; // pixels
    const QPolygonF &m_line;
    const QRectF m_canvas;
    const bool m_alongX;
    const double m_start;
};

void drawStrip(QPainter *painter, const Strip &strip, const QRectF &canvas)
{
    if (strip.isEmpty())
        return;
    // In a file of lines each of them is to be one.
    const bool isRaster = painter->paintEngine()->type() == QPaintEngine::Raster;
    const auto draw = [&](const QPolygonF &line, const QColor &color) {
        const LineInParts parts(line, canvas, strip.isAlongX());
        const bool inParts = isRaster && parts.isCountable();
        // The dark line below keeps both visible on every colour of the picture.
        for (const QPen &pen : {QPen(QColor(0, 0, 0, 180), 3.5), QPen(color, 1.5)}) {
            painter->setPen(pen);
            if (inParts)
                parts.draw(painter);
            else
                painter->drawPolyline(line);
        }
    };
    draw(strip.steps(), kProfile);
    draw(strip.fit(), kFit);
}

} // namespace

ProjectionItem::ProjectionItem()
{
    setZ(MeanLayer - 1);
    setRenderHint(RenderAntialiased, true);
}

void ProjectionItem::setPlanes(const PlaneResult &x, const PlaneResult &y)
{
    m_x = x;
    m_y = y;
    itemChanged();
}

void ProjectionItem::draw(QPainter *painter,
                          const QwtScaleMap &xMap,
                          const QwtScaleMap &yMap,
                          const QRectF &canvasRect) const
{
    painter->setBrush(Qt::NoBrush);
    drawStrip(painter, Strip(m_x, xMap, canvasRect, true), canvasRect);
    drawStrip(painter, Strip(m_y, yMap, canvasRect, false), canvasRect);
}

CellMarks::CellMarks()
{
    setZ(RasterLayer + 1);
    setRenderHint(RenderAntialiased, true);
}

void CellMarks::setNarrow(const QVector<QPair<double, double>> &columns,
                          const QVector<QPair<double, double>> &rows)
{
    m_narrowColumns = columns;
    m_narrowRows = rows;
    m_marks.clear();
    itemChanged();
}

void CellMarks::setFrame(const JudgedFrame &frame)
{
    m_marks.clear();
    const CellEdges columns = cellEdges(frame.cells.layout, true);
    const CellEdges rows = cellEdges(frame.cells.layout, false);
    const auto add = [this](double x, double right, double y, double top, CellFlags flags) {
        if (flags)
            m_marks.append({QRectF(QPointF(x, y), QPointF(right, top)).normalized(), flags});
    };
    if (frame.cells.layout.kind() == DetectorKind::Matrix) {
        const QVector<CellFlags> &flags = frame.cells.flags;
        for (int cell = 0; cell < flags.size(); ++cell) {
            const int c = cell % columns.count(), r = cell / columns.count();
            add(columns.lower(c), columns.upper(c), rows.lower(r), rows.upper(r), flags[cell]);
        }
    } else {
        // A strip is marked along its whole length.
        const QPair<double, double> x(frame.x.profile.lowerEdge(), frame.x.profile.upperEdge());
        const QPair<double, double> y(frame.y.profile.lowerEdge(), frame.y.profile.upperEdge());
        const auto flagged = [](const PlaneResult &plane, auto action) {
            for (int i = 0; i < plane.profile.flags.size(); ++i) {
                const double half = plane.profile.intervals[i] / 2;
                const double place = plane.profile.positions[i];
                action(place - half, place + half, plane.profile.flags[i]);
            }
        };
        flagged(frame.x, [&](double from, double to, CellFlags flags) {
            add(from, to, y.first, frame.y.exists() ? y.second : 1.0, flags);
        });
        flagged(frame.y, [&](double from, double to, CellFlags flags) {
            add(x.first, frame.x.exists() ? x.second : 1.0, from, to, flags);
        });
    }
    itemChanged();
}

void CellMarks::draw(QPainter *painter,
                     const QwtScaleMap &xMap,
                     const QwtScaleMap &yMap,
                     const QRectF &canvasRect) const
{
    painter->setBrush(Qt::NoBrush);
    for (const Mark &mark : m_marks) {
        QRectF cell = QwtScaleMap::transform(xMap, yMap, mark.cell).normalized();
        if (!cell.intersects(canvasRect))
            continue;
        // A cell of a camera may be smaller than a mark that can be seen.
        const double grow = std::max(0.0, 7 - std::min(cell.width(), cell.height())) / 2;
        cell.adjust(-grow, -grow, grow, grow);
        if (mark.flags.testFlag(CellFlag::Saturated)) {
            painter->setPen(QPen(QColor(255, 0, 255), 2));
            painter->drawRect(cell.adjusted(1, 1, -1, -1));
        }
        if (mark.flags.testFlag(CellFlag::Hot)) {
            painter->setPen(QPen(QColor(255, 140, 0), 2));
            painter->drawEllipse(cell.adjusted(1, 1, -1, -1));
        }
        if (mark.flags.testFlag(CellFlag::Dead)) {
            painter->setPen(QPen(QColor(170, 170, 170), 1.5));
            painter->drawLine(cell.topLeft(), cell.bottomRight());
            painter->drawLine(cell.bottomLeft(), cell.topRight());
        }
    }
    painter->setPen(Qt::NoPen);
    painter->setBrush(Qt::white);
    constexpr double tick = 5;
    const auto width = [](double from, double to) {
        return std::max(std::abs(to - from), 2.0);
    };
    for (const auto &[from, to] : m_narrowColumns) {
        const double left = std::min(xMap.transform(from), xMap.transform(to));
        painter->drawRect(
            QRectF(left, canvasRect.top(), width(xMap.transform(from), xMap.transform(to)), tick));
    }
    for (const auto &[from, to] : m_narrowRows) {
        const double top = std::min(yMap.transform(from), yMap.transform(to));
        painter->drawRect(QRectF(canvasRect.right() - tick,
                                 top,
                                 tick,
                                 width(yMap.transform(from), yMap.transform(to))));
    }
}

} // namespace Corvale_Qt
