// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"
#include "monitor/sources/SimulatedBeam.h"

#include <memory>
#include <vector>

namespace Monitor {

//! An instrument in a simulated beam: says what it reads, and reads it.
class SimulatedInstrument
{
public:
    virtual ~SimulatedInstrument();
    virtual StreamHeader header() const = 0;
    //! Seconds between two readings.
    virtual double period() const = 0;
    //! Reading \a number, counted from 0, in \a beam: one value a channel.
    virtual void read(qint64 number, SimulatedBeam &beam, std::vector<double> *values) = 0;

    //! "ic4", "strips", "pixels" or "spots"; null for any other name.
    static std::unique_ptr<SimulatedInstrument> make(const QString &name);

protected:
    SimulatedInstrument() = default;
    SimulatedInstrument(const SimulatedInstrument &) = delete;
    SimulatedInstrument &operator=(const SimulatedInstrument &) = delete;
};

} // namespace Monitor
