// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_monitor/ResultPublisher.h>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

/*! What a device answers at a moment: results that do not change any more, so that any number of clients can be answered from them
    without a lock. */
struct TangoSnapshot
{
    CorvaleMonitor::Results results;
    CorvaleMonitor::ResultStream stream;
    bool isClosed = false; //!< whether no more results will come

    //! Returns whether the numbers are those of now, as far as is known.
    bool isCurrent() const;
};

//! Where the newest snapshot of a device hangs. Both sides hold its lock for the copying of a pointer only.
class TangoBoard
{
public:
    //! Returns the newest snapshot; never null.
    std::shared_ptr<const TangoSnapshot> newest() const
    {
        const std::lock_guard lock(m_mutex);
        return m_newest;
    }
    void put(std::shared_ptr<const TangoSnapshot> snapshot)
    {
        const std::lock_guard lock(m_mutex);
        m_newest.swap(snapshot);
    }

private:
    mutable std::mutex m_mutex;
    std::shared_ptr<const TangoSnapshot> m_newest = std::make_shared<TangoSnapshot>();
};
