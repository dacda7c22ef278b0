// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LoggedText.h"
#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"
#include "monitor/recording/RecordingFile.h"
#include "monitor/recording/RecordingNames.h"
#include "monitor/recording/RecordingWorker.h"
#include "monitor/recording/SegmentForm.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace Monitor {

class Clock;

/*! Writes what arrives to files, in whole lines and at least once a second, so that a kill at any moment loses no more
    than a second and leaves a readable file. A file is only ever appended to, by one recorder.

    If the disk is full, the recorder reports it and keeps up to WaitingText::maxSize bytes until there is room again.
    Only what does not fit there is lost, and the file says how much. The recorder notices before each write whether
    others removed, renamed, replaced or changed the file, and then goes on in another one. A new acquisition begins a
    new file, but at most one per second and maxStreamFiles in all; after that it goes on in the last file. */
class Recorder : public QObject
{
    Q_OBJECT

public:
    struct Options
    {
        //! A file, or a folder in which each file gets a name from the date and time.
        QString path;
        //! What the names of the files have added, if several sources are recorded to that path; empty for nothing.
        QString label;
        //! Whether an existing file may be replaced.
        bool overwrite = false;
        /*! Whether a run that crashed has begun the recording: it goes on in the next file, whose name is that of the
            first one with a number. */
        bool continues = false;
        //! The seconds and the bytes after which a new file is begun; 0 for never.
        double rotateSeconds = 0.0;
        qint64 rotateBytes = 0;
        //! Where the readings come from, as a line for people.
        QString source;
        //! Whether readings arrive as they are taken, so that the first one dates a stream that states no date.
        bool datesArrival = false;
        //! The form that complete files are brought into. The recorder only announces them, by fileCompleted().
        SegmentForm segments = SegmentForm::Text;
        //! The permissions of new files, of which the user's mask may take some away.
        unsigned mode = RecordingFile::usualMode;
    };
    //! How many files new acquisitions begin at most.
    static constexpr int maxStreamFiles = 100;

    //! \a clock must outlive the recorder.
    Recorder(Clock &clock, const Options &options, QObject *parent = nullptr);
    ~Recorder() override;

    //! Opens the first file. Returns false, with error(), if that fails.
    bool start();
    //! Begins another acquisition; the readings that follow have the channels of this header.
    void startStream(const StreamHeader &header);
    //! Records readings; those with another number of channels than the header are ignored.
    void addReadings(const ReadingBlock &readings);
    //! Records an "#event" line.
    void addEvent(const QString &text);
    /*! Writes what is left and closes the file. Returns false if readings could not be written; lostReadings() is
        their number. */
    bool finish();

    //! Returns what the recorder was made with.
    const Options &options() const { return m_options; }
    //! Returns the path of the file that is being written, or that could not be opened again.
    QString fileName() const { return m_file ? m_file->path() : QString(); }
    //! Returns the bytes of the file that is being written, with those that wait as text.
    qint64 size() const { return m_worker.size(); }
    //! Returns the bytes of all files of the recording, with those that wait as text.
    qint64 totalSize() const { return m_closedSize + size(); }
    //! Returns how many readings could not be recorded.
    qint64 lostReadings() const { return m_worker.lostReadings() + m_leftWaiting; }
    //! Returns what keeps the recorder from writing; empty while nothing does.
    const LoggedText &error() const { return m_error; }

Q_SIGNALS:
    //! Emitted when a file was begun.
    void fileStarted(const QString &fileName);
    //! Emitted when a file was closed in its place, and nothing will be written to it any more.
    void fileCompleted(const QString &fileName);
    //! Emitted with the reason, in English for the log, when writing failed; the recorder goes on trying.
    void failed(const QString &text);
    //! Emitted when writing works again.
    void recovered();
    //! Emitted with a line for the log when the recording goes on elsewhere than expected.
    void noted(const QString &text);

private:
    void tick();
    void writeIfDue();
    bool flush();
    bool writeWaiting();
    qint64 cutSize() const;
    bool open(const QString &path, RecordingFile::Existing existing, LoggedText *error);
    void replaceComplete(const QString &path, const QString &completed);
    static LoggedText existsAlready(const QString &path);
    LoggedText writingError() const;
    bool openNext();
    bool keepFileInPlace();
    bool mayBeginFileForStream();
    void rotateIfDue();
    void setError(const LoggedText &text);
    void addHeaderIfDue();
    void beginWithHeader();
    void dateStream(const ReadingBlock &readings);
    void closePresentFile();

    Clock &m_clock;
    const Options m_options;
    const RecordingNames m_names;
    std::unique_ptr<RecordingFile> m_file;
    LoggedText m_error;
    bool m_isRecording = false;
    int m_filesBegun = 0;
    double m_fileStartedAt = 0.0;
    double m_flushedAt = 0.0;
    int m_streamFiles = 0;
    double m_streamFileAt = 0.0;
    bool m_streamLimitSaid = false;
    double m_nextFileNotBefore = 0.0;

    bool m_hasHeader = false;
    bool m_headerDue = false;
    QStringList m_toTell; //!< lines for the log, kept until a listener is connected
    bool m_anyReading = false;
    StreamHeader m_header;
    qint64 m_closedSize = 0; //!< bytes of the files before the present one
    qint64 m_leftWaiting = 0; //!< readings that waited when the recording ended
    RecordingWorker m_worker; //!< the last member, since its thread uses the file
};

} // namespace Monitor
