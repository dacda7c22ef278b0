// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/ClockOffsets_p.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace Corvale_Qt {

//! How x of a plot becomes a moment or a duration.
struct TimeScale
{
    //! The moment at which x is 0.
    qint64 origin = 0;
    double secondsPerX = 1.0;

    bool operator==(const TimeScale &other) const
    {
        return origin == other.origin && secondsPerX == other.secondsPerX;
    }
    qint64 toMoment(double x) const;
    double toX(qint64 moment) const;
};

//! The part of a time axis that is shown.
struct TimeAxisRange
{
    double left = 0.0;
    double right = 0.0;
    double pixels = 0.0; //!< width of the axis

    bool operator==(const TimeAxisRange &other) const
    {
        return left == other.left && right == other.right && pixels == other.pixels;
    }
};

//! Returns the width of a line of text in pixels.
using TextWidth = std::function<double(const QString &text)>;

//! The ticks of a time axis.
struct TimeTicks
{
    QList<double> major; //!< x of the long ticks, rising
    QList<double> minor; //!< x of the short ones
    //! A text for each long tick; it has up to two lines, and is empty where it would touch the text before.
    QStringList labels;
    //! The unit of the labels, or the difference of the clocks from UTC: "s", "h:min", "UTC+1".
    QString unit;

    //! Returns the label of the long tick that is nearest to \a x.
    QString labelOf(double x) const;
};

/*! Returns ticks at round times of day, or at the beginning of days, from microseconds to years. The labels are as far apart
    as their widths and a gap require. Where the clocks change, each side has the ticks of its own clock, and the labels on
    both sides say how far it is from UTC. There are no ticks for a range that is not finite or has no width. */
TimeTicks clockTicks(const TimeAxisRange &range,
                     const TimeScale &scale,
                     ClockOffsets &offsets,
                     const TextWidth &width);

//! Returns ticks at round durations before and after the origin of \a scale, labelled with these durations.
TimeTicks durationTicks(const TimeAxisRange &range, const TimeScale &scale, const TextWidth &width);

//! Returns date and time of a moment, with enough digits to distinguish it from one that is \a resolution seconds away.
QString clockText(qint64 moment, double resolution, ClockOffsets &offsets);
//! Returns a signed duration, with enough digits to distinguish it from one that differs by \a resolution seconds: "-1:30.5".
QString durationText(qint64 duration, double resolution);
//! Returns the difference of local time from UTC: "UTC", "UTC+1", "UTC-3:30".
QString offsetText(qint64 offset);

} // namespace Corvale_Qt
