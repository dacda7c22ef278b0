// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: which samples make the next sweep.
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

    int length() const { return m_length; }
    //! The model's wish, if it is above 0.
    void setLengthHint(int points);
    //! The next sweep begins with row 1 of a model that has \a lastRow rows.
    void restart(int lastRow);

    //! Rows \a start to \a end have come; there are \a lastRow now, and the model would show \a pointsHint at once.
    void rowsInserted(int start, int end, int lastRow, int pointsHint);

    bool isComplete(int lastRow) const { return lastRow - m_nextRow + 1 >= m_length; }
    //! Rows of the next sweep.
    RowRange next() const { return {m_nextRow, m_nextRow + m_length - 1}; }
    void advance() { m_nextRow += m_length; }
    //! The sweep before is the next one again.
    void rewind();

private:
    int m_length = defaultLength;
    int m_nextRow = 1;
    int m_lastRowSeen = 0; //!< at the last insertion
};

} // namespace Corvale_Qt
