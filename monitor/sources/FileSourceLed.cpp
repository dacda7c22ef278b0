// SPDX-License-Identifier: LGPL-2.1-or-later
// What a file source does for somebody who plays it together with others.
#include "monitor/core/Clock.h"
#include "monitor/sources/FileIntake.h"
#include "monitor/sources/FileSource.h"

#include <algorithm>

namespace Monitor {

void FileSource::setLed(bool on)
{
    m_limit = on ? std::optional(PlayLimit()) : std::nullopt;
    if (!on) {
        m_origins.clear();
        m_play.moveTo(clock().seconds(), m_shown.time);
    }
    updatePace();
}

std::optional<FileSource::Place> FileSource::next()
{
    while (m_waiting == 0 && state() == State::Running && readOn()) { }
    for (const Part &part : m_parts)
        if (part.next < part.readings.size())
            return Place{part.number, part.readings.time(part.next)};
    return std::nullopt;
}

int FileSource::playTo(const PlayLimit &limit)
{
    if (state() != State::Running || !isLed())
        return 0;
    m_limit = limit;
    next();
    const qint64 before = m_intake->played();
    playDue();
    const qint64 after = m_intake->played();
    next(); // so that the end is known as soon as it is reached
    finishWhenPlayed();
    return int(after - before);
}

void FileSource::passTo(const PlayLimit &limit)
{
    for (auto passed = next(); passed && limit.reaches(passed->part, passed->time);
         passed = next()) {
        Part &part = *std::find_if(m_parts.begin(), m_parts.end(), [&](const Part &each) {
            return each.number == passed->part;
        });
        ++part.next;
        --m_waiting;
        removePlayed(&part);
        while (m_parts.size() > 1 && m_parts.front().readings.isEmpty())
            m_parts.pop_front();
    }
}

void FileSource::passToEnd()
{
    if (state() != State::Running)
        return;
    m_waiting = 0;
    m_parts.clear();
    m_intake->events.clear();
    m_atEnd = true;
    finishWhenPlayed();
}

void FileSource::fail(const LoggedText &text)
{
    m_waiting = 0;
    m_parts.clear();
    m_intake->events.clear();
    setState(State::Failed, text);
}

} // namespace Monitor
