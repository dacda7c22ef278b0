// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/tape/TapeIndex.h"

#include <QDateTime>

namespace Monitor {

//! What a time line shows of a tape, which holds one recording or several. Positions are seconds from its beginning.
struct TapeSurvey
{
    //! Something that a person may look for.
    struct Mark
    {
        TapeMark::Kind kind = TapeMark::Kind::Event;
        double position = 0.0;
        double length = 0.0; //!< of a gap, in seconds
        QString text; //!< of an event; after the name of its recording if there are several
        QString name; //!< of the recording, if there are several
    };
    //! A stretch whose times go on, and the time at its beginning.
    struct Stretch
    {
        double position = 0.0;
        double time = 0.0;
        double length = 0.0;
        bool hasTimes = true; //!< false if the times are the numbers of readings
    };
    //! Where one of several recordings lies.
    struct Lane
    {
        QString name;
        QVector<Stretch> covered;
    };

    double length = 0.0;
    QVector<Mark> marks;
    QVector<Stretch> stretches;
    QVector<double> borders; //!< where times begin anew
    QVector<Lane> lanes; //!< empty for a single recording
    //! Returns the extremes of the sums of the outlined recording in equal stretches of the tape.
    std::function<QVector<TapeIndex::Range>(int columns)> outline;

    //! Returns whether there is any gap.
    bool hasGaps() const;
    //! Returns whether a position lies in a gap, of all recordings that lie there.
    bool isInGap(double position) const;
};

//! What a tape shows about one of its positions.
struct TapeReadout
{
    double time = 0.0; //!< in seconds of the recording, the first one if there are several
    int part = 0;
    int parts = 1;
    QDateTime moment; //!< not valid if it is not known
    //! The number of the reading in its part, from 1, and how many there are, if they have no times; 0 otherwise.
    qint64 number = 0;
    qint64 count = 0;
    bool isSpot = false;
    bool isInGap = false; //!< the time is that of no reading then
};

} // namespace Monitor
