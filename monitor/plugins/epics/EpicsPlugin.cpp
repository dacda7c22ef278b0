// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/epics/EpicsPlugin.h"

#include "monitor/plugins/epics/EpicsReader.h"
#include "monitor/plugins/epics/EpicsText.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr int mostVariables = 256;

QStringList namesIn(const QString &address)
{
    QString rest = address.mid(address.indexOf(QLatin1Char(':')) + 1);
    while (rest.startsWith(QLatin1Char('/')))
        rest.remove(0, 1);
    return rest.split(QLatin1Char(','));
}

//! Returns whether the protocol can carry the name, and a server can have it.
bool isName(const QString &name)
{
    constexpr int longest = 255;
    return !name.isEmpty() && name.size() <= longest
        && std::all_of(name.begin(), name.end(), [](QChar character) {
               return character > QLatin1Char(' ') && character < QChar(0x7f);
           });
}

} // namespace

QString EpicsPlugin::check(const QString &address) const
{
    const QStringList names = namesIn(address);
    if (!std::all_of(names.begin(), names.end(), isName))
        return EpicsText::tr(
                   "\"%1\" should be ca:NAME or ca:NAME,NAME with names of process variables")
            .arg(address);
    if (names.size() > mostVariables)
        return EpicsText::tr("\"%1\" names %2 process variables; a window shows %3 at most")
            .arg(address.left(60), QString::number(names.size()), QString::number(mostVariables));
    QString error;
    ChannelAccess::Library::load(&error);
    return error;
}

std::unique_ptr<CorvaleMonitor::SourceConnection>
EpicsPlugin::open(const QString &address,
                  const std::shared_ptr<CorvaleMonitor::SourceReceiver> &receiver)
{
    QString error;
    const ChannelAccess::Library *library = ChannelAccess::Library::load(&error);
    if (!library) {
        receiver->setState(CorvaleMonitor::SourceState::Failed, error);
        return nullptr;
    }
    return std::make_unique<EpicsConnection>(
        std::make_shared<EpicsReader>(*library, address, namesIn(address), receiver));
}

QString EpicsPlugin::remedy() const
{
    return EpicsText::tr(
        "Check the names, that the server runs, and EPICS_CA_ADDR_LIST if it is on another "
        "network; caget NAME shows whether this machine reaches it.");
}
