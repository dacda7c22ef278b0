// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/tango/TangoReader.h"

#include "monitor/plugins/support/ReaderThreads.h"
#include "monitor/plugins/tango/TangoText.h"

#include <algorithm>
#include <utility>

using CorvaleMonitor::SourceState;

TangoReader::TangoReader(const TangoAddress &address,
                         const std::shared_ptr<CorvaleMonitor::SourceReceiver> &receiver)
    : m_address(address)
    , m_receiver(receiver)
    , m_stream(receiver)
{
}

void TangoReader::start(const std::shared_ptr<TangoReader> &reader)
{
    ReaderThreads::run([reader] {
        reader->run();
    });
}

void TangoReader::stop()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isStopping = true;
    }
    m_stopped.notify_all();
    m_events.close();
}

void TangoReader::run()
{
    do
        readWhileItAnswers();
    while (!m_hasFailed && pauseUntil(Clock::now() + retryPause));
}

//! Waits. Returns whether the reading goes on.
bool TangoReader::pauseUntil(Clock::time_point moment)
{
    std::unique_lock lock(m_mutex);
    return !m_stopped.wait_until(lock, moment, [this] {
        return m_isStopping;
    });
}

bool TangoReader::isStopping()
{
    const std::lock_guard lock(m_mutex);
    return m_isStopping;
}

//! Connects, and reads until the device fails to answer or the reading is to end.
void TangoReader::readWhileItAnswers()
{
    TangoDevice device(m_address.device);
    if (!connect(device))
        return;
    if (!m_hasEvents || takeEventsUntilSilence(device))
        poll(device);
}

//! Reads until the device fails to answer or the reading is to end.
void TangoReader::poll(TangoDevice &device)
{
    Clock::time_point next = Clock::now();
    do {
        TangoDevice::Fault fault;
        if (!device.read(m_attributes, &m_readings, &fault)) {
            lose(fault);
            return;
        }
        if (!takeReadings())
            return;
        next = std::max(next + m_address.every, Clock::now()); // what was missed is not made up for
    } while (pauseUntil(next));
}

/*! Hands on events until the device fails to answer or the reading is to end. Returns whether neither is the case, but no events come any
    more; they may be held up by a firewall, and the attribute can still be read. */
bool TangoReader::takeEventsUntilSilence(TangoDevice &device)
{
    Clock::time_point next = Clock::now() + pingInterval;
    for (;;) {
        m_events.waitUntil(next);
        TangoEventQueue::Content content = m_events.takeAll();
        if (isStopping() || !takeEvents(content))
            return false;
        TangoDevice::Fault fault;
        const bool mustAsk = content.isSilent || Clock::now() >= next;
        if (mustAsk && !device.ping(&fault)) {
            lose(fault);
            return false;
        }
        if (content.isSilent)
            break;
        next = mustAsk ? Clock::now() + pingInterval : next;
    }
    m_receiver->note(QStringLiteral("WARNING %1: its events do not arrive any more; it is polled")
                         .arg(m_attributes.front().channel.name));
    // The library would go on looking for the server's events, and fill a queue that nobody empties any more.
    device.unsubscribe();
    m_stream.configure(m_attributes, false);
    return true;
}

//! Hands on what events have brought, and says what they have not. Returns whether the reading goes on.
bool TangoReader::takeEvents(TangoEventQueue::Content &content)
{
    const QString &name = m_attributes.front().channel.name;
    if (content.hasGap)
        m_receiver->note(QStringLiteral("WARNING %1: events were lost on their way").arg(name));
    if (content.lost > 0)
        m_receiver->note(QStringLiteral("WARNING %1: events came faster than they can be taken; "
                                        "lost: %2")
                             .arg(name)
                             .arg(content.lost));
    for (TangoReading &reading : content.readings) {
        m_readings.clear();
        m_readings.push_back(std::move(reading));
        if (!takeReadings())
            return false;
    }
    return true;
}

//! Asks for events where there can be any. Returns whether the device sends them.
bool TangoReader::subscribe(TangoDevice &device, const std::vector<TangoAttribute> &attributes)
{
    if (m_address.isPolled || attributes.size() != 1 || !attributes.front().isNumber)
        return false;
    const TangoAttribute &attribute = attributes.front();
    TangoDevice::Fault fault;
    if (!device.subscribe(attribute, m_events, &fault)) {
        m_receiver->tell(QStringLiteral("%1: polled, %2").arg(attribute.channel.name, fault.text));
        return false;
    }
    m_receiver->tell(QStringLiteral("%1: by change events").arg(attribute.channel.name));
    if (!attribute.eventThreshold.isEmpty())
        m_receiver->note(QStringLiteral("%1: the server sends no changes smaller than %2")
                             .arg(attribute.channel.name, attribute.eventThreshold));
    return true;
}

//! Asks for the configuration, at every connection, since it may have changed.
bool TangoReader::connect(TangoDevice &device)
{
    TangoDevice::Fault fault;
    const std::vector<TangoAttribute> attributes = device.attributes(m_address.attributes, &fault);
    if (fault.text.isEmpty()) {
        m_hasEvents = subscribe(device, attributes);
        fault = {m_stream.configure(attributes, m_hasEvents), true};
        if (!fault.text.isEmpty())
            fault.text = m_address.text + QStringLiteral(": ") + fault.text;
    }
    if (!fault.text.isEmpty()) {
        lose(fault);
        return false;
    }
    m_attributes = attributes;
    m_conditions.clear();
    for (const TangoAttribute &attribute : attributes) {
        m_conditions.append(QString());
        m_receiver->tell(attribute.summary());
    }
    return true;
}

//! Hands on what was read. Returns whether the reading goes on.
bool TangoReader::takeReadings()
{
    const auto tooLarge =
        std::find_if(m_readings.begin(), m_readings.end(), [](const TangoReading &reading) {
            return reading.isTooLarge;
        });
    if (tooLarge != m_readings.end() && !m_stream.hasBegun()) {
        fail(tooLarge->fault);
        return false;
    }
    m_stream.add(m_readings);
    noteConditions();
    tellMissing();
    return true;
}

//! Notes what is out of order with an attribute, if that has changed.
void TangoReader::noteConditions()
{
    for (std::size_t i = 0; i < m_readings.size(); ++i) {
        const QString condition = tangoCondition(m_attributes[i], m_readings[i]);
        QString &former = m_conditions[int(i)];
        if (condition == former)
            continue;
        former = condition;
        const QString name = m_attributes[i].channel.name;
        m_receiver->note(condition.isEmpty()
                             ? QStringLiteral("%1: in order again").arg(name)
                             : QStringLiteral("WARNING %1: %2").arg(name, condition));
    }
}

//! Says that the device answers, and which of its attributes have no values.
void TangoReader::tellMissing()
{
    QStringList missing;
    for (std::size_t i = 0; i < m_readings.size(); ++i)
        if (!m_readings[i].hasValues())
            missing.append(m_attributes[i].channel.name);
    constexpr int most = 3;
    const QString names = missing.size() > most
        ? missing.mid(0, most).join(QStringLiteral(", ")) + QStringLiteral(", ...")
        : missing.join(QStringLiteral(", "));
    setState(
        SourceState::Live,
        missing.isEmpty()
            ? m_address.text
            : TangoText::tr("%1, without %2, which has no valid value").arg(m_address.text, names));
}

//! Says that the device cannot be read. Unless there were readings, a fault that lasts is the end.
void TangoReader::lose(const TangoDevice::Fault &fault)
{
    if (fault.isLasting && !m_stream.hasBegun()) {
        fail(fault.text);
        return;
    }
    m_stream.interrupt();
    setState(SourceState::Lost, fault.text);
}

void TangoReader::fail(const QString &text)
{
    m_hasFailed = true;
    setState(SourceState::Failed, text);
}

//! Tells a state, unless it was told last.
void TangoReader::setState(SourceState state, const QString &text)
{
    if (state == m_state && text == m_stateText)
        return;
    m_state = state;
    m_stateText = text;
    m_receiver->setState(state, text);
}
