// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/SampleXKey_p.h"

#include <QVector>

namespace Corvale_Qt {

struct ColumnSpans;

//! Finds which rows fall on which pixel column, for x that only rises.
class PixelColumns
{
public:
    //! The rows of a pixel column, up to those of the next one.
    struct Edge
    {
        int column; //!< x of the pixel column
        int first; //!< its first row, counted from the first row of the spans
    };

    /*! Finds the pixel columns \a left to \a right of the rows of \a x, and one row beyond either edge so that lines reach the
        border. It searches for each column's first row instead of reading all rows.

        \a version is that of x in RVXBulkPlotData::xVersion(). The result of the last call is kept for equal arguments, since
        all channels of a chart need the same columns. */
    void find(const ColumnSpans &x, quint64 version, const QwtScaleMap &map, int left, int right);

    //! Returns the columns that have rows, in the order of the rows.
    const QVector<Edge> &edges() const { return m_edges; }
    //! Returns one past the last row of the last column.
    int end() const { return m_end; }

private:
    SampleXKey m_key;
    int m_left = 0;
    int m_right = 0;
    QVector<Edge> m_edges;
    int m_end = 0;
};

} // namespace Corvale_Qt
