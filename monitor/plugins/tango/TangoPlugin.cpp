// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/tango/TangoPlugin.h"

#include "monitor/plugins/tango/TangoAddress.h"
#include "monitor/plugins/tango/TangoPublication.h"
#include "monitor/plugins/tango/TangoReader.h"
#include "monitor/plugins/tango/TangoText.h"

QString TangoPlugin::check(const QString &address) const
{
    QString error;
    TangoAddress::fromText(address, &error);
    return error;
}

std::unique_ptr<CorvaleMonitor::SourceConnection>
TangoPlugin::open(const QString &address,
                  const std::shared_ptr<CorvaleMonitor::SourceReceiver> &receiver)
{
    QString error;
    const std::optional<TangoAddress> checked = TangoAddress::fromText(address, &error);
    if (!checked) {
        receiver->setState(CorvaleMonitor::SourceState::Failed, error);
        return nullptr;
    }
    return std::make_unique<TangoConnection>(std::make_shared<TangoReader>(*checked, receiver));
}

QString TangoPlugin::remedy() const
{
    return TangoText::tr("Check the names, that the device server runs, and that the address ends "
                         "with #dbase=no if its host and port are those of a device server.");
}

QString TangoPlugin::checkPublished(const QString &address) const
{
    QString error;
    TangoName::fromText(address, &error);
    return error;
}

std::vector<std::unique_ptr<CorvaleMonitor::Publication>>
TangoPlugin::publish(const QStringList &addresses, QString *error)
{
    QVector<TangoName> names;
    for (const QString &address : addresses) {
        const std::optional<TangoName> name = TangoName::fromText(address, error);
        if (!name)
            return {};
        names.append(*name);
    }
    return TangoPublication::open(names, error);
}
