// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/FileSource.h"
#include "monitor/sources/ImageSink.h"

#include <QFile>
#include <QStringList>

namespace Monitor {

/*! Plays grey images (PGM) as frames: those of a file, one after the other, or those of all *.pgm files of a folder in the order
    of their names. Images that do not say their time are counted from 1. */
class PgmSource : public Source
{
    Q_OBJECT

public:
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
    void takeWanted(double time, const PgmImage &image);
    void playDue();
    void refuse(const LoggedText &fault, Refusal refusal = Refusal::Unreadable);
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
    qint64 m_number = 0; //!< images of this round so far that do not say their time
    bool m_haveTimes = true; //!< the frames that are taken
    std::optional<double>
        m_lastTime; //!< of the last frame that was taken, unless the other kind follows
    bool m_anyInRound = false; //!< a frame was taken in this round
    double m_lastStep = 1.0;
    double m_offset = 0.0; //!< added to the times of this round
    PlayClock m_play;
    std::optional<bool> m_playsTimes; //!< whether the frames that are played have times
};

} // namespace Monitor
