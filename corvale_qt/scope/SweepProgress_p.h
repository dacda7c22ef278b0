// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/SampleRows_p.h"

namespace Corvale_Qt {

/*! Cuts the samples of a model into sweeps of equal length, each row in one sweep, while the model appends rows and
    drops old ones. */
class SweepProgress
{
public:
    static constexpr int defaultLength = 256;
    //! If more complete sweeps than this are waiting, only the newest is shown.
    static constexpr int mostWaiting = 8;

    int length() const { return m_length; }
    //! Sets the length that the model asks for, if it is above 0.
    void setLengthHint(int points);
    //! Begins again with row 1 of a model that has \a lastRow rows.
    void restart(int lastRow);

    /*! Follows the insertion of rows \a start to \a end. \a lastRow is the last row after it, \a pointsHint the sweep
        length that the model asks for. Returns how many of the oldest rows left the model unannounced. */
    int rowsInserted(int start, int end, int lastRow, int pointsHint);
    //! Follows the removal of rows \a start to \a end, which the model has announced.
    void rowsRemoved(int start, int end);

    //! Returns whether all rows of the next sweep are there.
    bool isComplete(int lastRow) const { return waiting(lastRow) > 0; }
    //! Returns the rows of the next sweep.
    RowRange next() const { return {m_nextRow, m_nextRow + m_length - 1}; }
    //! Makes the next sweep the one that is shown.
    void advance();
    //! Skips to the newest complete sweep if too many are waiting.
    void skipToNewest(int lastRow);

    /*! Returns the present rows of the sweep that is shown. The first is below 1 if samples of it have left the model;
        the range is empty if its rows are not known any more. */
    RowRange shown() const { return m_shown; }
    //! Shows only \a rows of the sweep from now on.
    void narrowShown(RowRange rows) { m_shown = rows; }
    //! Shows rows that another class has cut, in place of the next sweep.
    void show(RowRange rows) { m_shown = rows; }
    //! Forgets the rows of the sweep that is shown.
    void forgetShown() { m_shown = RowRange(); }

private:
    int waiting(int lastRow) const { return (lastRow - m_nextRow + 1) / m_length; }
    void moveBack(int rows);

    int m_length = defaultLength;
    int m_nextRow = 1;
    int m_lastRowSeen = 0; //!< after the last insertion or removal
    RowRange m_shown;
};

} // namespace Corvale_Qt
