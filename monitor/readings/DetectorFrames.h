// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/LeftOut.h"
#include "monitor/readings/StreamHeader.h"

#include <QVector>

namespace Monitor {

/*! Converts frames to the 128 readings of a detector, in the order that the profile display expects. The readings are
    in the base unit of the frames' quantity (coulomb for charges), or unchanged if the unit is unknown. */
class DetectorFrames
{
public:
    //! Finds which channel of the header feeds which reading.
    explicit DetectorFrames(const StreamHeader &header = StreamHeader());

    //! Returns whether the profile display knows a detector with such frames.
    bool isUsable() const { return !m_cells.isEmpty(); }
    /*! Returns the 128 readings of a frame. \a values points to one value per channel of the header; values that are
        not finite become 0. */
    QVector<double> readingsOf(const double *values) const;
    //! Returns what such a frame has in cells that the detector has no wire for.
    LeftOut leftOutOf(const double *values) const;

private:
    static constexpr int readings = 128;

    //! The channel that holds each reading, -1 if none does; empty if the frames are not usable.
    QVector<int> m_cells;
    double m_factor = 1.0;
    //! The channels that feed no reading.
    QVector<int> m_unwired;
    QString m_unit;
};

} // namespace Monitor
