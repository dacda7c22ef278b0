// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/plugins/tango/TangoAddress.h"
#include "monitor/plugins/tango/TangoDevice.h"
#include "monitor/plugins/tango/TangoEventQueue.h"
#include "monitor/plugins/tango/TangoStream.h"

#include <condition_variable>
#include <mutex>

/*! Reads attributes of a device in a thread of its own, and looks for the device again when it has gone. Nobody waits for the thread: it
    keeps its reader until a call that the device does not answer has ended.

    A single attribute is read by events if the server sends them. Several are polled even then: one call reads all of them at the same
    moment, whereas events would come one after the other, and a row of them would repeat old values as new. */
class TangoReader
{
public:
    //! So long after a failure, the device is asked again.
    static constexpr std::chrono::seconds retryPause{1};
    //! A server that sends events is asked so often whether it is still there.
    static constexpr std::chrono::seconds pingInterval{1};

    TangoReader(const TangoAddress &address,
                const std::shared_ptr<CorvaleMonitor::SourceReceiver> &receiver);
    //! Begins to read, in a thread of its own.
    static void start(const std::shared_ptr<TangoReader> &reader);
    //! Ends the reading soon; returns at once.
    void stop();

private:
    using Clock = std::chrono::steady_clock;

    void run();
    bool pauseUntil(Clock::time_point moment);
    bool isStopping();
    void readWhileItAnswers();
    bool connect(TangoDevice &device);
    bool subscribe(TangoDevice &device, const std::vector<TangoAttribute> &attributes);
    void poll(TangoDevice &device);
    bool takeEventsUntilSilence(TangoDevice &device);
    bool takeEvents(TangoEventQueue::Content &content);
    bool takeReadings();
    void noteConditions();
    void tellMissing();
    void lose(const TangoDevice::Fault &fault);
    void fail(const QString &text);
    void setState(CorvaleMonitor::SourceState state, const QString &text);

    const TangoAddress m_address;
    const std::shared_ptr<CorvaleMonitor::SourceReceiver> m_receiver;

    std::mutex m_mutex; //!< for m_isStopping
    std::condition_variable m_stopped;
    bool m_isStopping = false;
    TangoEventQueue m_events;

    // What follows is the thread's own.
    TangoStream m_stream;
    std::vector<TangoAttribute> m_attributes;
    std::vector<TangoReading> m_readings;
    QStringList m_conditions; //!< what was out of order with each attribute
    bool m_hasEvents = false; //!< whether the device sends them, since it was connected
    bool m_hasFailed = false;
    CorvaleMonitor::SourceState m_state = CorvaleMonitor::SourceState::Connecting;
    QString m_stateText; //!< that the receiver was told last
};

//! Readings of a device, until it is deleted.
class TangoConnection : public CorvaleMonitor::SourceConnection
{
public:
    explicit TangoConnection(const std::shared_ptr<TangoReader> &reader)
        : m_reader(reader)
    {
        TangoReader::start(reader);
    }
    ~TangoConnection() override { m_reader->stop(); }

private:
    const std::shared_ptr<TangoReader> m_reader;
};
