// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

#include <optional>

namespace Monitor {

//! Tells how long a recording can go on before its disk is full, from how fast the free room becomes less.
class SpaceForecast
{
public:
    /*! Takes the number of bytes that the recording has written in all, and those that are free on its disk, at \a now
        seconds. */
    void note(double now, qint64 written, qint64 free);
    //! Forgets everything, for another recording.
    void reset() { *this = SpaceForecast(); }

    //! Returns the seconds until the disk is full; nothing before a rate is known.
    std::optional<double> secondsLeft() const;
    //! Returns a time for a person: "40 min", "5 h", "12 d", "over a year".
    static QString text(double seconds);

private:
    bool m_any = false;
    double m_notedAt = 0.0;
    qint64 m_written = 0;
    qint64 m_free = 0;
    double m_rate = 0.0; //!< bytes per second
};

} // namespace Monitor
