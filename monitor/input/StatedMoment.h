// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDateTime>

namespace Monitor {

/*! A moment that a text states. Neither QDateTime nor the clock of the system counts leap seconds: a reading of the second
    23:59:60 UTC gets the moment that a reading of the next second gets, 00:00:00, and is known by isLeapSecond. */
struct StatedMoment
{
    QDateTime moment; //!< in UTC; not valid if the text states none
    bool isLeapSecond = false;
};

/*! Reads a date with the time of day in ISO 8601, or in a format of QDateTime. One without a zone is of \a zone. A second 60 is a
    leap second at the end of a month in UTC, where it may have been inserted, and no moment anywhere else. */
StatedMoment
statedMoment(const QString &text, Qt::TimeSpec zone, const QString &format = QString());

} // namespace Monitor
