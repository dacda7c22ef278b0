// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/tango/TangoName.h"

#include "monitor/plugins/tango/TangoText.h"

#include <QRegularExpression>

std::optional<TangoName> TangoName::fromText(const QString &text, QString *error)
{
    // The host, its port, the device, the end. A name in the protocol has no other characters.
    static const QRegularExpression form(
        QStringLiteral("^tango:(?://([A-Za-z0-9_.-]*):([0-9]{1,5})/)?"
                       "([A-Za-z0-9_.-]+/[A-Za-z0-9_.-]+/[A-Za-z0-9_.-]+)(#dbase=(?:no|yes))?$"));
    const QRegularExpressionMatch match = form.match(text);
    TangoName name;
    name.host = match.captured(1);
    name.port = match.captured(2).toInt();
    name.device = match.captured(3);
    name.hasDatabase = match.captured(4) != QLatin1String("#dbase=no");
    constexpr int highestPort = 65535;
    const bool hasHost = !match.captured(2).isEmpty();
    const bool isPort = !hasHost || (name.port > 0 && name.port <= highestPort);
    // A database has a host, and a server without a database has a port.
    const bool isPlace = name.hasDatabase ? !hasHost || !name.host.isEmpty() : hasHost;
    if (match.hasMatch() && isPort && isPlace)
        return name;
    *error =
        TangoText::tr("\"%1\" should be tango:DOMAIN/FAMILY/MEMBER, a device that is defined in "
                      "the database, or tango://HOST:PORT/DOMAIN/FAMILY/MEMBER#dbase=no, which "
                      "is served at that address without a database")
            .arg(text.left(200));
    return std::nullopt;
}
