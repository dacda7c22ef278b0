// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QTimeZone>
#include <QVector>

namespace Corvale_Qt {

//! Moments and durations in microseconds; moments are counted from 1970-01-01 00:00 UTC.
constexpr qint64 kMicrosecond = 1;
constexpr qint64 kMillisecond = 1000 * kMicrosecond;
constexpr qint64 kSecond = 1000 * kMillisecond;
constexpr qint64 kMinute = 60 * kSecond;
constexpr qint64 kHour = 60 * kMinute;
constexpr qint64 kDay = 24 * kHour;

//! A time during which the clocks of a zone are ahead of UTC by the same offset.
struct ClockStretch
{
    qint64 begin = 0;
    qint64 end = 0; //!< one past the last moment
    qint64 offset = 0; //!< local time minus UTC
};

/*! What the clocks of a time zone show. Looking up a change of the clocks takes long, so the stretches that were found last
    are kept. */
class ClockOffsets
{
public:
    explicit ClockOffsets(const QTimeZone &zone = QTimeZone::utc());

    //! Returns the stretches that cover the moments from \a first to \a last, in order; neighbours differ in their offset.
    QVector<ClockStretch> stretches(qint64 first, qint64 last);
    //! Returns the offset at a moment.
    qint64 offsetAt(qint64 moment);

private:
    ClockStretch stretchAt(qint64 moment) const;

    QTimeZone m_zone;
    QVector<ClockStretch> m_found; //!< without gaps
};

} // namespace Corvale_Qt
