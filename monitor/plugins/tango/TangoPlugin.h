// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>

#include <corvale_monitor/ResultPublisher.h>

/*! Reads attributes of a TANGO device, tango://HOST:PORT/DOMAIN/FAMILY/MEMBER/ATTRIBUTE,ATTRIBUTE, and publishes results as those of
    another. */
class TangoPlugin : public QObject,
                    public CorvaleMonitor::SourcePlugin,
                    public CorvaleMonitor::ResultPublisher
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID CorvaleMonitor_SourcePlugin_iid FILE "tango.json")
    Q_INTERFACES(CorvaleMonitor::SourcePlugin CorvaleMonitor::ResultPublisher)

public:
    QString check(const QString &address) const override;
    std::unique_ptr<CorvaleMonitor::SourceConnection>
    open(const QString &address,
         const std::shared_ptr<CorvaleMonitor::SourceReceiver> &receiver) override;
    QString remedy() const override;

    QString checkPublished(const QString &address) const override;
    std::vector<std::unique_ptr<CorvaleMonitor::Publication>> publish(const QStringList &addresses,
                                                                      QString *error) override;
};
