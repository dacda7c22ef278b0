// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/ColorTable_p.h"

#include <qwt_color_map.h>
#include <qwt_plot_item.h>

#include <QImage>
#include <QVector>

#include <memory>
#include <vector>

namespace Corvale_Qt {

class DetectorLayout;
//! Where the cells of a detector lie on a canvas, for each column and each row of pixels.
struct PixelPlaces;

//! The cells of a detector along one axis, by rising position.
class CellEdges
{
public:
    CellEdges() = default;
    //! Takes the cells' places and widths. Cells without a width, as wires have, are as wide as the part they stand for.
    CellEdges(const QVector<double> &positions,
              const QVector<double> &widths,
              const QVector<double> &intervals);

    int count() const { return int(m_cells.size()); }
    //! Returns the index of the cell at a place; -1 if there is none.
    int cellAt(double place) const;
    double lower(int cell) const { return m_lower[size_t(cell)]; }
    double upper(int cell) const { return m_upper[size_t(cell)]; }
    double centre(int cell) const { return (lower(cell) + upper(cell)) / 2; }
    //! Returns the cell of each of \a pixels; the cell in whose middle a pixel lies wins, so that narrow cells are seen.
    std::vector<int>
    cellsOfPixels(const QwtScaleMap &map, double first, double step, int pixels) const;
    //! Returns cells that are narrower than half of the usual (the median) width.
    std::vector<int> narrowCells() const;

private:
    std::vector<int> m_cells; //!< by rising position
    std::vector<double> m_lower; //!< by index of the cell
    std::vector<double> m_upper;
};

/*! Paints each cell of a detector at its place and in its width. Places where no cell is, or whose value is NaN, stay
    empty. */
class CellPicture : public QwtPlotItem
{
public:
    CellPicture();

    //! Takes the cells of a detector; an axis that it does not have is one cell from 0 to 1.
    void setCells(const CellEdges &columns, const CellEdges &rows);
    //! Shows a value for each cell, row after row. Ignored unless their number is right.
    void setValues(const QVector<double> &values);
    //! Shows the colours of \a map over a range. Takes the ownership of the map.
    void setColors(QwtColorMap *map, const QwtInterval &range);
    //! Blends the colours between the middles of the cells, or paints each cell in one colour.
    void setSmoothing(bool smoothing);

    const CellEdges &columns() const { return m_columns; }
    const CellEdges &rows() const { return m_rows; }
    //! Returns the value at a place; NaN if there is none.
    double valueAt(double x, double y) const;

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    void drawBand(const PixelPlaces &pixels, int top, int lines) const;
    void lookUp(const double *values, int count, QRgb *colors) const;

    CellEdges m_columns;
    CellEdges m_rows;
    QVector<double> m_values;
    std::unique_ptr<QwtColorMap> m_map;
    QwtInterval m_range{0, 1};
    ColorTable m_table; //!< of the map, if it is a linear one
    bool m_isTabled = false;
    bool m_smoothing = false;
    mutable QImage m_image; //!< the band drawn last, whose memory the next one uses
};

//! Returns the edges of a detector's cells along x or, if \a alongX is false, along y.
CellEdges cellEdges(const DetectorLayout &layout, bool alongX);

} // namespace Corvale_Qt
