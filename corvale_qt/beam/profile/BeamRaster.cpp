// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/BeamRaster_p.h"
#include "corvale_qt/numerics/WideRegisters_p.h"

#include <qwt_matrix_raster_data.h>
#include <qwt_scale_map.h>

#include <QImage>
#include <QVector>

#include <algorithm>
#include <cmath>
#include <vector>

namespace Corvale_Qt {

namespace {

//! Position of a pixel row or column between the centres of two cells.
struct Blend
{
    bool inside = false;
    int low = 0;
    int high = 0;
    double weight = 0; //!< weight of the lower cell
};

//! Returns the blend of each pixel. The operations and their order are those of QwtMatrixRasterData::value().
QVector<Blend> blends(const QwtScaleMap &map, int pixels, const QwtInterval &interval, int cells)
{
    const double width = interval.width() / cells;
    QVector<Blend> result(pixels);
    for (int pixel = 0; pixel < pixels; ++pixel) {
        const double position = map.invTransform(pixel);
        Blend &blend = result[pixel];
        blend.inside = interval.contains(position);
        if (!blend.inside)
            continue;
        const int low = qRound((position - interval.minValue()) / width) - 1;
        const int high = low + 1;
        blend.low = low < 0 ? high : low;
        blend.high = low >= 0 && high >= cells ? low : high;
        const double centre = interval.minValue() + (blend.high + 0.5) * width;
        blend.weight = (centre - position) / width;
    }
    return result;
}

//! Blends one row of cells into one value for each column of pixels.
void blendCells(std::vector<double> &line, const QVector<Blend> &columns, const double *cells)
{
    for (int i = 0; i < columns.size(); ++i) {
        const Blend &column = columns[i];
        line[size_t(i)] =
            column.weight * cells[column.low] + (1.0 - column.weight) * cells[column.high];
    }
}

/*! Renders the smoothed picture line by line. Lines between the same two rows of cells share the blended rows. */
class SmoothPicture
{
public:
    SmoothPicture(const QVector<Blend> &columns, const QVector<double> &values, int cells)
        : m_columns(columns)
        , m_values(values)
        , m_cells(cells)
        , m_above(size_t(columns.size()))
        , m_below(m_above)
        , m_line(m_above)
    {
        const auto isInside = [](const Blend &blend) {
            return blend.inside;
        };
        m_left = int(std::find_if(columns.begin(), columns.end(), isInside) - columns.begin());
        m_right = int(std::find_if_not(columns.begin() + m_left, columns.end(), isInside)
                      - columns.begin());
    }

    //! Renders one line of pixels. Pixels outside the cells stay as they are.
    void
    renderLine(QRgb *line, const Blend &row, const ColorTable &colors, const QwtInterval &range)
    {
        if (!row.inside)
            return;
        choose(row);
        for (size_t i = 0; i < m_line.size(); ++i)
            m_line[i] = row.weight * m_above[i] + (1.0 - row.weight) * m_below[i];
        colors.lookUp(range, m_line.data() + m_left, m_right - m_left, line + m_left);
    }

private:
    void choose(const Blend &row)
    {
        if (row.low == m_low && row.high == m_high)
            return;
        m_low = row.low;
        m_high = row.high;
        blendCells(m_above, m_columns, m_values.constData() + m_low * m_cells);
        blendCells(m_below, m_columns, m_values.constData() + m_high * m_cells);
    }

    const QVector<Blend> &m_columns;
    const QVector<double> &m_values;
    const std::ptrdiff_t m_cells;
    //! First column inside the cells, and the first one past them; a scale map is monotonic.
    int m_left = 0;
    int m_right = 0;
    int m_low = -1;
    int m_high = -1;
    std::vector<double> m_above;
    std::vector<double> m_below;
    std::vector<double> m_line;
};

bool areAllInside(const QVector<Blend> &blends)
{
    return std::all_of(blends.begin(), blends.end(), [](const Blend &blend) {
        return blend.inside;
    });
}

bool areAllFinite(const QVector<double> &values)
{
    return std::all_of(values.begin(), values.end(), [](double value) {
        return std::isfinite(value);
    });
}

} // namespace

BeamRaster::BeamRaster()
{
    setVisible(false);
}

void BeamRaster::setGrid(int size)
{
    // A matrix without values must not be painted: Qwt would divide by its size.
    setVisible(false);
    m_size = size;
    m_data = new QwtMatrixRasterData;
    m_data->setInterval(Qt::XAxis, QwtInterval(0, size));
    m_data->setInterval(Qt::YAxis, QwtInterval(0, size));
    m_data->setInterval(Qt::ZAxis, QwtInterval(0, m_max));
    setData(m_data);
    setSmoothing(m_smoothing);
}

void BeamRaster::setValues(const QVector<double> &values)
{
    if (!m_data || values.isEmpty() || values.size() != m_size * m_size)
        return;
    m_data->setValueMatrix(values, m_size);
    invalidateCache();
    setVisible(true);
    itemChanged();
}

QVector<double> BeamRaster::values() const
{
    return m_data ? m_data->valueMatrix() : QVector<double>();
}

void BeamRaster::setSmoothing(bool smoothing)
{
    m_smoothing = smoothing;
    if (!m_data)
        return;
    m_data->setResampleMode(smoothing ? QwtMatrixRasterData::BilinearInterpolation
                                      : QwtMatrixRasterData::NearestNeighbour);
    invalidateCache();
    itemChanged();
}

void BeamRaster::setColorRange(double max)
{
    m_max = max;
    if (!m_data)
        return;
    m_data->setInterval(Qt::ZAxis, QwtInterval(0, max));
    invalidateCache();
    itemChanged();
}

void BeamRaster::draw(QPainter *painter,
                      const QwtScaleMap &xMap,
                      const QwtScaleMap &yMap,
                      const QRectF &canvasRect) const
{
    // On a canvas of one pixel every position is NaN, and Qwt would use it as a cell index.
    if (xMap.pDist() > 0 && yMap.pDist() > 0)
        QwtPlotSpectrogram::draw(painter, xMap, yMap, canvasRect);
}

QImage BeamRaster::renderImage(const QwtScaleMap &xMap,
                               const QwtScaleMap &yMap,
                               const QRectF &area,
                               const QSize &imageSize) const
{
    const auto *colors = dynamic_cast<const QwtLinearColorMap *>(colorMap());
    if (!m_smoothing || !m_data || !colors || imageSize.isEmpty())
        return QwtPlotSpectrogram::renderImage(xMap, yMap, area, imageSize);
    const QVector<double> values = m_data->valueMatrix();
    const auto columns = blends(xMap, imageSize.width(), m_data->interval(Qt::XAxis), m_size);
    const auto rows = blends(yMap, imageSize.height(), m_data->interval(Qt::YAxis), m_size);
    const QwtInterval range = m_data->interval(Qt::ZAxis);
    m_table.setMap(*colors);
    // An opaque picture is copied to the canvas without blending.
    const bool hidesAll = m_table.isOpaque() && range.width() > 0.0 && areAllInside(columns)
        && areAllInside(rows) && areAllFinite(values);
    QImage image(imageSize, hidesAll ? QImage::Format_RGB32 : QImage::Format_ARGB32);
    if (!hidesAll)
        image.fill(Qt::transparent);
    clearWideRegisters();
    SmoothPicture picture(columns, values, m_size);
    for (int y = 0; y < imageSize.height(); ++y)
        picture.renderLine(reinterpret_cast<QRgb *>(image.scanLine(y)), rows[y], m_table, range);
    return image;
}

} // namespace Corvale_Qt
