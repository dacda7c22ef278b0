// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"
#include "monitor/sources/SimulatedBeam.h"

#include <memory>
#include <vector>

namespace Monitor {

//! An instrument in a simulated beam.
class SimulatedInstrument
{
public:
    SimulatedInstrument(const SimulatedInstrument &) = delete;
    SimulatedInstrument &operator=(const SimulatedInstrument &) = delete;
    virtual ~SimulatedInstrument();
    //! Returns the header of the instrument's stream.
    virtual StreamHeader header() const = 0;
    //! Returns the seconds between two readings.
    virtual double period() const = 0;
    //! Takes reading \a number, counted from 0, of \a beam; \a values gets one value per channel.
    virtual void read(qint64 number, SimulatedBeam &beam, std::vector<double> *values) = 0;

    //! Returns the instrument "ic4", "strips", "pixels" or "spots"; null for any other name.
    static std::unique_ptr<SimulatedInstrument> make(const QString &name);

protected:
    SimulatedInstrument() = default;
};

} // namespace Monitor
