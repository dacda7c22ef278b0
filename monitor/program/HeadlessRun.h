// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/Clock.h"
#include "monitor/program/CommandLine.h"
#include "monitor/readings/SpotRows.h"
#include "monitor/recording/SegmentCompressor.h"

#include <QObject>

#include <memory>
#include <vector>

namespace Monitor {

class CommonTape;
class HeadlessFeed;

/*! The run of --headless, --stats, --convert and --check: reads its sources to their ends and reports what it found. Each source has a
    report and a recording of its own, and its results may be published. */
class HeadlessRun : public QObject
{
    Q_OBJECT

public:
    explicit HeadlessRun(const CommandLine &commandLine, QObject *parent = nullptr);
    ~HeadlessRun() override;

    /*! Runs an event loop until all sources have ended, their limits are reached or a signal ends the program; then prints
        the result and returns the exit code, the largest one of all sources. */
    int run();

private:
    bool openPlan();
    bool openPublications();
    bool openSources();
    bool openOutputs();
    void tellCrashes();
    std::unique_ptr<CommonTape> commonTape();
    void readSources();
    void end();
    bool hasEnded() const;
    bool isAlone() const { return m_feeds.size() == 1; }
    QString prefix(const HeadlessFeed &feed) const;
    void finishRecordings();
    void printStatistics();
    void printCheck();
    int report();
    bool print(const QByteArray &text);
    void complain(const QString &text) const;

    const CommandLine m_commandLine;
    SystemClock m_clock;
    SegmentCompressor m_compressor;
    SpotRows m_plan; //!< empty without --planned
    std::vector<std::unique_ptr<HeadlessFeed>> m_feeds;
    int m_exitCode = ExitGood;
};

} // namespace Monitor
