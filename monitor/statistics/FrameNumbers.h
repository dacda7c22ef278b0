// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/LeftOut.h"
#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"
#include "monitor/statistics/FrameMoments.h"

namespace Monitor {

/*! Computes from each frame of a stream the numbers that are shown over time: sum and maximum of the charges, and for each axis
    position and sigma of the least squares fit to its profile, as the display and the report have them. A number that cannot be computed is NaN. */
class FrameNumbers
{
public:
    //! Computes for the frames of a stream with this header.
    explicit FrameNumbers(const StreamHeader &header = StreamHeader());

    //! Computes from one frame; \a values points to the values of a reading.
    void take(const double *values);
    //! Returns one number for each channel of the header.
    const std::vector<double> &numbers() const { return m_numbers; }
    //! Returns the moments of the charges of a matrix, in cells; those of no cell for other detectors.
    const FrameMoments &moments() const { return m_moments; }
    //! Returns which readings of the frame belong to no cell.
    const LeftOut &leftOut() const { return m_leftOut; }

private:
    StreamHeader m_header;
    std::vector<double> m_numbers;
    FrameMoments m_moments;
    LeftOut m_leftOut;
};

} // namespace Monitor
