// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <qwt_series_data.h>

#include <QPointF>

class QAbstractItemModel;

namespace Corvale_Qt {

class PlotColumns;
class RVXAbstractPlotDataModel;
struct SeriesColumns;

/*! One column of a plot model as a series of points for a QwtPlotCurve; nothing is copied. x is column 0, y the
    column divided by scale(). The model is not owned and must outlive the series.

    \code
    curve->setSamples(new RVXSeriesData(model, 1, 1, -1)); // channel 1, every sample
    \endcode */
class CORVALE_QT_EXPORT RVXSeriesData : public QwtSeriesData<QPointF>
{
public:
    /*! Rows \a startRow (1 is the oldest sample) to \a endRow, both inclusive. Any \a endRow that the model does
        not have, by custom -1, stands for "to the last row", however many there will be. */
    RVXSeriesData(const RVXAbstractPlotDataModel &model, int column, int startRow, int endRow);
    RVXSeriesData(const RVXSeriesData &other);
    ~RVXSeriesData() override;

    size_t size() const override;
    QPointF sample(size_t i) const override;
    /*! Around the samples whose x and y are finite. It is kept once it has a width and a height, and then does
        not follow rows that come later: make a new series, or call setScale(), for that. */
    QRectF boundingRect() const override;

    //! Divisor of y; what is not greater than 0 is ignored.
    void setScale(double scale);

protected:
    const RVXAbstractPlotDataModel *model() const;
    int column() const;
    int startRow() const;
    double scale() const;

private:
    friend struct SeriesColumns;
    QRectF boundsOfSamples(size_t count) const;
    void readPoints(size_t first, int count, double *x, double *y) const;

    const RVXAbstractPlotDataModel *m_model;
    int m_column;
    int m_startRow;
    int m_endRow;
    double m_scale = 1.0;
    // Found once: asking per point costs more than the point.
    const QAbstractItemModel *m_items;
    const PlotColumns *m_columns;
};

} // namespace Corvale_Qt
