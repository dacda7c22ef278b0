// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QCoreApplication>

namespace Monitor {

struct TapeReadout;

//! How a tape writes its places: times, or the numbers of readings that have no times.
class TapeText
{
    Q_DECLARE_TR_FUNCTIONS(Monitor::TapeText)

public:
    //! Returns a time as it is written below a tape of that length: "12.34 s", "3:05", "1:02:03".
    static QString time(double seconds, double length);
    //! Returns a time in the same form, to the millisecond.
    static QString exactTime(double seconds, double length);
    //! Returns a time that is round on a clock, in seconds; a tape of that length has no more than \a most of them.
    static double timeStep(double length, int most);
    //! Returns the number of a reading as it is written below a tape: "250".
    static QString number(double number);
    //! Returns a round number of readings; a tape of that length has no more than \a most of them.
    static double numberStep(double length, int most);
    //! Returns the place of a reading on a tape of that length: "3:05.250", or "spot 312 of 935".
    static QString place(const TapeReadout &readout, double length);
};

} // namespace Monitor
