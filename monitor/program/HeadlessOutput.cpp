// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/HeadlessOutput.h"

#include "monitor/nexus/NexusSegments.h"

#include <utility>

namespace Monitor {

HeadlessOutput::HeadlessOutput(Clock &clock, SegmentCompressor &compressor, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_compressor(compressor)
{
}

HeadlessOutput::~HeadlessOutput() = default;

bool HeadlessOutput::start(const Recorder::Options &options, bool asHdf5)
{
    return asHdf5 ? startNexus(options) : startRecorder(options);
}

bool HeadlessOutput::startRecorder(const Recorder::Options &options)
{
    m_recorder = std::make_unique<Recorder>(m_clock, options);
    connect(m_recorder.get(), &Recorder::failed, this, &HeadlessOutput::failed);
    connect(m_recorder.get(), &Recorder::noted, this, &HeadlessOutput::noted);
    if (options.segments != SegmentForm::Text)
        connect(m_recorder.get(),
                &Recorder::fileCompleted,
                this,
                [this, conversion = segmentConversion(options.segments, options.overwrite)](
                    const QString &path) {
                    m_compressor.add(path, conversion);
                });
    return m_recorder->start();
}

bool HeadlessOutput::startNexus(const Recorder::Options &options)
{
    m_nexus = std::make_unique<NexusOutput>(options.path);
    const bool started = m_nexus->start(options.source, options.overwrite, options.mode);
    if (!started)
        Q_EMIT failed(m_nexus->errorString());
    return started;
}

void HeadlessOutput::startStream(const StreamHeader &header)
{
    if (m_recorder)
        m_recorder->startStream(header);
    if (m_nexus)
        m_nexus->writer().startStream(header);
    checkNexus();
}

void HeadlessOutput::addReadings(const ReadingBlock &readings)
{
    m_anyReading = m_anyReading || !readings.isEmpty();
    if (m_recorder)
        m_recorder->addReadings(readings);
    if (m_nexus)
        m_nexus->writer().addReadings(readings);
    checkNexus();
}

void HeadlessOutput::addEvent(const QString &text)
{
    if (m_recorder)
        m_recorder->addEvent(text);
    if (m_nexus)
        m_nexus->writer().addEvent(text);
}

//! Tells of a failure once.
void HeadlessOutput::checkNexus()
{
    if (!m_nexus || !m_nexus->writer().hasFailed() || std::exchange(m_hasFailed, true))
        return;
    m_nexus->finish(); // which says what cannot be written
    Q_EMIT failed(m_nexus->errorString());
}

bool HeadlessOutput::finish(bool isWhole)
{
    bool isWritten = !m_recorder || m_recorder->finish();
    if (m_nexus && isWhole && m_anyReading && !m_hasFailed) {
        isWritten = m_nexus->finish();
        if (!isWritten)
            Q_EMIT noted(m_nexus->errorString());
    } else if (m_nexus) {
        m_nexus->discard();
    }
    return isWritten;
}

} // namespace Monitor
