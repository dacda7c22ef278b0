// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/ColorTable_p.h"

#include <qwt_plot_spectrogram.h>

class QwtMatrixRasterData;

namespace Corvale_Qt {

/*! The intensity raster. Paints nothing until it was given values.

    Smoothed, its picture equals the base class's to the pixel; what depends on a row or a column alone is worked
    out once for it instead of once a pixel. */
class BeamRaster : public QwtPlotSpectrogram
{
public:
    BeamRaster();

    //! A square of \a size cells without values.
    void setGrid(int size);
    //! Row after row from the top; as many as the grid has cells.
    void setValues(const QVector<double> &values);
    QVector<double> values() const;
    int size() const { return m_size; }

    void setSmoothing(bool smoothing);
    //! Colours run from 0 to \a max, which is above 0.
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
    // What is left of the last picture, for the next one.
    mutable ColorTable m_table;
};

} // namespace Corvale_Qt
