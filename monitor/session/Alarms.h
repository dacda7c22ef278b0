// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/statistics/LimitLog.h"

#include <QObject>
#include <QVector>

namespace Monitor {

/*! Which channels are beyond their limits, and which alarms nobody has acknowledged yet. An alarm stays listed until it is
    acknowledged, also if the readings have come back; a warning goes when they do. */
class Alarms : public QObject
{
    Q_OBJECT

public:
    //! What there is to say about a channel.
    struct Entry
    {
        int channel = 0; //!< counted from 0; -1 if the channel belongs to a former stream
        QString name;
        Corvale_Qt::LimitState state = Corvale_Qt::LimitState::Normal; //!< now
        Corvale_Qt::LimitState worst = Corvale_Qt::LimitState::Normal; //!< since the entry was made
        bool isUnacknowledged = false;
        QString limit; //!< the worst limit that was passed, for example "500 nA"

        //! Returns whether readings are beyond a limit now.
        bool lasts() const { return state != Corvale_Qt::LimitState::Normal; }
    };

    explicit Alarms(QObject *parent = nullptr);

    //! Begins a new acquisition. Alarms that nobody has acknowledged stay.
    void startStream(const StreamHeader &header);
    //! Uses other limits for the stream that goes on.
    void setHeader(const StreamHeader &header) { m_header = header; }
    //! Takes what the last readings have changed.
    void update(LimitLog &log);
    //! Acknowledges all alarms.
    void acknowledge();

    //! Returns what is beyond a limit or waits to be acknowledged: alarms first, then warnings, in the order of their beginnings.
    QVector<Entry> entries() const;
    //! Returns the state of a channel, counted from 0.
    Corvale_Qt::LimitState state(int channel) const;
    //! Returns whether an alarm waits to be acknowledged.
    bool isUnacknowledged() const;

Q_SIGNALS:
    //! entries() has changed.
    void changed();
    //! Emitted with a line for the log when readings pass a limit and when they are within the limits again.
    void noted(const QString &text);

private:
    void take(const LimitLog::Change &change);
    Entry &entryOf(int channel);
    void dropSettled();

    StreamHeader m_header;
    QVector<Entry> m_entries;
};

} // namespace Monitor
