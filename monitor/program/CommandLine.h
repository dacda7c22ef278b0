// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/recording/Recorder.h"
#include "monitor/sources/FileSource.h"

#include <QSize>
#include <QString>
#include <QStringList>

namespace Monitor {

//! What the program ends with.
enum ExitCode {
    ExitGood = 0,
    ExitUsage = 1,
    ExitBadData = 2,
    ExitSourceLost = 3,
    ExitOutputFailed = 4,
};

//! What the arguments ask for.
struct CommandLine
{
    enum class Task {
        Window,
        Screenshot,
        Statistics,
        Convert,
        Check,
        Help,
        Version,
        ManPage,
    };

    Task task = Task::Window;
    QString source = QStringLiteral("sim:strips");
    bool sourceGiven = false;
    FileSource::Options file;
    Recorder::Options record; //!< no path: not asked for
    QString output; //!< of Screenshot and Convert
    bool json = false;
    QSize size;
    QString display; //!< of --view; empty for the one that fits the data
    //! End after so many readings or seconds; 0 for none.
    qint64 afterReadings = 0;
    double afterSeconds = 0.0;
    QString settings;
    double rangeLow = 0.0;
    double rangeHigh = 0.0;

    //! False, with a text of what is wrong and what would be right, where the arguments make no sense.
    bool parse(const QStringList &arguments, QString *error);
    bool needsDisplay() const { return task == Task::Window; }

    static QString helpText();
    static QString versionText();
    //! The same text as a manual page, in roff.
    static QByteArray manPage();
};

} // namespace Monitor
