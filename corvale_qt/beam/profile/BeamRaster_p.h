// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/ColorTable_p.h"

#include <qwt_plot_spectrogram.h>

class QwtMatrixRasterData;

namespace Corvale_Qt {

/*! The intensity raster. It is hidden until it is given values.

    When smoothed, its picture equals the base class's to the pixel, but is faster: what depends only on a row or a
    column is computed once for each of them instead of once for each pixel. */
class BeamRaster : public QwtPlotSpectrogram
{
public:
    BeamRaster();

    //! Makes a raster of \a size x \a size cells without values.
    void setGrid(int size);
    //! Shows \a values, row after row from the top. Ignored unless there is one for each cell.
    void setValues(const QVector<double> &values);
    //! Returns the values that are shown, row after row from the top.
    QVector<double> values() const;
    //! Returns the number of cells on each side.
    int size() const { return m_size; }

    void setSmoothing(bool smoothing);
    //! Makes the colours run from 0 to \a max, which must be above 0.
    void setColorRange(double max);

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

protected:
    QImage renderImage(const QwtScaleMap &xMap,
                       const QwtScaleMap &yMap,
                       const QRectF &area,
                       const QSize &imageSize) const override;

private:
    QwtMatrixRasterData *m_data = nullptr; // belongs to the base class
    int m_size = 0;
    double m_max = 1;
    bool m_smoothing = false;
    // Kept from one picture to the next.
    mutable ColorTable m_table;
};

} // namespace Corvale_Qt
