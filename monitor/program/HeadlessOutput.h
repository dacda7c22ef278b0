// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/nexus/NexusOutput.h"
#include "monitor/recording/Recorder.h"
#include "monitor/recording/SegmentCompressor.h"

#include <QObject>

#include <memory>

namespace Monitor {

//! The file that a run without a window writes: a recording, or an HDF5 file.
class HeadlessOutput : public QObject
{
    Q_OBJECT

public:
    //! \a clock and \a compressor, which gets the complete files, must outlive the output.
    HeadlessOutput(Clock &clock, SegmentCompressor &compressor, QObject *parent = nullptr);
    ~HeadlessOutput() override;

    /*! Begins to write; with \a asHdf5, an HDF5 file of that path. Returns false, after failed(), if that is not
        possible. */
    bool start(const Recorder::Options &options, bool asHdf5);
    //! Begins another acquisition; the readings that follow have the channels of this header.
    void startStream(const StreamHeader &header);
    void addReadings(const ReadingBlock &readings);
    void addEvent(const QString &text);
    /*! Writes what is left. An HDF5 file is not kept if it is not \a isWhole, nor if it has no readings. Returns false if anything that
        was to be kept could not be written. */
    bool finish(bool isWhole);
    //! Returns whether the output is kept only if it is whole.
    bool isKeptWholeOnly() const { return m_nexus != nullptr; }

Q_SIGNALS:
    //! Emitted when writing fails.
    void failed(const QString &text);
    //! Emitted with a line for a person.
    void noted(const QString &text);

private:
    bool startRecorder(const Recorder::Options &options);
    bool startNexus(const Recorder::Options &options);
    void checkNexus();

    Clock &m_clock;
    SegmentCompressor &m_compressor;
    std::unique_ptr<Recorder> m_recorder;
    std::unique_ptr<NexusOutput> m_nexus;
    bool m_hasFailed = false;
    bool m_anyReading = false;
};

} // namespace Monitor
