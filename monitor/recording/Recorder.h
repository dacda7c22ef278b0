// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"
#include "monitor/recording/RecordingFile.h"
#include "monitor/recording/RecordingNames.h"
#include "monitor/recording/WaitingText.h"

#include <QObject>

#include <memory>

namespace Monitor {

class Clock;

/*! Writes what arrives to files, whole lines at a time, at least once a second: a kill at any moment loses no more
    than that, and the file opens. A file is only ever appended to, and by one recorder.

    Where the disk is full, it says so and keeps up to WaitingText::maxSize bytes until there is room again; only what
    does not fit there is lost, and the file says how much. A file that is removed, renamed, replaced or changed by
    others is noticed before the next write, and recording goes on in another one. A new acquisition begins a new
    file, but at most one a second and maxStreamFiles in all: then it goes on in the last one. */
class Recorder : public QObject
{
    Q_OBJECT

public:
    struct Options
    {
        //! A file; or a folder, where each recording gets a name from the date and time.
        QString path;
        //! Whether an existing file may be replaced.
        bool overwrite = false;
        //! Seconds, or bytes, after which a new file is begun; 0 for never.
        double rotateSeconds = 0.0;
        qint64 rotateBytes = 0;
        //! A line for people: where the readings come from.
        QString source;
    };
    static constexpr int maxStreamFiles = 100;

    Recorder(Clock &clock, const Options &options, QObject *parent = nullptr);
    ~Recorder() override;

    //! Opens the first file; false, with errorString(), where that fails.
    bool start();
    void startStream(const StreamHeader &header);
    void addReadings(const ReadingBlock &readings);
    void addEvent(const QString &text);
    /*! Writes what is left and closes the file; false where readings could not be written, which lostReadings()
        then counts. */
    bool finish();

    //! The file that is being written, or that could not be made again.
    QString fileName() const { return m_file ? m_file->path() : QString(); }
    //! Bytes of the file that is being written, with those that wait.
    qint64 size() const { return (m_file ? m_file->size() : 0) + m_waiting.size(); }
    qint64 lostReadings() const { return m_allLost; }
    //! What keeps it from writing; empty while all is well.
    QString errorString() const { return m_error; }

Q_SIGNALS:
    //! A file was begun.
    void fileStarted(const QString &fileName);
    //! Writing failed; it goes on trying.
    void failed(const QString &text);
    //! Writing works again.
    void recovered();
    //! Something that changes where the recording is found; a line for the log.
    void noted(const QString &text);

private:
    void tick();
    void writeIfDue();
    bool flush();
    bool open(const QString &path, RecordingFile::Existing existing, QString *error);
    bool openNext();
    bool keepFileInPlace();
    bool mayBeginFileForStream();
    void rotateIfDue();
    void setError(const QString &text);
    void append(const QByteArray &text, int readings);
    void appendLoss();

    Clock &m_clock;
    const Options m_options;
    const RecordingNames m_names;
    std::unique_ptr<RecordingFile> m_file;
    QString m_error;
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
    bool m_anyReading = false;
    StreamHeader m_header;
    WaitingText m_waiting;
    QByteArray m_rows;
    qint64 m_lost = 0;
    qint64 m_allLost = 0;
};

} // namespace Monitor
