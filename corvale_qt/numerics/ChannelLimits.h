// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QMetaType>

#include <limits>

namespace Corvale_Qt {

//! Where a reading lies among the limits of its channel.
enum class LimitState {
    Normal = 0,
    LowWarning = 1,
    HighWarning = 2,
    LowAlarm = 3,
    HighAlarm = 4,
};

//! Returns whether a state is an alarm, low or high.
constexpr bool isAlarm(LimitState state)
{
    return state == LimitState::LowAlarm || state == LimitState::HighAlarm;
}

//! Returns whether a state lies above the limits.
constexpr bool isHigh(LimitState state)
{
    return state == LimitState::HighWarning || state == LimitState::HighAlarm;
}

/*! The limits of a channel, in the unit of its readings. A limit that is NaN, as all are at first, does not exist. A reading
    that equals a limit is within it. */
struct CORVALE_QT_EXPORT ChannelLimits
{
    //! Stands for a limit that does not exist.
    static constexpr double none = std::numeric_limits<double>::quiet_NaN();

    double lowAlarm = none; //!< readings below it are an alarm
    double lowWarning = none; //!< readings below it are a warning
    double highWarning = none; //!< readings above it are a warning
    double highAlarm = none; //!< readings above it are an alarm
    /*! How far a reading must come back behind a limit before that limit counts as kept again, so that noise on a limit is one
        excursion; 0 or more. NaN, as at first, takes 2 % of the distance between the innermost low and high limit, or of the
        magnitude of the limit if there are none on the other side. */
    double hysteresis = none;

    //! Returns whether no limit exists.
    bool isEmpty() const;
    //! Returns whether the limits that exist are finite and rise from low alarm to high alarm; neighbours on one side may be equal.
    bool isValid() const;
    //! Returns the limit beyond which a state begins; NaN for LimitState::Normal and for a limit that does not exist.
    double limitOf(LimitState state) const;
    //! Returns the state of a single reading, without hysteresis. A reading that is NaN is LimitState::Normal.
    LimitState stateOf(double reading) const;
    //! Returns the hysteresis at the limit of a state, in the unit of the readings.
    double hysteresisAt(LimitState state) const;

    //! Compares all fields; NaN equals NaN.
    bool operator==(const ChannelLimits &other) const;
    //! Returns whether a field differs.
    bool operator!=(const ChannelLimits &other) const { return !(*this == other); }
};

//! A time during which the readings of a channel were beyond limits of one side.
struct CORVALE_QT_EXPORT LimitExcursion
{
    LimitState state = LimitState::Normal; //!< the worst that was reached
    double limit = ChannelLimits::none; //!< the limit of that state
    double began = 0.0; //!< time of the first reading beyond a limit
    double ended = ChannelLimits::
        none; //!< time of the first reading within the limits again; NaN while it lasts
    double worst = 0.0; //!< the reading farthest beyond

    //! Returns whether the readings are still beyond a limit.
    bool lasts() const { return !(ended == ended); }
};

/*! Judges the readings of one channel, one after the other, with hysteresis.

    \code
    LimitWatch watch(limits);
    for (const auto &[time, reading] : readings) {
        if (watch.add(time, reading))
            log(watch.state(), watch.excursion());
    }
    \endcode */
class CORVALE_QT_EXPORT LimitWatch
{
public:
    //! Watches for no limits.
    LimitWatch();
    //! Watches for limits; those that are not valid are not watched for.
    explicit LimitWatch(const ChannelLimits &limits);

    //! Returns the limits that are watched for.
    const ChannelLimits &limits() const { return m_limits; }
    //! Returns the state after the last reading.
    LimitState state() const { return m_state; }
    /*! Adds a reading. Returns whether the state has changed. A reading that is NaN changes nothing: it says nothing of the
        quantity. */
    bool add(double time, double reading)
    {
        // Nearly all readings are within these bounds; a NaN is not.
        if (reading >= m_lowest && reading <= m_highest)
            return false;
        return judge(time, reading);
    }
    /*! Returns the excursion that lasts, or else the last one that has ended. When the readings pass from beyond one side to
        beyond the other in one step, the former ends and is returned by former(). */
    const LimitExcursion &excursion() const { return m_excursion; }
    //! Returns the excursion that ended at the same reading at which excursion() began; without one, its state is Normal.
    const LimitExcursion &former() const { return m_former; }

private:
    bool judge(double time, double reading);
    LimitState nextState(double reading) const;
    void note(LimitState next, double time, double reading);
    void setBounds();

    ChannelLimits m_limits;
    LimitState m_state = LimitState::Normal;
    double m_lowest = -std::numeric_limits<double>::infinity();
    double m_highest = std::numeric_limits<double>::infinity();
    LimitExcursion m_excursion;
    LimitExcursion m_former;
};

} // namespace Corvale_Qt

Q_DECLARE_METATYPE(Corvale_Qt::LimitState)
Q_DECLARE_METATYPE(Corvale_Qt::ChannelLimits)
