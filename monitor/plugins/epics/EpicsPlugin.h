// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>

#include <corvale_monitor/SourcePlugin.h>

//! Reads EPICS process variables: ca:NAME,NAME.
class EpicsPlugin : public QObject, public CorvaleMonitor::SourcePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID CorvaleMonitor_SourcePlugin_iid FILE "epics.json")
    Q_INTERFACES(CorvaleMonitor::SourcePlugin)

public:
    QString check(const QString &address) const override;
    std::unique_ptr<CorvaleMonitor::SourceConnection>
    open(const QString &address,
         const std::shared_ptr<CorvaleMonitor::SourceReceiver> &receiver) override;
    QString remedy() const override;
};
