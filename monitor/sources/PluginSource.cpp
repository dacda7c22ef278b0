// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/PluginSource.h"

#include "monitor/core/Clock.h"
#include "monitor/core/Text.h"
#include "monitor/sources/PluginCall.h"
#include "monitor/sources/PluginStream.h"

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

//! This many readings in a row that agree on an earlier time are believed: the clock was set back.
constexpr int readingsOfAnotherTime = 10;

} // namespace

PluginSource::PluginSource(Clock &clock,
                           CorvaleMonitor::SourcePlugin &plugin,
                           const QString &address,
                           QObject *parent)
    : Source(clock, parent)
    , m_plugin(plugin)
    , m_address(address)
    // The queue is closed before this object is gone, and is never awake then.
    , m_queue(std::make_shared<PluginQueue>([this] {
        QMetaObject::invokeMethod(this, &PluginSource::drain, Qt::QueuedConnection);
    }))
{
}

PluginSource::~PluginSource()
{
    m_queue->close();
}

void PluginSource::start()
{
    setState(State::Connecting, LoggedText::of([this] {
                 return tr("opening %1").arg(m_address);
             }));
    QString error;
    callPlugin(&error, [this] {
        m_connection = m_plugin.open(m_address, m_queue);
    });
    if (!error.isEmpty())
        fail(error);
    else if (!m_connection && state() == State::Connecting)
        fail(LoggedText::of([] {
            return tr("the plugin cannot open it");
        }));
}

//! Takes what the threads of the plugin have delivered.
void PluginSource::drain()
{
    clock().stayAwakeIfSeen();
    const PluginQueue::Content content = m_queue->takeAll();
    for (const PluginQueue::Item &item : content.items) {
        if (state() == State::Failed || state() == State::Finished)
            return;
        if (const auto *stream = std::get_if<CorvaleMonitor::SourceStream>(&item))
            takeStream(*stream);
        else if (const auto *readings = std::get_if<PluginQueue::Readings>(&item))
            takeReadings(*readings);
        else if (const auto *state = std::get_if<PluginQueue::State>(&item))
            takeState(*state);
        else if (const auto *note = std::get_if<PluginQueue::Note>(&item))
            Q_EMIT noted(note->text);
        else if (const auto *line = std::get_if<PluginQueue::Line>(&item))
            Q_EMIT bytesArrived(line->text.toUtf8() + '\n');
    }
    if (content.droppedReadings > 0)
        Q_EMIT noted(Text::countedInEnglish(
            "WARNING %n reading(s) came while the program was busy, and is/are lost",
            nullptr,
            content.droppedReadings));
    if (content.droppedLines > 0)
        Q_EMIT noted(
            Text::countedInEnglish("WARNING %n more line(s) of the source is/are not listed",
                                   nullptr,
                                   content.droppedLines));
}

void PluginSource::takeStream(const CorvaleMonitor::SourceStream &stream)
{
    QString error;
    const std::optional<StreamHeader> header = headerOfPlugin(stream, &error);
    if (!header) {
        fail(error);
        return;
    }
    m_header = *header;
    m_valuesGiven = std::size_t(stream.valuesPerReading());
    m_isOnChange = stream.onChange;
    m_lastTime = -std::numeric_limits<double>::infinity();
    m_earlierTimes = 0;
    if (m_header.leftOutChannels > 0)
        Q_EMIT noted(
            Text::countedInEnglish("WARNING %n channel(s) beyond the first %1 is/are left out",
                                   nullptr,
                                   m_header.leftOutChannels)
                .arg(StreamHeader::maxChannels));
    Q_EMIT streamStarted(m_header);
}

void PluginSource::takeReadings(const PluginQueue::Readings &readings)
{
    ReadingBlock block(m_header.valuesPerReading());
    for (std::size_t row = 0; row < readings.times.size() && block.channels() > 0; ++row) {
        ++m_counts.lines;
        const double time = readings.times[row];
        const double before = m_lastTime;
        if (!believes(time))
            continue;
        if (time < before) {
            if (!block.isEmpty())
                Q_EMIT readingsArrived(block);
            block.clear(block.channels());
            Q_EMIT streamStarted(m_header);
        }
        block.append(time, readings.values.data() + row * m_valuesGiven);
        ++m_counts.readings;
    }
    if (!block.isEmpty())
        Q_EMIT readingsArrived(block);
}

//! Returns whether a reading of that time is to be shown. Many that agree on an earlier time begin another part.
bool PluginSource::believes(double time)
{
    if (!std::isfinite(time)) {
        refuse(Refusal::Unreadable, time);
        return false;
    }
    if (time < m_lastTime && ++m_earlierTimes < readingsOfAnotherTime) {
        refuse(Refusal::TimeBackwards, time);
        return false;
    }
    m_earlierTimes = 0;
    m_lastTime = time;
    return true;
}

void PluginSource::refuse(Refusal refusal, double time)
{
    ++m_counts.refused[std::size_t(refusal)];
    RefusedLine line;
    line.refusal = refusal;
    line.number = m_counts.lines;
    line.excerpt = "t = " + QByteArray::number(time, 'g', 15) + " s";
    Q_EMIT lineRefused(line);
}

void PluginSource::takeState(const PluginQueue::State &given)
{
    using CorvaleMonitor::SourceState;
    switch (given.state) {
    case SourceState::Connecting:
        setState(State::Connecting, given.text);
        break;
    case SourceState::Live:
        setState(State::Running, given.text);
        break;
    case SourceState::Lost:
        setState(m_isReconnecting ? State::Retrying : State::Failed, given.text);
        break;
    case SourceState::Finished:
        setState(State::Finished, given.text);
        break;
    case SourceState::Failed:
        setState(State::Failed, given.text);
        break;
    }
    if (state() == State::Finished || state() == State::Failed)
        m_connection.reset();
}

void PluginSource::fail(const LoggedText &text)
{
    m_connection.reset();
    setState(State::Failed, LoggedText::of([&] {
                 return QStringLiteral("%1: %2").arg(m_address, text.now());
             }));
}

} // namespace Monitor
