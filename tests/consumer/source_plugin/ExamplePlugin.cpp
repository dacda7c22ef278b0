// SPDX-License-Identifier: LGPL-2.1-or-later
// A plugin of corvale-monitor: example:N brings N channels that swing, 100 readings a second.
#include <QObject>

#include <chrono>
#include <cmath>
#include <condition_variable>
#include <corvale_monitor/SourcePlugin.h>
#include <mutex>
#include <thread>
#include <vector>

using namespace CorvaleMonitor;

//! Returns the number of channels in an address; 0 if it makes no sense.
static int channelsIn(const QString &address)
{
    const int count = address.mid(int(qstrlen("example:"))).toInt();
    return count >= 1 && count <= 16 ? count : 0;
}

//! Measures in a thread of its own, until it is deleted.
class ExampleConnection : public SourceConnection
{
public:
    ExampleConnection(int channels, std::shared_ptr<SourceReceiver> receiver)
        : m_channels(channels)
        , m_receiver(std::move(receiver))
        , m_thread([this] { run(); })
    {
    }
    ~ExampleConnection() override
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isStopping = true;
        }
        m_stop.notify_one();
        m_thread.join(); // it waits for nothing but its own clock
    }

private:
    void run()
    {
        SourceStream stream;
        stream.start = QDateTime::currentDateTimeUtc();
        for (int i = 0; i < m_channels; ++i) {
            SourceChannel channel;
            channel.name = QStringLiteral("swing%1").arg(i + 1);
            channel.unit = QStringLiteral("nA");
            channel.highAlarm = 0.9;
            stream.channels.append(channel);
        }
        m_receiver->begin(stream);
        m_receiver->setState(SourceState::Live, QStringLiteral("%1 channels").arg(m_channels));
        std::unique_lock lock(m_mutex);
        const auto begin = std::chrono::steady_clock::now();
        std::vector<double> values(std::size_t(m_channels), 0.0);
        for (int n = 0; !m_isStopping; ++n) {
            const double time = 0.01 * n;
            for (int i = 0; i < m_channels; ++i)
                values[std::size_t(i)] = std::sin(6.0 * time + i);
            m_receiver->add(1, &time, values.data());
            m_stop.wait_until(lock, begin + std::chrono::milliseconds(10 * (n + 1)));
        }
    }

    const int m_channels;
    const std::shared_ptr<SourceReceiver> m_receiver;
    std::mutex m_mutex;
    std::condition_variable m_stop;
    bool m_isStopping = false;
    std::thread m_thread;
};

class ExamplePlugin : public QObject, public SourcePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID CorvaleMonitor_SourcePlugin_iid FILE "example.json")
    Q_INTERFACES(CorvaleMonitor::SourcePlugin)

public:
    QString check(const QString &address) const override
    {
        return channelsIn(address) ? QString()
                                   : tr("%1: the number should be 1 to 16").arg(address);
    }
    std::unique_ptr<SourceConnection> open(const QString &address,
                                           const std::shared_ptr<SourceReceiver> &receiver) override
    {
        return std::make_unique<ExampleConnection>(channelsIn(address), receiver);
    }
};

#include "ExamplePlugin.moc"
