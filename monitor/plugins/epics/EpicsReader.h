// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/plugins/epics/EpicsRows.h"
#include "monitor/plugins/epics/EpicsVariable.h"

#include <QStringList>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <vector>

/*! Reads process variables together, in a thread that opens and closes the client library and completes rows that have waited long
    enough. The library calls back in threads of its own.

    Closing the library may take half a minute if a server does not answer any more, which nobody waits for: the thread keeps its
    reader until it is done. */
class EpicsReader
{
public:
    using Clock = std::chrono::steady_clock;

    //! A row waits so long for the variables that have not changed.
    static constexpr std::chrono::milliseconds rowPatience{100};
    //! After so long, variables that were not found are reported.
    static constexpr std::chrono::seconds searchPatience{5};

    EpicsReader(const ChannelAccess::Library &library,
                const QString &address,
                const QStringList &names,
                const std::shared_ptr<CorvaleMonitor::SourceReceiver> &receiver);
    //! Begins to read, in a thread of its own.
    static void start(const std::shared_ptr<EpicsReader> &reader);
    //! Ends the reading soon; returns at once.
    void stop();

private:
    static void keepQuiet(ChannelAccess::Exception);
    static void connectionChanged(ChannelAccess::ConnectionChange change);
    static void described(ChannelAccess::Event event);
    static void valueChanged(ChannelAccess::Event event);

    void run();
    void search();
    void takeConnection(EpicsVariable &variable, bool isUp);
    void askFor(EpicsVariable &variable);
    void takeDescription(EpicsVariable &variable, const ChannelAccess::Event &event);
    void takeValues(EpicsVariable &variable, const ChannelAccess::Event &event);
    void takeAlarm(EpicsVariable &variable, const ChannelAccess::TimeDouble &data);
    void fail(const QString &text);
    void beginIfComplete();
    void begin();
    double newestTime() const;
    bool setLayout(CorvaleMonitor::SourceStream *stream) const;
    void show(const EpicsVariable &variable);
    void tellState();
    void giveUpSearch();
    Clock::time_point nextDeadline() const;

    const ChannelAccess::Library &m_library;
    const QString m_address;
    const std::shared_ptr<CorvaleMonitor::SourceReceiver> m_receiver;
    const EpicsRows::Sink m_sink;

    std::mutex m_mutex; //!< for all that follows
    std::condition_variable m_changed;
    std::vector<EpicsVariable> m_variables;
    EpicsRows m_rows;
    double m_start = 0.0; //!< of the stream, in seconds since 1970
    bool m_hasBegun = false;
    bool m_isSearching = true; //!< whether the patience for the search has not ended
    bool m_isStopping = false;
    bool m_hasFailed = false;
    Clock::time_point m_openedAt = Clock::now();
    Clock::time_point m_rowBegan;
};

//! Readings of process variables, until it is deleted.
class EpicsConnection : public CorvaleMonitor::SourceConnection
{
public:
    explicit EpicsConnection(const std::shared_ptr<EpicsReader> &reader)
        : m_reader(reader)
    {
        EpicsReader::start(reader);
    }
    ~EpicsConnection() override { m_reader->stop(); }

private:
    const std::shared_ptr<EpicsReader> m_reader;
};
