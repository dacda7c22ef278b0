// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/PluginQueue.h"
#include "monitor/sources/Source.h"

#include <memory>

namespace Monitor {

//! A source that a plugin reads. It checks what the plugin delivers, so that a faulty one can do no harm to displays and files.
class PluginSource : public Source
{
    Q_OBJECT

public:
    //! \a plugin must outlive the source and have found nothing wrong with \a address.
    PluginSource(Clock &clock,
                 CorvaleMonitor::SourcePlugin &plugin,
                 const QString &address,
                 QObject *parent = nullptr);
    ~PluginSource() override;

    void start() override;
    QString description() const override { return m_address; }
    QString remedy() const override { return m_plugin.remedy(); }
    LineCounts counts() const override { return m_counts; }
    bool isLive() const override { return true; }
    bool isHolding() const override { return m_isOnChange && state() == State::Running; }
    void setReconnecting(bool on) override { m_isReconnecting = on; }

private:
    void drain();
    void takeStream(const CorvaleMonitor::SourceStream &stream);
    void takeReadings(const PluginQueue::Readings &readings);
    bool believes(double time);
    void refuse(Refusal refusal, double time);
    void takeState(const PluginQueue::State &state);
    void fail(const LoggedText &text);

    CorvaleMonitor::SourcePlugin &m_plugin;
    const QString m_address;
    const std::shared_ptr<PluginQueue> m_queue;
    std::unique_ptr<CorvaleMonitor::SourceConnection> m_connection;
    StreamHeader m_header;
    LineCounts m_counts;
    std::size_t m_valuesGiven = 0; //!< of each reading, before some are left out
    double m_lastTime = 0.0;
    int m_earlierTimes = 0; //!< readings in a row whose time went back
    bool m_isOnChange = false;
    bool m_isReconnecting = true;
};

} // namespace Monitor
