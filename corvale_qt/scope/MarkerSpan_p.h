// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "corvale_qt/scope/SampleRows_p.h"
#include "corvale_qt/scope/SpanIntegral_p.h"

#include <QVector>

#include <array>

namespace Corvale_Qt {

class PlotDataReader;
class TimeGaps;

/*! The statistics of the samples between two markers. They cost a look at each sample, so they are kept while the samples stay
    as they are; the rows move along with those of the model. */
class MarkerSpan
{
public:
    /*! Returns the statistics of a column over \a rows of a reader. \a unitScale is the factor of the unit in which the reader
        gives values: after a change of the unit they are computed anew. */
    const MarkerStatistics &
    of(const PlotDataReader &reader, int column, RowRange rows, double unitScale);

    //! Returns the integral of a column over \a rows of a reader, across none of \a gaps.
    const SpanIntegral &integralOf(const PlotDataReader &reader,
                                   int column,
                                   RowRange rows,
                                   double unitScale,
                                   const TimeGaps &gaps);

    //! Makes the next request compute the statistics again.
    void forget() { m_isKnown = false; }
    //! Follows an insertion of rows that begins at \a start.
    void rowsInserted(int start);
    //! Follows the removal of rows \a start to \a end.
    void rowsRemoved(int start, int end);
    //! Follows a change of cells in rows \a top to \a bottom.
    void cellsChanged(int top, int bottom);

private:
    bool hasGaps(const TimeGaps &gaps) const;

    bool m_isKnown = false;
    int m_column = 0;
    RowRange m_rows;
    double m_unitScale = 1.0;
    std::array<double, 4> m_ends{}; //!< time and value of the first and the last row
    MarkerStatistics m_statistics;
    bool m_isIntegralKnown = false; //!< for the samples of the statistics
    QVector<int> m_gaps; //!< in the integral; counted from the first row
    SpanIntegral m_integral;
};

} // namespace Corvale_Qt
