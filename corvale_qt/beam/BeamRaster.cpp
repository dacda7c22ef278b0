// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/BeamRaster_p.h"

#include <qwt_color_map.h>
#include <qwt_matrix_raster_data.h>
#include <qwt_scale_map.h>

#include <QImage>
#include <QVector>

#include <limits>

namespace Corvale_Qt {

namespace {

//! Where one pixel row or column lies between the centres of two cells.
struct Blend
{
    bool inside = false;
    int low = 0;
    int high = 0;
    double weight = 0; //!< of the lower cell
};

//! The operations, and their order, are those of QwtMatrixRasterData::value.
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

//! One line of pixels, all in the rows that \a row blends.
void renderLine(QRgb *line,
                const QVector<Blend> &columns,
                const Blend &row,
                const QVector<double> &values,
                int cells,
                const QwtLinearColorMap &colors,
                const QwtInterval &range)
{
    const double *upper = values.constData() + row.low * cells;
    const double *lower = values.constData() + row.high * cells;
    const QRgb outside = colors.rgb(range, std::numeric_limits<double>::quiet_NaN());
    for (const Blend &column : columns) {
        if (!row.inside || !column.inside) {
            *line++ = outside;
            continue;
        }
        const double above =
            column.weight * upper[column.low] + (1.0 - column.weight) * upper[column.high];
        const double below =
            column.weight * lower[column.low] + (1.0 - column.weight) * lower[column.high];
        *line++ = colors.rgb(range, row.weight * above + (1.0 - row.weight) * below);
    }
}

} // namespace

BeamRaster::BeamRaster()
{
    setVisible(false);
}

void BeamRaster::setGrid(int size)
{
    // Without values the matrix must not be painted: Qwt would divide by its size.
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
    // On a canvas of one pixel every position is NaN, with which Qwt would look up a cell.
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
    const QwtInterval range = m_data->interval(Qt::ZAxis);
    const QVector<double> values = m_data->valueMatrix();
    const auto columns = blends(xMap, imageSize.width(), m_data->interval(Qt::XAxis), m_size);
    const auto rows = blends(yMap, imageSize.height(), m_data->interval(Qt::YAxis), m_size);
    QImage image(imageSize, QImage::Format_ARGB32);
    for (int y = 0; y < imageSize.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        renderLine(line, columns, rows[y], values, m_size, *colors, range);
    }
    return image;
}

} // namespace Corvale_Qt
