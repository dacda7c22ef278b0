// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/FileSource.h"
#include "monitor/tape/TapeIndex.h"

#include <QObject>

#include <memory>
#include <optional>

namespace Monitor {

class Clock;
class TapeIndexThread;

/*! Plays a recording like a tape: pauses, steps, plays at another speed, goes to another place, and repeats what lies between
    two marks. It needs the index of the recording for places, and makes it in the background; play, pause, speed and single
    steps forwards work without it. Positions are those of TapeIndex.

    A place that is sought is gone to at the next tick, so that of many in a row only the last one is read. */
class TapeDeck : public QObject
{
    Q_OBJECT

public:
    //! A stretch of the tape that is repeated, in seconds.
    struct Loop
    {
        double from = 0.0;
        double to = 0.0;
    };

    //! Both must outlive the deck. The index is kept in \a cacheFolder; the user's folder of caches if it is empty.
    TapeDeck(FileSource &source,
             Clock &clock,
             const QString &cacheFolder = {},
             QObject *parent = nullptr);
    ~TapeDeck() override;

    //! Returns the speeds that a person can choose, slowest first; 0, for as fast as possible, is the last one.
    static QVector<double> speeds();

    bool isPlaying() const;
    //! Plays on; from the beginning, or that of the loop, if the end was reached.
    void play();
    void pause();
    void toggle();
    //! Pauses at the next reading, or at the one before.
    void stepForwards();
    void stepBackwards();
    double speed() const { return m_source.speed(); }
    void setSpeed(double speed);

    //! Goes to a position, which is moved into the tape. Does nothing before there is an index.
    void seek(double position);
    void seekBy(double seconds) { seek(position() + seconds); }
    //! Goes to the next mark, or to the one before.
    void seekNextMark();
    void seekFormerMark();
    //! Repeats a stretch of the tape; nothing is repeated if it is empty.
    void setLoop(const Loop &loop);
    //! Begins, or ends, the loop at the present position.
    void beginLoopHere();
    void endLoopHere();
    void clearLoop();
    const std::optional<Loop> &loop() const { return m_loop; }

    //! Returns whether places can be sought.
    bool isIndexed() const { return !m_index.isEmpty(); }
    //! Returns how much of the recording has been indexed, from 0 to 1.
    double indexProgress() const;
    //! Returns why there is no index; empty while it is made, and if there is one.
    QString indexError() const { return m_indexError; }
    const TapeIndex &index() const { return m_index; }

    //! Returns the position of the reading that is shown, or that is sought.
    double position() const;
    //! Returns the place of the reading that is shown, or that is sought.
    TapeSpot spot() const;
    double length() const { return m_index.length(); }

Q_SIGNALS:
    //! Emitted when the position changed.
    void moved();
    //! Emitted when something else changed: playing, speed, loop, or the index.
    void changed();

private:
    void tick();
    void takeIndex();
    void seekSpot(const TapeSpot &spot);
    void goTo(const TapeSpot &spot);
    void repeatIfDue();
    void updateStop();
    void tellChange();

    FileSource &m_source;
    Clock &m_clock;
    std::unique_ptr<TapeIndexThread> m_indexing;
    TapeIndex m_index;
    QString m_indexError;
    int m_toldProgress = 0; // percent
    std::optional<Loop> m_loop;
    std::optional<TapeSpot> m_sought;
    double m_toldPosition = -1.0;
    bool m_toldPlaying = false;
};

} // namespace Monitor
