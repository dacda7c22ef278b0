// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/LineProtocol.h"
#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"

#include <QObject>

namespace Monitor {

class Clock;

/*! Where readings come from. A source is made idle and begins with start(); from then on it only emits. All of it
    runs on the GUI's thread and never waits.

    Readings come in blocks, in the order of their times; streamStarted() comes before the first of them and
    whenever another acquisition begins. */
class Source : public QObject
{
    Q_OBJECT

public:
    enum class State {
        Idle,
        Connecting, //!< not there yet, for the first time
        Running,
        Retrying, //!< lost, will be tried again
        Finished, //!< came to its end
        Failed, //!< there is nothing to wait for
    };
    Q_ENUM(State)

    ~Source() override;

    virtual void start() = 0;
    //! The source as a person would name it.
    virtual QString description() const = 0;
    //! Whether its readings are made up.
    virtual bool isSimulated() const { return false; }
    virtual LineCounts counts() const;
    //! Whether it reads from the file of that path, which nothing may write to then.
    virtual bool readsFrom(const QString &path) const;
    //! What a person can do where it fails or is silent; empty where nothing general can be said.
    virtual QString remedy() const;

    State state() const { return m_state; }
    //! What goes with the state: what was tried, what came back, what to do about it.
    QString stateText() const { return m_stateText; }

Q_SIGNALS:
    void streamStarted(const Monitor::StreamHeader &header);
    void readingsArrived(const Monitor::ReadingBlock &readings);
    //! A line for the log.
    void noted(const QString &text);
    void lineRefused(const Monitor::RefusedLine &line);
    void stateChanged(Monitor::Source::State state, const QString &text);

protected:
    Source(Clock &clock, QObject *parent);
    void setState(State state, const QString &text = QString());
    Clock &clock() const { return m_clock; }

private:
    Clock &m_clock;
    State m_state = State::Idle;
    QString m_stateText;
};

//! Collects what is read from lines and emits it through a source, readings in one block.
class SourceSink : public StreamSink
{
public:
    explicit SourceSink(Source &source);
    //! Emits the readings that were collected since the last time.
    void flush();
    //! Readings collected and not emitted yet.
    int waiting() const { return m_block.size(); }

    void streamStarted(const StreamHeader &header) override;
    void reading(double time, const double *values) override;
    void eventNoted(const QString &text) override;
    void lineRefused(const RefusedLine &line) override;

private:
    Source &m_source;
    ReadingBlock m_block;
};

} // namespace Monitor

Q_DECLARE_METATYPE(Monitor::Source::State)
