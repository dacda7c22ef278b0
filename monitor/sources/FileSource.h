// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ImportOptions.h"
#include "monitor/input/TableReader.h"
#include "monitor/sources/PlayClock.h"
#include "monitor/sources/PlayLimit.h"
#include "monitor/sources/Source.h"

#include <QTimer>

#include <deque>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

namespace Monitor {

/*! Plays the readings of a file, a table or an HDF5 file, at the pace of their times. If the file has several streams, it plays one after the other, each as a
    part. It can be paused, stepped, played at another speed and moved to another place; or it is led by somebody who plays it together
    with others. */
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
        ImportOptions import; //!< how the table is read
        bool passesDamage = false; //!< whether reading goes on behind damage of a compressed file
    };
    //! A place in the file: one of its parts, from 0, and a time in seconds of that part.
    struct Place
    {
        int part = 0;
        double time = 0.0;
    };

    FileSource(Clock &clock,
               const QString &path,
               const Options &options,
               QObject *parent = nullptr);
    ~FileSource() override;
    void start() override;
    QString description() const override;
    QString remedy() const override;
    QString emptyReason() const override;
    LineCounts counts() const override;
    bool readsFrom(const QString &path) const override;
    bool isHolding() const override;
    void holdAfter(double time) override;
    std::optional<PlacedOrigin> placedOrigin() const override;
    //! Returns how much of the file has been read, from 0 to 1.
    double progress() const;
    QString path() const { return m_path; }
    const Options &options() const { return m_options; }

    //! Pauses the file, or plays on; the source may be told before start().
    void setPaused(bool paused);
    //! Sets how many times as fast as the file was taken it is played; 0 for as fast as possible.
    void setSpeed(double speed);
    double speed() const { return m_play.speed(); }
    //! Plays the next reading, and pauses.
    void step();
    /*! Goes to a place: jumped() or streamStarted() is emitted, then the readings from \a entry on that are not after the
        place, and playing goes on or stays paused there. \a entry is before the place and lies in part \a entryPart.
        From then on the file is played to its end, once. If the file is led, no reading is emitted before playTo(). */
    void seek(const Place &place, const ReadPoint &entry, int entryPart);
    //! Sets a place after which nothing is played; without one the file is played to its end.
    void setStop(const std::optional<Place> &stop);
    //! Returns whether everything up to the stop was played, and more would follow.
    bool isAtStop() const;
    //! Returns the place of the last reading that was played.
    Place place() const;
    //! Returns the place up to which the file was played: that of the last reading, or a later one before the next reading.
    Place reached() const;
    //! Returns whether any reading was played since the start, or since the last seek().
    bool hasPlayed() const { return m_hasPlayed; }

    /*! Lets the caller lead the file, or lets it play by itself. A file that is led plays only what playTo() asks for,
        and nothing of its options but how it is read holds: the caller repeats it and leaves out what is not wanted. */
    void setLed(bool on);
    bool isLed() const { return m_limit.has_value(); }
    //! Returns the place of the next reading, which is read if none waits; nothing at the end.
    std::optional<Place> next();
    //! Plays what is within a limit and has been read, at least the next reading. Returns the number of readings. For files that are led.
    int playTo(const PlayLimit &limit);
    //! Passes over the readings that are within a limit. For files that are led.
    void passTo(const PlayLimit &limit);
    //! Passes over everything that is left. For files that are led.
    void passToEnd();
    //! Gives the file up, with what was tried and what came back.
    void fail(const LoggedText &text);
    //! Sets the moment at which t is 0 in each part.
    void setPlacedOrigins(const std::vector<PlacedOrigin> &origins) { m_origins = origins; }

private:
    class Intake;
    void takeHeader(const StreamHeader &header);
    void takeReading(double time, const double *values);

    //! The readings of one stream that have been read and not played.
    struct Part
    {
        StreamHeader header;
        ReadingBlock readings;
        int number = 0;
        int next = 0;
        bool begun = false;
    };

    void play();
    void readAhead();
    qint64 waitingValues() const;
    bool readOn();
    void playDue();
    void beginPart(Part *part);
    void emitDue(Part *part);
    LoggedText readingFailed() const;
    void finishWhenPlayed();
    bool startLoop();
    void updatePace();
    double timeInRound(double time) const;
    void readUpTo(const Place &place);
    bool isReached(int part) const { return !m_limit || part <= m_limit->part; }
    bool isDue(int part, double time, double clockDue) const;
    void removePlayed(Part *part);

    const QString m_path;
    Options m_options;
    const std::unique_ptr<Intake> m_intake;
    std::unique_ptr<TableReader> m_reader; //!< null before start()
    QTimer m_unpaced{this};
    bool m_atEnd = false;
    RefusedLine m_firstRefused;

    std::deque<Part> m_parts; //!< the first one plays, the last one may still grow
    int m_partsRead = 0;
    qint64 m_waiting = 0; //!< number of readings in the parts
    ReadingBlock m_out;
    PlayClock m_play;
    std::optional<Place> m_stop;
    std::optional<PlayLimit> m_limit; //!< of a file that is led; nothing otherwise
    std::vector<PlacedOrigin> m_origins; //!< of the parts, if somebody placed them
    std::optional<Place> m_sought; //!< until its part begins
    bool m_hasPlayed = false;
    Place m_shown{-1, 0.0}; //!< with the time as it was emitted
    double m_roundLength = 0.0; //!< seconds, once a single part was played to its end

    // About the part that is being read; a file with a single part needs it for the next round.
    bool m_firstInPart = true;
    bool m_anyReading = false;
    double m_offset = 0.0;
    double m_firstTime = 0.0;
    double m_lastTime = 0.0;
    double m_lastStep = 0.0;
};

} // namespace Monitor
