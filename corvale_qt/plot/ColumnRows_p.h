// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/PixelGrid_p.h"

#include <QVector>

namespace Corvale_Qt {

class SeriesSpans;

/*! Which rows fall on which pixel column of a grid, for all curves of a chart, and what of that has changed from one update to the
    next. So a curve reads only the rows of columns that are new or have got rows, and only these are drawn. */
class ColumnRows
{
public:
    //! A pixel column that has rows.
    struct Column
    {
        qint64 number; //!< in the grid
        qint64 first; //!< index of its first row in the ring of x
        qint64 end; //!< one past the index of its last row
        quint64 breaks; //!< tells the breaks between its rows from others; 0 if there are none
        quint64 stamp; //!< the update since which the column is as it is
        int place; //!< in an array of places(); no other column of this update has it
    };

    /*! Follows x of \a samples, which must rise, and finds the rows of the columns \a shown, and one row beyond either side, so
        that lines reach the edges. \a breaks are the samples to which no line leads, counted from the first one. Does nothing
        if nothing has changed since the last update, which may have been for another curve. */
    void update(const SeriesSpans &samples,
                const PixelGrid &grid,
                const ColumnSpan &shown,
                const QVector<int> &breaks);
    //! Returns whether the last update was for this x, grid and columns.
    bool isAbout(const SeriesSpans &samples, const PixelGrid &grid, const ColumnSpan &shown) const;
    //! Makes the next update look at everything, since the breaks may have changed.
    void beginFrame() { m_isCurrent = false; }

    //! Returns whether the rows of \a samples can be recognised: the ring of x has an index for each row.
    static bool canFollow(const SeriesSpans &samples);

    const QVector<Column> &columns() const { return m_columns; }
    const ColumnSpan &shown() const { return m_key.shown; }
    //! Returns the number of the last update, which is the stamp of columns that it found changed.
    quint64 stamp() const { return m_stamp; }
    //! Returns the columns that the last update found new or changed, as indexes into columns().
    const QVector<int> &changed() const { return m_changed; }
    //! Returns how many places columns have.
    int places() const { return m_key.shown.count() + 2; }
    //! Returns the index of a row in the ring of x as its place among the samples of the last update.
    int sampleOf(qint64 index) const { return int(index - m_key.number); }

    /*! Returns in which of the columns shown a picture may differ from the one at the last call, as spans that rise and do not
        touch. */
    QVector<ColumnSpan> takeStale();
    //! Makes takeStale() return all columns.
    void forgetPicture() { m_isAllStale = true; }

private:
    //! Identifies samples and axis.
    struct Key
    {
        quint64 content = 0;
        qint64 number = 0; // index of the first sample
        int count = 0;
        PixelGrid grid;
        ColumnSpan shown;

        bool matches(const Key &other) const;
        bool isComparable(const Key &other) const;
    };

    static Key keyOf(const SeriesSpans &samples, const PixelGrid &grid, const ColumnSpan &shown);
    void find(const SeriesSpans &samples);
    void append(qint64 number, int first, int end);
    void noteBreaks(const QVector<int> &breaks);
    void compare();
    void addStale(const QVector<Column> &columns, int index);
    void addScrolled(const ColumnSpan &before);

    Key m_key;
    bool m_isCurrent = false;
    quint64 m_stamp = 0;
    QVector<Column> m_columns;
    QVector<Column> m_before; // columns of the update before
    QVector<int> m_changed;
    QVector<ColumnSpan> m_stale;
    bool m_isAllStale = true;
};

} // namespace Corvale_Qt
