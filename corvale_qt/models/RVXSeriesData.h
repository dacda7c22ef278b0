// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <qwt_series_data.h>

#include <QPointF>

class QAbstractItemModel;

namespace Corvale_Qt {

class RVXAbstractPlotDataModel;
class RVXBulkPlotData;
struct SeriesSource;

/*! One column of a plot model as a series of points for a QwtPlotCurve. x is column 0, y is the column divided by
    scale(). Samples are not copied. The series does not own the model, which must outlive it.

    \code
    curve->setSamples(new RVXSeriesData(model, 1, 1, -1)); // channel 1, every sample
    \endcode */
class CORVALE_QT_EXPORT RVXSeriesData : public QwtSeriesData<QPointF>
{
public:
    /*! Constructs a series of rows \a startRow (1 is the oldest sample) to \a endRow, both included. An \a endRow that the
        model does not have (-1 by convention) means the last row; the series then grows with the model. */
    RVXSeriesData(const RVXAbstractPlotDataModel &model, int column, int startRow, int endRow);
    //! Constructs a series over the same rows of the same model, with the same scale.
    RVXSeriesData(const RVXSeriesData &other);
    ~RVXSeriesData() override;

    size_t size() const override;
    QPointF sample(size_t i) const override;
    /*! Returns the rectangle around the samples whose x and y are finite; invalid without samples. Once it has a width and
        a height it is cached and ignores rows that come later, until setScale() is called. */
    QRectF boundingRect() const override;

    //! Sets the divisor of y, which is 1 at first. A \a scale that is not greater than 0 is ignored.
    void setScale(double scale);

protected:
    //! Returns the model that the series reads.
    const RVXAbstractPlotDataModel *model() const;
    //! Returns the column of y.
    int column() const;
    //! Returns the row of the first point.
    int startRow() const;
    //! Returns the divisor of y.
    double scale() const;

private:
    friend struct SeriesSource;

    const RVXAbstractPlotDataModel *m_model;
    int m_column;
    int m_startRow;
    int m_endRow;
    double m_scale = 1.0;
    // Found once, because finding them for each point costs more than reading the point.
    const QAbstractItemModel *m_items;
    const RVXBulkPlotData *m_bulk;
};

} // namespace Corvale_Qt
