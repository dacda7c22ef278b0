// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/CellPicture_p.h"
#include "corvale_qt/beam/profile/SpectrogramItems_p.h"
#include "corvale_qt/detector/DetectorLayout.h"
#include "corvale_qt/numerics/WideRegisters_p.h"

#include <qwt_scale_map.h>

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <typeinfo>

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
    // A class derived from it, as that of the logarithm, has colours of its own.
    const auto *linear = dynamic_cast<const QwtLinearColorMap *>(map);
    m_isTabled = linear && typeid(*linear) == typeid(QwtLinearColorMap);
    if (m_isTabled)
        m_table.setMap(*linear);
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

struct PixelPlaces
{
    //! The cell of a column or row of pixels, and the cell beside it on the side of the pixels.
    struct Place
    {
        int cell = -1; //!< -1 where no cell is
        int other = -1;
        double way = 0; //!< how much of the way to the other cell the pixels are
    };
    std::vector<Place> columns;
    std::vector<Place> rows;

    bool areAllCells() const
    {
        const auto isCell = [](const Place &place) {
            return place.cell >= 0;
        };
        return std::all_of(columns.begin(), columns.end(), isCell)
            && std::all_of(rows.begin(), rows.end(), isCell);
    }
};

namespace {

using Place = PixelPlaces::Place;

Place blendedPlace(const CellEdges &edges, int cell, double place)
{
    const double own = edges.centre(cell);
    for (const int other : {cell - 1, cell + 1}) {
        if (other < 0 || other >= edges.count())
            continue;
        const double way = (place - own) / (edges.centre(other) - own);
        if (way > 0)
            return {cell, other, std::min(way, 1.0)};
    }
    return {cell, cell, 0.0};
}

std::vector<Place>
placesOf(const CellEdges &edges, const QwtScaleMap &map, double first, double step, int pixels)
{
    std::vector<Place> places;
    places.reserve(size_t(pixels));
    for (const int cell : edges.cellsOfPixels(map, first, step, pixels)) {
        const double middle = first + (double(places.size()) + 0.5) * step;
        places.push_back(cell < 0 ? Place() : blendedPlace(edges, cell, map.invTransform(middle)));
    }
    return places;
}

/*! Returns whether a picture at a place of the canvas can be copied to pixels of the device as it is, so that parts of it meet. */
bool isAtWholePixels(const QPainter &painter, const QPointF &place)
{
    const double ratio = painter.device()->devicePixelRatioF();
    const auto isWhole = [](double number) {
        return number == std::floor(number);
    };
    return painter.paintEngine()->type() == QPaintEngine::Raster
        && painter.worldTransform().type() == QTransform::TxNone && isWhole(ratio)
        && isWhole(ratio * place.x()) && isWhole(ratio * place.y());
}

//! Returns the value between four cells; a cell without a value counts as the one that the place is in.
double blended(const double *ownRow, const double *otherRow, const Place &column, double up)
{
    const double own = ownRow[column.cell];
    const auto value = [own](double number) {
        return std::isnan(number) ? own : number;
    };
    const double here = own + column.way * (value(ownRow[column.other]) - own);
    const double first = value(otherRow[column.cell]);
    const double there = first + column.way * (value(otherRow[column.other]) - first);
    return here + up * (there - here);
}

} // namespace

//! Writes the colours of \a count values; those of NaN are transparent.
void CellPicture::lookUp(const double *values, int count, QRgb *colors) const
{
    if (m_isTabled) {
        m_table.lookUp(m_range, values, count, colors);
        return;
    }
    std::transform(values, values + count, colors, [this](double value) {
        return m_map->rgb(m_range, value);
    });
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
    const PixelPlaces pixels{placesOf(m_columns, xMap, canvasRect.left(), step, size.width()),
                             placesOf(m_rows, yMap, canvasRect.top(), step, size.height())};
    // An opaque picture is copied to the canvas without blending.
    const bool hidesAll = m_isTabled && m_table.isOpaque() && m_range.width() > 0
        && pixels.areAllCells() && std::none_of(m_values.begin(), m_values.end(), [](double value) {
                              return std::isnan(value);
                          });
    const QImage::Format format = hidesAll ? QImage::Format_RGB32 : QImage::Format_ARGB32;
    // A band stays in the processor's cache until the painter has copied it.
    constexpr int linesInCache = 64;
    const bool inBands = isAtWholePixels(*painter, canvasRect.topLeft());
    const int height = inBands ? std::min(linesInCache, size.height()) : size.height();
    // Megabytes of new memory would cost more than the picture.
    if (m_image.size() != QSize(size.width(), height) || m_image.format() != format)
        m_image = QImage(size.width(), height, format);
    painter->save();
    painter->scale(step, step); // the painter copies pixels only if it knows of no ratio
    for (int top = 0; top < size.height(); top += height) {
        const int lines = std::min(height, size.height() - top);
        drawBand(pixels, top, lines);
        painter->drawImage(ratio * canvasRect.topLeft() + QPointF(0, top),
                           m_image,
                           QRect(0, 0, size.width(), lines));
    }
    painter->restore();
}

//! Draws some rows of pixels from the first line of the image on.
void CellPicture::drawBand(const PixelPlaces &pixels, int top, int lines) const
{
    clearWideRegisters();
    std::vector<double> values(pixels.columns.size());
    std::vector<QRgb> colors(size_t(m_columns.count()));
    const int width = m_image.width();
    const Place *const rows = pixels.rows.data() + top;
    for (int y = 0; y < lines; ++y) {
        const Place &row = rows[y];
        auto *line = reinterpret_cast<QRgb *>(m_image.scanLine(y));
        const bool repeats = y > 0 && rows[y - 1].cell == row.cell;
        if (repeats && (row.cell < 0 || !m_smoothing)) {
            std::copy_n(reinterpret_cast<const QRgb *>(m_image.constScanLine(y - 1)), width, line);
            continue;
        }
        const std::ptrdiff_t cells = m_columns.count();
        const double *own = m_values.constData() + std::max(row.cell, 0) * cells;
        const double *other = m_values.constData() + std::max(row.other, 0) * cells;
        if (row.cell < 0) {
            std::fill_n(line, width, 0U);
        } else if (m_smoothing) {
            std::transform(pixels.columns.begin(),
                           pixels.columns.end(),
                           values.begin(),
                           [&](const Place &column) {
                               if (column.cell < 0 || std::isnan(own[column.cell]))
                                   return std::nan("");
                               return blended(own, other, column, row.way);
                           });
            lookUp(values.data(), width, line);
        } else {
            lookUp(own, m_columns.count(), colors.data());
            std::transform(pixels.columns.begin(),
                           pixels.columns.end(),
                           line,
                           [&](const Place &column) {
                               return column.cell < 0 ? 0U : colors[size_t(column.cell)];
                           });
        }
    }
}

CellEdges cellEdges(const DetectorLayout &layout, bool alongX)
{
    const auto axis = alongX ? DetectorLayout::Axis::X : DetectorLayout::Axis::Y;
    if (layout.cells(axis) == 0)
        return CellEdges({0.5}, {1.0}, {1.0});
    return CellEdges(layout.positions(axis), layout.widths(axis), layout.intervals(axis));
}

} // namespace Corvale_Qt
