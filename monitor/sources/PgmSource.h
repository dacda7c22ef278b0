// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/FileSource.h"
#include "monitor/sources/ImageSink.h"

#include <QFile>
#include <QStringList>

namespace Monitor {

/*! Plays grey images (PGM) as frames: those of a file, one after the other, or those of all *.pgm files of a folder in the order
    of their names. Images that do not say their time are frameInterval seconds apart. */
class PgmSource : public Source
{
    Q_OBJECT

public:
    //! Seconds between two images that do not say their time.
    static constexpr double frameInterval = 0.1;

    //! \a clock must outlive the source. Options of the time hold as for tables.
    PgmSource(Clock &clock,
              const QString &path,
              const FileSource::Options &options,
              QObject *parent = nullptr);

    //! Returns whether a path is a folder, or a file that begins like a grey image or is called so.
    static bool suits(const QString &path);

    void start() override;
    QString description() const override { return m_path; }
    QString remedy() const override;
    LineCounts counts() const override { return m_images.counts(); }
    bool readsFrom(const QString &path) const override;

private:
    struct Frame
    {
        double time = 0.0;
        PgmImage image;
    };

    void play();
    void readOn();
    bool openNext();
    bool startLoop();
    void take(const PgmImage &image);
    void refuse(const QString &fault, Refusal refusal = Refusal::Unreadable);
    void finishWhenPlayed();

    const QString m_path;
    const FileSource::Options m_options;
    QStringList m_files;
    int m_nextFile = 0;
    QFile m_file;
    QString m_error;
    ImageSink m_images;
    PgmReader m_reader;
    QTimer m_unpaced{this};
    bool m_atEnd = false;

    std::deque<Frame> m_waiting;
    qint64 m_number = 0; //!< images of this round so far
    std::optional<double> m_lastTime; //!< of the last frame that was taken
    std::optional<double> m_roundFrom; //!< time of the first frame that was taken in this round
    double m_lastStep = frameInterval;
    double m_offset = 0.0; //!< added to the times of this round
    std::optional<double> m_playFrom; //!< time of the first frame
    double m_startedAt = 0.0;
};

} // namespace Monitor
