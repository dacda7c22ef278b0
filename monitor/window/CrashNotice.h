// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/window/NoticeLine.h"

namespace Monitor {

struct FormerRun;

//! A notice that the run before this one did not end properly, with the report of its crash if there is one.
class CrashNotice : public NoticeLine
{
    Q_OBJECT

public:
    /*! \a recording is the file that the former run was recording to, \a goesOn the one in which the recording goes on;
        both are empty for none. */
    CrashNotice(const FormerRun &run,
                const QString &recording,
                const QString &goesOn,
                QWidget *parent);
};

//! Returns what became of a run, as a sentence in the language of the window.
QString endOfRun(const FormerRun &run);

} // namespace Monitor
