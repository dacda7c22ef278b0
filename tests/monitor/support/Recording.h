// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/nexus/NexusSegments.h"
#include "monitor/recording/Recorder.h"
#include "monitor/recording/SegmentCompressor.h"
#include "tests/monitor/support/ManualClock.h"

#include <QStringList>

#include <memory>

inline Monitor::StreamHeader twoChannels()
{
    Monitor::StreamHeader header;
    header.channels = {{"left", "nA"}, {"right", ""}};
    return header;
}

//! Returns readings of two channels, a second apart: the time, and 0.5.
inline Monitor::ReadingBlock block(double firstTime, int count)
{
    Monitor::ReadingBlock readings(2);
    for (int i = 0; i < count; ++i) {
        const double values[] = {firstTime + i, 0.5};
        readings.append(firstTime + i, values);
    }
    return readings;
}

//! A recorder that writes to a file or a folder, with its clock and its notes.
struct Recording
{
    explicit Recording(const QString &path, bool overwrite = false)
    {
        options.path = path;
        options.overwrite = overwrite;
    }
    //! Starts the recorder with a stream of two channels.
    bool begin()
    {
        const bool started = recorder().start();
        if (started)
            recorder().startStream(twoChannels());
        return started;
    }
    Monitor::Recorder &recorder()
    {
        if (!m_recorder) {
            m_recorder = std::make_unique<Monitor::Recorder>(clock, options);
            QObject::connect(m_recorder.get(), &Monitor::Recorder::noted, &clock,
                             [this](const QString &text) { notes.append(text); });
            if (options.segments != Monitor::SegmentForm::Text)
                QObject::connect(m_recorder.get(), &Monitor::Recorder::fileCompleted, &clock,
                                 [this](const QString &name) {
                                     compressor.add(name,
                                                    Monitor::segmentConversion(options.segments,
                                                                               options.overwrite));
                                 });
        }
        return *m_recorder;
    }

    ManualClock clock;
    Monitor::Recorder::Options options;
    Monitor::SegmentCompressor compressor;
    QStringList notes;

private:
    std::unique_ptr<Monitor::Recorder> m_recorder;
};
