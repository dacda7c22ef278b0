// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/Clock.h"
#include "monitor/program/CommandLine.h"
#include "monitor/readings/ComputedStream.h"
#include "monitor/readings/LeftOut.h"
#include "monitor/readings/SpotErrors.h"
#include "monitor/recording/SegmentCompressor.h"
#include "monitor/session/ReadingLimit.h"
#include "monitor/sources/Source.h"
#include "monitor/statistics/StreamStatistics.h"

#include <QObject>

#include <memory>
#include <optional>

namespace Monitor {

//! The run of --stats, --convert and --check: reads a source to its end and reports what it found.
class HeadlessRun : public QObject
{
    Q_OBJECT

public:
    explicit HeadlessRun(const CommandLine &commandLine, QObject *parent = nullptr);
    ~HeadlessRun() override;

    /*! Runs an event loop until the source has ended, the limit is reached or a signal ends the program; then prints
        the result and returns the exit code. */
    int run();

private:
    bool openSource();
    bool openOutput();
    void takeHeader(const StreamHeader &header);
    void takeReadings(const ReadingBlock &readings);
    void sourceStateChanged(Source::State state, const QString &text);
    void complain(const QString &text);
    void leave();
    void finishRecording();
    void tellCrashes();
    int report();
    void printStatistics();
    bool openPlan();
    bool planIsUnused();
    void keepSpots(const ReadingBlock &readings);
    std::optional<SpotErrors> spotErrors() const;

    const CommandLine m_commandLine;
    SystemClock m_clock;
    std::unique_ptr<Source> m_source;
    SegmentCompressor m_compressor;
    std::unique_ptr<Recorder> m_recorder;
    ReadingLimit m_limit;
    ComputedStream m_computed;
    StreamStatistics m_statistics;
    SpotRows m_plan; //!< empty without --planned
    SpotRows m_spots; //!< the spots of the last stream, if they are compared with planned ones
    bool m_spotsCut = false;
    qint64 m_gapsBefore = 0; //!< of the acquisitions before the present one
    qint64 m_readings = 0;
    int m_exitCode = ExitGood;
    bool m_detectorUnused = false;
    bool m_channelsLeftOut = false;
    bool m_readingsLeftOut = false; //!< whether any reading has charge on no cell
    LeftOutCount m_leftOutCount; //!< with --check and --stats
    bool m_isDamaged = false;
    bool m_ended = false;
};

} // namespace Monitor
