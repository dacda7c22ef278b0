// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/ThreadStart.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

namespace Monitor {

/*! A thread that works on items, one after the other. It is started with the first item. An item is the first one, and stays where it
    is, until its work is done. Other members of the owner that the work uses must be declared before it. */
template<typename Item>
class WorkThread
{
public:
    using Work = std::function<void(Item &)>;
    using Items = std::deque<Item>;

    //! \a done gets each item after its work, and may move it away; other threads see nothing meanwhile.
    WorkThread(Work work, Work done)
        : m_work(std::move(work))
        , m_done(std::move(done))
    {
    }
    //! Waits for the item in work; the others are dropped.
    ~WorkThread()
    {
        end([this] {
            m_isCancelled = true;
        });
    }
    WorkThread(const WorkThread &) = delete;
    WorkThread &operator=(const WorkThread &) = delete;

    //! Starts the thread if that was not possible until now. Returns false if the system has no more threads.
    bool start()
    {
        return m_thread.joinable() || startThread(&m_thread, [this] {
                   run();
               });
    }
    //! Adds an item. Call start() before.
    void add(Item item)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_items.push_back(std::move(item));
        m_added.notify_one();
    }
    //! Returns what \a read returns for the items that are not done, while the thread changes nothing.
    template<typename Read>
    auto locked(Read read) const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return read(m_items);
    }
    //! Waits until the items that are not done satisfy a condition.
    template<typename Condition>
    void wait(Condition condition)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait(lock, [&] {
            return condition(m_items);
        });
    }
    //! Waits until all items are done, and ends the thread. It starts again with the next item.
    void finish()
    {
        end([this] {
            m_isEnding = true;
        });
        m_isEnding = false;
    }

private:
    template<typename Order>
    void end(Order order)
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            order();
            m_added.notify_one();
        }
        if (m_thread.joinable())
            m_thread.join();
    }
    void run()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        for (;;) {
            m_added.wait(lock, [this] {
                return !m_items.empty() || m_isEnding || m_isCancelled;
            });
            if (m_items.empty() || m_isCancelled)
                return;
            Item &item = m_items.front();
            lock.unlock();
            m_work(item);
            lock.lock();
            m_done(item);
            m_items.pop_front();
            m_changed.notify_one();
        }
    }

    const Work m_work;
    const Work m_done;

    mutable std::mutex m_mutex;
    std::condition_variable m_added;
    std::condition_variable m_changed; //!< an item is done
    Items m_items;
    bool m_isEnding = false;
    bool m_isCancelled = false;
    std::thread m_thread; //!< the last member, since it uses the others
};

} // namespace Monitor
