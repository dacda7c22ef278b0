// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/plugins/tango/TangoAttribute.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <vector>

/*! Readings of one attribute that the client library delivers in a thread of its own, until the reader takes them. All functions may be
    called from any thread. */
class TangoEventQueue
{
public:
    using Clock = std::chrono::steady_clock;

    //! At most this many numbers wait; what comes beyond them is counted.
    static constexpr std::size_t mostNumbers = 4'000'000;
    /*! The library reads the attribute while it subscribes. Events that were already on their way then arrive behind that
        reading, at the latest after this time. */
    static constexpr std::chrono::seconds overtaking{1};

    //! What has come since the queue was emptied last.
    struct Content
    {
        std::vector<TangoReading> readings;
        qint64 lost = 0; //!< readings for which there was no room
        bool hasGap = false; //!< whether the library has missed events
        bool isSilent = false; //!< whether the library no longer hears the server
    };

    //! Forgets everything; the next reading is the one that is made at the subscription.
    void restart();
    void add(TangoReading reading);
    //! Notes that events were lost on their way.
    void noteGap();
    //! Notes that no events arrive any more.
    void noteSilence();
    //! Waits for something to take; not beyond a moment, and not at all once the queue is closed.
    void waitUntil(Clock::time_point moment);
    Content takeAll();
    //! Ends all waiting.
    void close();

private:
    bool isOvertaken(double time) const;
    bool hasNews() const;

    std::mutex m_mutex; //!< for everything below
    std::condition_variable m_changed;
    Content m_content;
    std::size_t m_numbers = 0; //!< that wait
    double m_firstTime = std::numeric_limits<double>::quiet_NaN(); //!< of the first reading
    Clock::time_point m_firstArrival;
    bool m_hasFirst = false;
    bool m_isClosed = false;
};
