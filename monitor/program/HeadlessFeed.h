// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/program/CommandLine.h"
#include "monitor/program/HeadlessOutput.h"
#include "monitor/publishing/ResultFeed.h"
#include "monitor/readings/ComputedStream.h"
#include "monitor/readings/LeftOut.h"
#include "monitor/readings/SpotErrors.h"
#include "monitor/recording/SegmentCompressor.h"
#include "monitor/session/ActivityWatch.h"
#include "monitor/session/ReadingLimit.h"
#include "monitor/sources/Source.h"
#include "monitor/statistics/StatisticsReport.h"
#include "monitor/statistics/StreamStatistics.h"

#include <QObject>

#include <limits>
#include <memory>
#include <optional>

namespace Monitor {

class Clock;

//! One source of a run without a window, read to its end: what is counted, recorded and reported of it.
class HeadlessFeed : public QObject
{
    Q_OBJECT

public:
    /*! \a name stands before what is said of the source; it is empty if there is no other source. The command line, the clock, the plan and
        the compressor must outlive the feed. */
    HeadlessFeed(const CommandLine &commandLine,
                 const NamedAddress &source,
                 Clock &clock,
                 const SpotRows &plan,
                 SegmentCompressor &compressor,
                 QObject *parent = nullptr);
    ~HeadlessFeed() override;

    //! Makes the source. Returns false, with a line on stderr, if its address makes no sense.
    bool openSource();
    //! Opens the recording of the source, if there is to be one. Returns false if it cannot be opened.
    bool openOutput();
    //! Begins to read.
    void start() { m_source->start(); }
    //! Takes no more readings.
    void end();
    //! Takes no more readings since a person ends the program.
    void interrupt();
    bool hasEnded() const { return m_ended; }
    /*! Publishes the results of the source from now on. A run that does nothing else goes on after the source has ended, so that its last
        results can be read. */
    void publish(std::unique_ptr<CorvaleMonitor::Publication> publication);
    //! Publishes the results of the last reading, if any are published.
    void finishPublishing();

    Source &source() const { return *m_source; }
    QString name() const { return m_name; }
    //! Returns the start time that the last acquisition states; invalid if it states none.
    QDateTime startTime() const { return m_statistics.header().startTime; }
    //! Returns the path that the source is recorded to, a file or a folder; empty if it is not recorded.
    QString outputPath() const;
    //! Returns how far reading is, as a line for a person.
    QString progressText() const;
    //! Closes the recording.
    void finishRecording();
    //! Returns the report of --stats, which is valid as long as the feed; nothing if there were no readings.
    std::optional<StatisticsReport> statistics() const;
    //! Returns the lines of --check. A file is read once more to find what is lost of it.
    QStringList check();
    //! Returns the exit code of the source, and says on stderr what is wrong with its readings.
    ExitCode judge() const;
    //! Prints a line on stderr, with the name of the source.
    void complain(const QString &text) const;

Q_SIGNALS:
    //! Emitted with a line for each line of the source that --check finds to be unusable.
    void refused(const QString &text);
    //! Emitted when the recording cannot be written.
    void outputFailed();

private:
    bool staysAfterEnd() const;
    Corvale_Qt::VerdictLimits verdictLimits() const;
    FitParameters fitParameters() const;
    Recorder::Options recorderOptions() const;
    void takeHeader(const StreamHeader &header);
    void takeReadings(const ReadingBlock &readings);
    void tellConnection();
    void sourceStateChanged(Source::State state, const QString &text);
    void keepSpots(const ReadingBlock &readings);
    std::optional<SpotErrors> spotErrors() const;
    void noteLongestGap();
    QString longestGapText() const;
    bool planIsUnused() const;

    const CommandLine &m_commandLine;
    const QString m_name;
    const QString m_address;
    Clock &m_clock;
    const SpotRows &m_plan; //!< empty without --planned
    SegmentCompressor &m_compressor;
    std::unique_ptr<Source> m_source;
    std::unique_ptr<HeadlessOutput> m_output; //!< null if nothing is written
    ReadingLimit m_limit;
    ComputedStream m_computed;
    StreamStatistics m_statistics;
    ActivityWatch m_activity;
    std::unique_ptr<ResultFeed>
        m_results; //!< null unless they are published; uses what stands above
    SpotRows m_spots; //!< the spots of the last stream, if they are compared with planned ones
    bool m_spotsCut = false;
    qint64 m_gapsBefore = 0; //!< of the acquisitions before the present one
    StreamStatistics::Gap m_longestGap; //!< of the acquisitions that were looked at
    QDateTime m_longestGapBegin; //!< invalid if the recording states no date
    qint64 m_readings = 0;
    ExitCode m_exitCode = ExitGood;
    bool m_detectorUnused = false;
    bool m_channelsLeftOut = false;
    LeftOutCount m_leftOutCount; //!< with --check and --stats
    bool m_isDamaged = false;
    bool m_lacksFiles = false; //!< other files of the recording are missing
    bool m_isInterrupted = false;
    bool m_wasConnected = false;
    bool m_isToldAway = false;
    double m_toldAwayAt = -std::numeric_limits<double>::infinity();
    bool m_ended = false;
};

} // namespace Monitor
