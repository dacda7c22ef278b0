// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/CellPicture_p.h"
#include "corvale_qt/beam/profile/SpectrogramItems_p.h"
#include "corvale_qt/detector/DetectorLayout.h"

#include <qwt_scale_map.h>

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

CellEdges::CellEdges(const QVector<double> &positions,
                     const QVector<double> &widths,
                     const QVector<double> &intervals)
{
    const int count = positions.size();
    const bool falling = count > 1 && positions.first() > positions.last();
    for (int i = 0; i < count; ++i) {
        m_cells.push_back(falling ? count - 1 - i : i);
        const double width = widths[i] > 0 ? widths[i] : intervals[i];
        m_lower.push_back(positions[i] - width / 2);
        m_upper.push_back(positions[i] + width / 2);
    }
    // Cells that touch each other meet halfway between their positions, not half a width beside them.
    for (int i = 0; i + 1 < count; ++i) {
        const auto touches = [&](int cell) {
            return !(widths[cell] > 0 && widths[cell] < intervals[cell] * (1 - 1e-9));
        };
        if (!touches(i) || !touches(i + 1))
            continue;
        const double middle = (positions[i] + positions[i + 1]) / 2;
        (falling ? m_lower : m_upper)[size_t(i)] = middle;
        (falling ? m_upper : m_lower)[size_t(i) + 1] = middle;
    }
}

int CellEdges::cellAt(double place) const
{
    const auto after =
        std::upper_bound(m_cells.begin(), m_cells.end(), place, [this](double value, int cell) {
            return value < lower(cell);
        });
    if (after == m_cells.begin())
        return -1;
    const int cell = *(after - 1);
    return place <= upper(cell) ? cell : -1;
}

std::vector<int>
CellEdges::cellsOfPixels(const QwtScaleMap &map, double first, double step, int pixels) const
{
    std::vector<int> cells(size_t(std::max(pixels, 0)), -1);
    for (int pixel = 0; pixel < pixels; ++pixel)
        cells[size_t(pixel)] = cellAt(map.invTransform(first + (pixel + 0.5) * step));
    for (int cell = 0; cell < count(); ++cell) {
        const double pixel = std::floor((map.transform(centre(cell)) - first) / step);
        if (pixel >= 0 && pixel < pixels && cells[size_t(pixel)] < 0)
            cells[size_t(pixel)] = cell;
    }
    return cells;
}

std::vector<int> CellEdges::narrowCells() const
{
    std::vector<double> widths;
    widths.reserve(size_t(count()));
    for (int cell = 0; cell < count(); ++cell)
        widths.push_back(upper(cell) - lower(cell));
    if (widths.empty())
        return {};
    std::vector<double> sorted = widths;
    const auto middle = sorted.begin() + std::ptrdiff_t(sorted.size() / 2);
    std::nth_element(sorted.begin(), middle, sorted.end());
    std::vector<int> narrow;
    for (int cell = 0; cell < count(); ++cell) {
        if (widths[size_t(cell)] < *middle / 2)
            narrow.push_back(cell);
    }
    return narrow;
}

CellPicture::CellPicture()
{
    setZ(RasterLayer);
    setVisible(false);
}

void CellPicture::setCells(const CellEdges &columns, const CellEdges &rows)
{
    m_columns = columns;
    m_rows = rows;
    m_values.clear();
    setVisible(false);
}

void CellPicture::setValues(const QVector<double> &values)
{
    if (values.size() != m_columns.count() * m_rows.count())
        return;
    m_values = values;
    setVisible(true);
    itemChanged();
}

void CellPicture::setColors(QwtColorMap *map, const QwtInterval &range)
{
    m_map.reset(map);
    m_range = range;
    itemChanged();
}

void CellPicture::setSmoothing(bool smoothing)
{
    m_smoothing = smoothing;
    itemChanged();
}

double CellPicture::valueAt(double x, double y) const
{
    const int column = m_columns.cellAt(x), row = m_rows.cellAt(y);
    const int cell = row * m_columns.count() + column;
    return column >= 0 && row >= 0 && cell < m_values.size() ? m_values[cell] : std::nan("");
}

namespace {

//! Returns the cell beside \a cell on the side of \a place, and how much of the way there the place is.
std::pair<int, double> neighbour(const CellEdges &edges, int cell, double place)
{
    const double own = edges.centre(cell);
    for (const int other : {cell - 1, cell + 1}) {
        if (other < 0 || other >= edges.count())
            continue;
        const double way = (place - own) / (edges.centre(other) - own);
        if (way > 0)
            return {other, std::min(way, 1.0)};
    }
    return {cell, 0.0};
}

} // namespace

double CellPicture::blended(double x, double y, int column, int row) const
{
    const auto [otherColumn, right] = neighbour(m_columns, column, x);
    const auto [otherRow, up] = neighbour(m_rows, row, y);
    const int width = m_columns.count();
    const double own = m_values[row * width + column];
    const auto value = [&](int r, int c) {
        const double number = m_values[r * width + c];
        return std::isnan(number) ? own : number;
    };
    const double here = own + right * (value(row, otherColumn) - own);
    const double first = value(otherRow, column);
    const double there = first + right * (value(otherRow, otherColumn) - first);
    return here + up * (there - here);
}

void CellPicture::draw(QPainter *painter,
                       const QwtScaleMap &xMap,
                       const QwtScaleMap &yMap,
                       const QRectF &canvasRect) const
{
    if (!m_map || m_values.isEmpty() || !(xMap.pDist() > 0) || !(yMap.pDist() > 0))
        return;
    const double ratio = painter->device()->devicePixelRatioF();
    const QSize size = (canvasRect.size() * ratio).toSize();
    if (size.isEmpty())
        return;
    const double step = 1 / ratio;
    const auto columns = m_columns.cellsOfPixels(xMap, canvasRect.left(), step, size.width());
    const auto rows = m_rows.cellsOfPixels(yMap, canvasRect.top(), step, size.height());
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 0; y < size.height(); ++y) {
        const int row = rows[size_t(y)];
        if (row < 0)
            continue;
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        if (!m_smoothing && y > 0 && rows[size_t(y) - 1] == row) {
            std::copy_n(reinterpret_cast<const QRgb *>(image.constScanLine(y - 1)),
                        size.width(),
                        line);
            continue;
        }
        const double place = yMap.invTransform(canvasRect.top() + (y + 0.5) * step);
        int before = -1;
        for (int x = 0; x < size.width(); ++x) {
            const int column = columns[size_t(x)];
            if (column < 0)
                continue;
            const double own = m_values[row * m_columns.count() + column];
            if (m_smoothing && !std::isnan(own))
                line[x] =
                    m_map->rgb(m_range,
                               blended(xMap.invTransform(canvasRect.left() + (x + 0.5) * step),
                                       place,
                                       column,
                                       row));
            else
                line[x] = column == before && x > 0 ? line[x - 1] : m_map->rgb(m_range, own);
            before = column;
        }
    }
    image.setDevicePixelRatio(ratio);
    painter->drawImage(canvasRect.topLeft(), image);
}

CellEdges cellEdges(const DetectorLayout &layout, bool alongX)
{
    const auto axis = alongX ? DetectorLayout::Axis::X : DetectorLayout::Axis::Y;
    if (layout.cells(axis) == 0)
        return CellEdges({0.5}, {1.0}, {1.0});
    return CellEdges(layout.positions(axis), layout.widths(axis), layout.intervals(axis));
}

} // namespace Corvale_Qt
