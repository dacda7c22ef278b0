// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/DenseCurve_p.h"
#include "corvale_qt/plot/PixelGrid_p.h"

#include <QVector>

class QwtScaleMap;

namespace Corvale_Qt {

class ColumnRows;
class PixelRuns;
class SeriesSpans;

//! What one curve reads in each pixel column, kept from frame to frame as long as the rows of the column stay.
class CurveColumns
{
public:
    //! Returns whether changes of the samples can be noticed.
    static bool canFollow(const SeriesSpans &samples);

    /*! Reads the columns of \a rows, whose last update was for the x of \a samples, that have changed since the last call. Returns
        false if all were read because the samples are not those of the last call. */
    bool update(const SeriesSpans &samples, const ColumnRows &rows);

    //! How a curve becomes runs, in the coordinates of a painter.
    struct Look
    {
        const QwtScaleMap &yMap;
        const QVector<int> &breaks; //!< those of the last update of the rows
        qint64 columnAtZero; //!< the column at x = 0 of the painter
    };
    /*! Adds the columns \a span, with those that lines lead from and to. The last call of update() must have been for these samples
        and rows. */
    void addTo(PixelRuns &runs,
               const SeriesSpans &samples,
               const ColumnRows &rows,
               const ColumnSpan &span,
               const Look &look) const;

private:
    quint64 m_content = 0; // of the ring
    qint64 m_offset = 0; // from the index of a row in the ring of x to that in the ring of y
    quint64 m_stamp = 0; // the last update of the rows that was followed
    QVector<ColumnReadings> m_readings; // by the places of the columns
};

} // namespace Corvale_Qt
