// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LoggedText.h"
#include <corvale_qt/detector/DetectorLayout.h>

#include <QString>

namespace Monitor {

class WindowSettings;

//! The detector that replaces the one that a source states.
struct SourceDetector
{
    Corvale_Qt::DetectorLayout layout; //!< empty if nothing is replaced
    LoggedText fault; //!< why the file of the detector is not used; empty if it is
    QString note; //!< a line for the log, in English; empty if there is nothing to tell
};

/*! Returns the detector that was remembered for a source, and says so in its note; otherwise that of \a usualFile, which is
    empty if there is none. A text of a source that names a file means the same file in every folder. */
SourceDetector
keptDetector(const QString &source, const QString &usualFile, const WindowSettings &settings);
//! Remembers the file of a detector for a source; an empty one forgets it.
void keepDetector(const QString &source, const QString &file, WindowSettings &settings);

} // namespace Monitor
