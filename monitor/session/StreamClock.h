// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/Source.h"

#include <QDateTime>
#include <QObject>

#include <optional>

namespace Monitor {

class Session;
struct StreamHeader;

/*! At which time of day the readings of a session were taken, so that sources with clocks of their own can be shown side by side. A
    stream states the moment at which its t is 0, or its times count from 1970; otherwise its readings are dated by the arrival of the
    first ones. Recordings that are played together are placed by their tape. */
class StreamClock : public QObject
{
    Q_OBJECT

public:
    //! Seconds by which a clock may differ from that of this computer before its readings are not taken as simultaneous.
    static constexpr double tolerance = 2.0;
    //! Seconds for which readings may arrive late: those of a connection that stood still have only waited.
    static constexpr double patience = 5.0;

    //! The session must outlive the clock.
    explicit StreamClock(Session &session, QObject *parent = nullptr);

    //! Returns the moment at which t is 0, in seconds since 1970; nothing before the first reading, and for spots, which have no times.
    std::optional<double> origin() const { return m_origin; }
    //! Returns the same as a date; invalid if there is none, or if recordings are placed among each other only.
    QDateTime originDate() const;
    //! Returns whether the origin was taken from the arrival of the first readings.
    bool isByArrival() const { return m_isByArrival; }
    //! Returns the moment of the newest reading that is shown, in seconds since 1970; nothing if there is no origin or no reading.
    std::optional<double> newest() const;
    //! Returns by how many seconds the newest readings were ahead of this computer's clock when they arrived.
    double lead() const { return m_lead; }
    //! Returns whether the clock agrees with that of this computer, as far as is known yet.
    bool isInStep() const { return m_isInStep; }

Q_SIGNALS:
    //! Emitted when origin() is another one.
    void originChanged();
    //! Emitted when isInStep() has changed while the origin stayed.
    void inStepChanged();

private:
    void begin(const StreamHeader &header);
    void follow();
    void date(double firstTime, double newestTime);
    void place(const Source::PlacedOrigin &origin);
    void compare();

    Session &m_session;
    std::optional<double> m_origin;
    bool m_hasTimes = false;
    bool m_isByArrival = false;
    bool m_isDated = true;
    double m_lead = 0.0;
    bool m_isInStep = true;
    std::optional<double> m_isLateSince; //!< by the clock of the session
};

} // namespace Monitor
