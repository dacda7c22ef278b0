// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <QVector>

namespace Monitor {

/*! Puts frames in the order in which the profile display takes a detector's 128 readings, in coulomb (or in the
    frames' own unit, where that is no charge). */
class DetectorFrames
{
public:
    //! For frames that the display has no layout for, isUsable() is false.
    explicit DetectorFrames(const StreamHeader &header = StreamHeader());

    bool isUsable() const { return !m_cells.isEmpty(); }
    //! \a values has one value for each channel of the header.
    QVector<double> readingsOf(const double *values) const;

private:
    static constexpr int readings = 128;

    //! For each reading the channel that holds it, -1 for none; empty where not usable.
    QVector<int> m_cells;
    double m_factor = 1.0;
};

} // namespace Monitor
