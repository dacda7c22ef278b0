// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/CsvReader.h"
#include "monitor/sources/Source.h"

#include <QTimer>

#include <deque>
#include <limits>
#include <memory>

namespace Monitor {

//! Plays a table from a file at the pace of its times. If the file has several streams, it plays one after the other.
class FileSource : public Source
{
    Q_OBJECT

public:
    struct Options
    {
        double speed = 1.0; //!< how many times as fast as it was taken; 0 for as fast as possible
        bool loop = false;
        //! The first and the last time to play, in seconds of the file's time.
        double from = -std::numeric_limits<double>::infinity();
        double to = std::numeric_limits<double>::infinity();
    };

    FileSource(Clock &clock,
               const QString &path,
               const Options &options,
               QObject *parent = nullptr);
    ~FileSource() override;
    void start() override;
    QString description() const override;
    QString remedy() const override;
    LineCounts counts() const override;
    bool readsFrom(const QString &path) const override;
    //! Returns how much of the file has been read, from 0 to 1.
    double progress() const;

private:
    class Intake;
    void takeHeader(const StreamHeader &header);
    void takeReading(double time, const double *values);

    //! The readings of one stream that have been read and not played.
    struct Part
    {
        StreamHeader header;
        ReadingBlock readings;
        int next = 0;
        bool begun = false;
    };

    void play();
    void readAhead();
    bool readOn();
    void playDue();
    void beginPart(Part *part);
    void emitDue(Part *part);
    void finishWhenPlayed();
    bool startLoop();

    const QString m_path;
    const Options m_options;
    const std::unique_ptr<Intake> m_intake;
    CsvReader m_reader;
    QTimer m_unpaced;
    bool m_atEnd = false;

    std::deque<Part> m_parts; //!< the first one plays, the last one may still grow
    int m_partsRead = 0;
    qint64 m_waiting = 0; //!< number of readings in the parts
    ReadingBlock m_out;
    double m_playFrom = 0.0;
    double m_startedAt = 0.0;

    // About the part that is being read; a file with a single part needs it for the next round.
    bool m_firstInPart = true;
    bool m_anyReading = false;
    double m_offset = 0.0;
    double m_firstTime = 0.0;
    double m_lastTime = 0.0;
    double m_lastStep = 0.0;
};

} // namespace Monitor
