// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/recording/Recorder.h"
#include "monitor/sources/FileSource.h"
#include "monitor/sources/SourceNames.h"
#include <corvale_qt/detector/DetectorLayout.h>
#include <corvale_qt/proxies/ChannelExpressions.h>

#include <QSize>
#include <QString>
#include <QStringList>

namespace Monitor {

//! The exit codes of the program; the manual page describes them.
enum ExitCode {
    ExitGood = 0,
    ExitUsage = 1,
    ExitBadData = 2,
    ExitSourceLost = 3,
    ExitOutputFailed = 4,
};

//! The meaning of the arguments.
struct CommandLine
{
    enum class Task {
        Window,
        Screenshot,
        Headless,
        Statistics,
        Convert,
        Check,
        Repair,
        Help,
        Version,
        ManPage,
    };

    Task task = Task::Window;
    QString source = QStringLiteral("sim:strips");
    bool sourceGiven = false;
    QVector<NamedAddress> sources; //!< all of them, the first one too; their names differ
    QStringList published; //!< for each source the address of its results; empty for none
    FileSource::Options file;
    bool speedGiven = false;
    Recorder::Options record; //!< the path is empty if nothing is to be recorded
    QString output; //!< the file that Screenshot or Convert writes, or that Repair repairs
    bool json = false;
    bool fitChannels = false; //!< whether --stats takes the channels as neighbours in their order
    QSize size;
    QString display; //!< of --view; empty for the one that fits the data
    double span = 0.0; //!< of --span, in seconds, infinity for all; 0 without it
    //! The readings and the seconds of data after which the run ends; 0 for no limit.
    qint64 afterReadings = 0;
    double afterSeconds = 0.0;
    QVector<Corvale_Qt::ComputedChannel> computed; //!< of each --compute
    Corvale_Qt::DetectorLayout detector; //!< of --detector; empty without it
    QString detectorFile; //!< of --detector; "none" forgets the one that is remembered
    QString planned; //!< of --planned: the list of spots to compare with; empty without it
    //! Largest position errors of spots in mm, of --tolerance; 0 without it.
    double toleranceX = 0.0;
    double toleranceY = 0.0;
    QStringList pluginPath; //!< the folders of each --plugin-path
    //! The options beside those of sources and settings, as they would be typed: "--span 2h".
    QStringList givenOptions;
    QString settings;
    QString language; //!< of --language, like "de"; empty without it
    bool diagnostics = false; //!< whether the end tells how long the turns of the event loop were
    double rangeLow = 0.0;
    double rangeHigh = 0.0;

    /*! Reads the arguments, the program's name first. Returns false if they make no sense; \a error says what is wrong
        and what would be right. */
    bool parse(const QStringList &arguments, QString *error);
    //! Returns the value of --detector that stands for none.
    static QString noDetector() { return QStringLiteral("none"); }
    //! Returns whether results are published.
    bool publishes() const { return !published.join(QString()).isEmpty(); }
    //! Returns whether the task opens a window on a screen.
    bool needsDisplay() const { return task == Task::Window; }

    //! Returns the text of --help.
    static QString helpText();
    //! Returns the text of --version.
    static QString versionText();
    //! Returns the text of --help as a manual page in roff.
    static QByteArray manPage();
};

} // namespace Monitor
