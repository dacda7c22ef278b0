// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/SeriesSource_p.h"

namespace Corvale_Qt {

/*! A series over columns that belong to no model, for views that store samples themselves. It is drawn as fast as the
    series of a model. It does not own the columns, which must not change while the series is in use. */
class ColumnSeries : public QwtSeriesData<QPointF>
{
public:
    //! Constructs a series of rows 1 to \a rows of a \a column; x is column 0.
    ColumnSeries(const LibraryBulkData &columns, int column, int rows);

    size_t size() const override;
    QPointF sample(size_t i) const override;
    //! Returns the rectangle around the samples whose x and y are finite.
    QRectF boundingRect() const override;

    //! Sets the divisor of y; a scale that is not greater than 0 is ignored.
    void setScale(double scale);
    //! Returns what the series reads.
    SeriesSource source() const { return m_source; }

private:
    SeriesSource m_source;
    int m_rows;
};

} // namespace Corvale_Qt
