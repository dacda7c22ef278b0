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

/*! Works on items in a separate thread, one after the other, and hands them back in their order. Its owner adds and takes items in
    one thread and decides how many are pending; the work must not touch anything that the owner uses meanwhile. */
template<typename Item>
class OrderedWorker
{
public:
    explicit OrderedWorker(std::function<void(Item &)> work)
        : m_work(std::move(work))
    {
    }
    //! Waits for the item in work; the others are dropped.
    ~OrderedWorker()
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_isEnding = true;
            m_waiting.clear();
            m_added.notify_one();
        }
        if (m_thread.joinable())
            m_thread.join();
    }
    OrderedWorker(const OrderedWorker &) = delete;
    OrderedWorker &operator=(const OrderedWorker &) = delete;

    //! Adds an item. It is worked on at once if the system has no more threads.
    void add(Item item)
    {
        ++m_pending;
        const bool isLeftToThread = hasThread();
        if (!isLeftToThread)
            m_work(item);
        const std::lock_guard<std::mutex> lock(m_mutex);
        (isLeftToThread ? m_waiting : m_done).push_back(std::move(item));
        m_added.notify_one();
    }
    //! Returns how many items were added and not taken.
    int pending() const { return m_pending; }
    //! Waits for the oldest pending item, and returns it. There must be one.
    Item take()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_finished.wait(lock, [this] {
            return !m_done.empty();
        });
        Item item = std::move(m_done.front());
        m_done.pop_front();
        --m_pending;
        return item;
    }

private:
    bool hasThread()
    {
        return m_thread.joinable() || startThread(&m_thread, [this] {
                   run();
               });
    }
    void run()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        for (;;) {
            m_added.wait(lock, [this] {
                return m_isEnding || !m_waiting.empty();
            });
            if (m_isEnding)
                return;
            Item item = std::move(m_waiting.front());
            m_waiting.pop_front();
            lock.unlock();
            m_work(item);
            lock.lock();
            m_done.push_back(std::move(item));
            m_finished.notify_one();
        }
    }

    const std::function<void(Item &)> m_work;
    int m_pending = 0; //!< belongs to the owner

    std::mutex m_mutex;
    std::condition_variable m_added;
    std::condition_variable m_finished;
    std::deque<Item> m_waiting;
    std::deque<Item> m_done;
    bool m_isEnding = false;
    std::thread m_thread; //!< the last member, since it uses the others
};

} // namespace Monitor
