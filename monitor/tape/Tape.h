// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/tape/TapeSurvey.h"

#include <QObject>

#include <optional>

namespace Monitor {

/*! What a person can do with recordings that are played: pause them, step, play them at another speed, go to another place, and
    repeat what lies between two marks. Positions are seconds from the beginning of the tape.

    A place that is sought is gone to at the next tick, so that of many in a row only the last one is read. */
class Tape : public QObject
{
    Q_OBJECT

public:
    //! A stretch of the tape that is repeated, in seconds.
    struct Loop
    {
        double from = 0.0;
        double to = 0.0;
    };

    //! Returns the speeds that a person can choose, slowest first; 0, for as fast as possible, is the last one.
    static QVector<double> speeds();

    virtual bool isPlaying() const = 0;
    //! Plays on; from the beginning, or that of the loop, if the end was reached.
    virtual void play() = 0;
    virtual void pause() = 0;
    void toggle();
    //! Pauses at the next reading, or at the one before.
    virtual void stepForwards() = 0;
    virtual void stepBackwards() = 0;
    virtual double speed() const = 0;
    virtual void setSpeed(double speed) = 0;

    //! Goes to a position, which is moved into the tape. Does nothing before there is an index.
    virtual void seek(double position) = 0;
    void seekBy(double seconds) { seek(position() + seconds); }
    //! Goes to the next event, to where the next gap begins or ends, or to the one before.
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
    virtual bool isIndexed() const = 0;
    //! Returns how much of the recordings has been indexed, from 0 to 1.
    virtual double indexProgress() const = 0;
    //! Returns why there is no index; empty while it is made, and if there is one.
    virtual QString indexError() const = 0;
    //! Returns the survey of the recordings on the tape; an empty one before there is an index.
    const TapeSurvey &survey() const { return m_survey; }

    //! Returns the position that is sought or was reached: that of the reading that is shown, or a later one before the next reading.
    virtual double position() const = 0;
    double length() const { return m_survey.length; }
    //! Returns what is known of a position.
    virtual TapeReadout readoutAt(double position) const = 0;
    //! Returns what is known of the reading that is shown, of the place that is sought, or of the gap that passes.
    virtual TapeReadout readout() const { return readoutAt(position()); }

Q_SIGNALS:
    //! Emitted when the position changed.
    void moved();
    //! Emitted when something else changed: playing, speed, loop, or the index.
    void changed();

protected:
    explicit Tape(QObject *parent);
    void setSurvey(const TapeSurvey &survey) { m_survey = survey; }

private:
    QVector<double> stops() const;
    double tolerance() const;
    //! Called when the loop is another one.
    virtual void takeLoop() { }

    TapeSurvey m_survey;
    std::optional<Loop> m_loop;
};

} // namespace Monitor
