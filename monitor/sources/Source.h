// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LineCounts.h"
#include "monitor/core/LoggedText.h"
#include "monitor/core/RefusedLine.h"
#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"

#include <QObject>

#include <optional>

namespace Monitor {

class Clock;

/*! Where readings come from. A source is idle until start(); from then on it reports by its signals. It runs on the
    thread of the GUI and never blocks it.

    Readings come in blocks, in the order of their times. streamStarted() is emitted before the first of them and
    whenever another acquisition begins. */
class Source : public QObject
{
    Q_OBJECT

public:
    //! How many bytes a source reads at a time.
    static constexpr int pieceSize = 256 * 1024;

    enum class State {
        Idle,
        Connecting, //!< the first connection is being made
        Running,
        Retrying, //!< the connection was lost and will be made again
        Finished, //!< the source has delivered everything
        Failed, //!< the source cannot be read, or not to its end
    };
    Q_ENUM(State)

    ~Source() override;

    //! Begins to deliver readings.
    virtual void start() = 0;
    //! Returns the source as a person would name it.
    virtual QString description() const = 0;
    //! Returns whether this stands for no source at all.
    virtual bool isNone() const { return false; }
    //! Returns whether the readings are simulated.
    virtual bool isSimulated() const { return false; }
    //! Returns whether the readings come from an instrument as it takes them, so that their arrival dates them.
    virtual bool isLive() const { return false; }
    //! Returns whether the source holds its readings back on purpose, so that its silence means nothing.
    virtual bool isHolding() const { return false; }
    /*! Called when the reading of that time, in seconds, is the last that is wanted: a source that can be held stops there, and any
        other one goes on. */
    virtual void holdAfter(double time);
    //! Sets whether a lost connection is made again (the default) or ends the source, as runs without a window need it.
    virtual void setReconnecting(bool on);
    //! A moment at which t is 0.
    struct PlacedOrigin
    {
        double seconds =
            0.0; //!< since 1970, or since another moment that the recordings that are played together share
        bool isDated = false; //!< whether the seconds are those since 1970
    };
    //! Returns the moment at which t is 0 in the present stream, if somebody other than the stream itself placed it in time.
    virtual std::optional<PlacedOrigin> placedOrigin() const { return std::nullopt; }
    //! Returns how many lines were read and refused since start().
    virtual LineCounts counts() const;
    //! Returns whether the source reads from the file of that path, to which nothing may write then.
    virtual bool readsFrom(const QString &path) const;
    //! Returns why the source ended without a reading; empty if it has not, or if that is not known.
    virtual QString emptyReason() const;
    //! Returns what a person can do if the source fails or is silent; empty if there is no general advice.
    virtual QString remedy() const;

    State state() const { return m_state; }
    //! Returns what was tried and what came back, for the present state.
    QString stateText() const { return m_stateText.shown(); }
    //! Returns the same in English, for the log.
    QString loggedStateText() const { return m_stateText.logged(); }

Q_SIGNALS:
    //! Emitted when another acquisition begins, before its first readings.
    void streamStarted(const Monitor::StreamHeader &header);
    /*! Emitted when the readings that follow belong to the same acquisition but do not go on from those before, which
        somebody passed over or wants to see again. */
    void jumped();
    //! Emitted with further readings of the stream.
    void readingsArrived(const Monitor::ReadingBlock &readings);
    //! Emitted with a line for the log.
    void noted(const QString &text);
    //! Emitted with the bytes as they came, for those that show them; the bytes are valid only while the signal is emitted.
    void bytesArrived(const QByteArray &bytes);
    //! Emitted for each line that was dropped.
    void lineRefused(const Monitor::RefusedLine &line);
    //! Emitted when the state or its text changed.
    void stateChanged(Monitor::Source::State state, const QString &text);

protected:
    //! \a clock must outlive the source.
    Source(Clock &clock, QObject *parent);
    //! Sets the state, and the text that stateText() and loggedStateText() return.
    void setState(State state, const LoggedText &text = LoggedText());
    Clock &clock() const { return m_clock; }

private:
    Clock &m_clock;
    State m_state = State::Idle;
    LoggedText m_stateText;
};

} // namespace Monitor

Q_DECLARE_METATYPE(Monitor::Source::State)
