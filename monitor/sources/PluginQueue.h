// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_monitor/SourcePlugin.h>
#include <functional>
#include <mutex>
#include <optional>
#include <variant>
#include <vector>

namespace Monitor {

/*! Carries what a plugin delivers from its threads to the thread of the window, in order. What waits is bounded: readings and lines
    that find no room are dropped and counted, and of streams and states only the last is kept. */
class PluginQueue : public CorvaleMonitor::SourceReceiver
{
public:
    static constexpr std::size_t mostValues = std::size_t(8) * 1024 * 1024;
    static constexpr std::size_t mostItems = 10000;

    //! Readings that were added together.
    struct Readings
    {
        std::vector<double> times;
        std::vector<double> values;
    };
    //! A state and its text.
    struct State
    {
        CorvaleMonitor::SourceState state = CorvaleMonitor::SourceState::Connecting;
        QString text;
    };
    //! A line for the log.
    struct Note
    {
        QString text;
    };
    //! A line for a person who tests the source.
    struct Line
    {
        QString text;
    };
    using Item = std::variant<CorvaleMonitor::SourceStream, Readings, State, Note, Line>;
    //! What has waited.
    struct Content
    {
        std::vector<Item>
            items; //!< mostItems of them, and at most a stream and a state that found no room
        qint64 droppedReadings = 0;
        qint64 droppedLines = 0;
    };

    /*! \a wake is called, in whatever thread, when something waits in a queue that was empty. */
    explicit PluginQueue(std::function<void()> wake);
    //! Takes everything out.
    Content takeAll();
    //! Forgets what waits and takes nothing more; wake is not called after that.
    void close();

    void begin(const CorvaleMonitor::SourceStream &stream) override;
    void add(int count, const double *times, const double *values) override;
    void setState(CorvaleMonitor::SourceState state, const QString &text) override;
    void note(const QString &text) override;
    void tell(const QString &line) override;

private:
    bool hasRoom() const { return m_content.items.size() < mostItems; }
    void append(Item item);
    void appendText(Item item);

    std::mutex m_mutex;
    std::function<void()> m_wake;
    Content m_content;
    std::optional<CorvaleMonitor::SourceStream> m_lastStream; //!< if it found no room
    std::optional<State> m_lastState; //!< if it found no room
    std::size_t m_values = 0; //!< that wait
    std::size_t m_valuesPerReading = 0;
    bool m_isAwake = false;
};

} // namespace Monitor
