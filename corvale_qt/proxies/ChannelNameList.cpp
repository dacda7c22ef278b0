// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/ChannelNameList_p.h"

#include <QDataStream>

namespace Corvale_Qt {

QString channelNameListType()
{
    return QStringLiteral("application/vnd.text.list");
}

QByteArray writeChannelNames(const QStringList &names)
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    for (const QString &name : names)
        stream << name;
    return payload;
}

QStringList readChannelNames(const QByteArray &payload, int most)
{
    QStringList names;
    QDataStream stream(payload);
    while (!stream.atEnd() && names.size() < most) {
        QString name;
        stream >> name;
        if (stream.status() != QDataStream::Ok)
            break;
        names.append(name);
    }
    return names;
}

} // namespace Corvale_Qt
