// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: which samples make the next sweep, and which are shown.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/scope/SampleRows_p.h"

namespace Corvale_Qt {

/*! Cuts the samples of a model into sweeps of equal length, each row in one sweep, while the model appends rows and
    drops old ones. */
class SweepProgress
{
public:
    static constexpr int defaultLength = 256;
    //! With more complete sweeps than this waiting, all but the newest are left out.
    static constexpr int mostWaiting = 8;

    int length() const { return m_length; }
    //! Takes the model's wish, if it is above 0.
    void setLengthHint(int points);
    //! The next sweep begins with row 1 of a model that has \a lastRow rows.
    void restart(int lastRow);

    /*! Rows \a start to \a end have come; there are \a lastRow now, and the model would show \a pointsHint at once.
        Returns how many of the oldest rows went with no announcement. */
    int rowsInserted(int start, int end, int lastRow, int pointsHint);
    //! Rows \a start to \a end have gone, as the model announced.
    void rowsRemoved(int start, int end);

    bool isComplete(int lastRow) const { return waiting(lastRow) > 0; }
    //! Rows of the next sweep.
    RowRange next() const { return {m_nextRow, m_nextRow + m_length - 1}; }
    //! The next sweep becomes the one that is shown.
    void advance();
    //! Goes to the newest complete sweep where too many are waiting.
    void skipToNewest(int lastRow);

    /*! Where the sweep that is shown is now. Its first row is below 1 when samples of it have left the model; the range
        is empty when nobody knows where its samples are. */
    RowRange shown() const { return m_shown; }
    //! Only these rows of it are shown from now on.
    void narrowShown(RowRange rows) { m_shown = rows; }
    //! The rows of the model are no longer those that were shown.
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
