// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QMetaType>

namespace Corvale_Qt {

//! Where a sweep begins: at readings of one channel that pass a level.
struct CORVALE_QT_EXPORT SweepTrigger
{
    //! When sweeps are shown.
    enum class Mode {
        Off = 0, //!< one after the other, without a trigger
        Automatic = 1, //!< at triggers, and without one where none comes for two sweeps
        Normal = 2, //!< at triggers only
        Single = 3, //!< at the next trigger, and then no more until the trigger is armed again
    };
    //! Which way a reading must pass the level.
    enum class Edge {
        Rising = 0,
        Falling = 1,
        Either = 2,
    };

    Mode mode = Mode::Off; //!< when sweeps are shown
    int channel = 1; //!< counted from 1
    double level = 0.0; //!< in the unit of the readings
    Edge edge = Edge::Rising; //!< which way readings must pass the level
    /*! How far a reading must have been on the other side of the level before it can trigger, in the unit of the readings; 0 or
        more. It must exceed the noise, which else triggers on the wrong edge. */
    double hysteresis = 0.0;
    double shareBefore = 0.1; //!< of the sweep that lies before the trigger, from 0 to 1
    double holdOff = 0.0; //!< the shortest time between two triggers, in the unit of x; 0 or more

    //! Returns whether sweeps wait for a trigger.
    bool isOn() const { return mode != Mode::Off; }
    //! Returns whether all numbers are finite and in their ranges.
    bool isValid() const;
    //! Compares all fields.
    bool operator==(const SweepTrigger &other) const;
    //! Returns whether a field differs.
    bool operator!=(const SweepTrigger &other) const { return !(*this == other); }
};

//! What a trigger is doing.
enum class TriggerState {
    Off = 0,
    Armed = 1, //!< it waits
    Triggered = 2, //!< the sweep that is shown began with a trigger
    Automatic = 3, //!< no trigger came, and the sweep that is shown began without one
};

/*! Finds triggers in readings that are added one after the other.

    A rising edge is the first reading at or above the level after one below level - hysteresis; a falling edge is the mirror
    image. An edge within the hold-off after a trigger is none. A reading that is NaN changes nothing. */
class CORVALE_QT_EXPORT TriggerSearch
{
public:
    //! Searches with a level, an edge, a hysteresis and a hold-off; mode, channel and share do not matter here.
    explicit TriggerSearch(const SweepTrigger &trigger = SweepTrigger());

    /*! Adds a reading at \a x. Returns whether it is a trigger. If it may not be one, an edge passes without a trigger, and no
        hold-off begins. */
    bool add(double x, double reading, bool mayTrigger = true);
    //! Forgets on which side of the level the readings were, as if the next one were the first. The hold-off goes on.
    void forgetSide();

private:
    SweepTrigger m_trigger;
    bool m_wasBelow = false; //!< far enough for a rising edge, since the last one
    bool m_wasAbove = false; //!< far enough for a falling edge, since the last one
    bool m_hasTriggered = false;
    double m_triggeredAt = 0.0;
};

} // namespace Corvale_Qt

Q_DECLARE_METATYPE(Corvale_Qt::SweepTrigger)
Q_DECLARE_METATYPE(Corvale_Qt::TriggerState)
