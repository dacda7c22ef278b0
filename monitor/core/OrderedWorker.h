// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/WorkThread.h"

#include <deque>
#include <functional>
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
        , m_thread(m_work, [this](Item &item) {
            m_done.push_back(std::move(item));
        })
    {
    }

    //! Adds an item. It is worked on at once if the system has no more threads.
    void add(Item item)
    {
        ++m_pending;
        if (m_thread.start()) {
            m_thread.add(std::move(item));
            return;
        }
        m_work(item);
        m_done.push_back(std::move(item));
    }
    //! Returns how many items were added and not taken.
    int pending() const { return m_pending; }
    //! Waits for the oldest pending item, and returns it. There must be one.
    Item take()
    {
        m_thread.wait([this](const auto &) {
            return !m_done.empty();
        });
        return m_thread.locked([this](const auto &) {
            Item item = std::move(m_done.front());
            m_done.pop_front();
            --m_pending;
            return item;
        });
    }

private:
    const std::function<void(Item &)> m_work;
    int m_pending = 0; //!< belongs to the owner
    std::deque<Item> m_done; //!< is looked at while the thread changes nothing
    WorkThread<Item> m_thread;
};

} // namespace Monitor
