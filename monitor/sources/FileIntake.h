// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/FileSource.h"

#include <deque>
#include <utility>

namespace Monitor {

//! Hands what the reader reads to the source.
class FileSource::Intake : public StreamSink
{
public:
    explicit Intake(FileSource &source)
        : m_source(source)
    {
    }
    //! An event, its part, and how many readings were taken before it.
    struct Event
    {
        qint64 place = 0;
        int part = 0;
        QString text;
    };

    void streamStarted(const StreamHeader &header) override { m_source.takeHeader(header); }
    void reading(double time, const double *values) override
    {
        const qint64 before = m_source.m_waiting;
        m_source.takeReading(time, values);
        m_taken += m_source.m_waiting - before; // not those that are out of the wanted times
    }
    void eventNoted(const QString &text) override
    {
        events.push_back({m_taken, m_source.m_partsRead - 1, text});
    }
    void lineRefused(const RefusedLine &line) override
    {
        if (m_source.m_firstRefused.number == 0)
            m_source.m_firstRefused = line;
        Q_EMIT m_source.lineRefused(line);
    }

    //! Returns how many readings are played or passed over.
    qint64 played() const { return m_taken - m_source.m_waiting; }
    //! Returns whether an event comes before the reading that follows this many others.
    bool hasEventBefore(qint64 place) const
    {
        return !events.empty() && events.front().place <= place
            && m_source.isReached(events.front().part);
    }
    QString takeEvent()
    {
        QString text = std::move(events.front().text);
        events.pop_front();
        return text;
    }

    //! Tells the events before which everything was played.
    void tellEvents()
    {
        while (hasEventBefore(played()))
            Q_EMIT m_source.noted(takeEvent());
    }

    std::deque<Event> events; //!< that are not told yet, in their order

private:
    FileSource &m_source;
    qint64 m_taken = 0;
};

} // namespace Monitor
