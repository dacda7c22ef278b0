// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ImportOptions.h"

#include <QString>
#include <QStringList>

namespace Monitor {

//! What is lost of a recording, and what is left.
struct RecordingDamage
{
    //! One line for each place, "3 lines (120 to 122) between 12.3 s and 14.1 s: not readable"; at most maxPlaces.
    QStringList places;
    qint64 placesLeftOut = 0;
    qint64 lostLines = 0;
    qint64 readings = 0; //!< that can be read
    bool isInside =
        false; //!< something else is lost than an unfinished end, as a kill or a power cut leaves it

    static constexpr int maxPlaces = 200;
    bool isEmpty() const { return places.isEmpty(); }
};

/*! Reads a recording, or a table that \a import says how to read, to its end and finds what is lost of it, also behind
    damage of a compressed one. Returns false, with
    \a error, if it cannot be read. */
bool examineRecording(const QString &path,
                      const ImportOptions &import,
                      RecordingDamage *damage,
                      QString *error);

/*! Writes a copy of a recording that holds everything of it that can be read, with an "#event" line wherever something is
    lost. The recording itself is only read. \a copy becomes the path of the copy, a new file beside it. Returns false,
    with \a error, if that is not possible; no copy is left then. */
bool repairRecording(const QString &path, QString *copy, RecordingDamage *damage, QString *error);

} // namespace Monitor
