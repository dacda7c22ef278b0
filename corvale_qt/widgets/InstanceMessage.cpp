// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/InstanceMessage_p.h"

#include <QIODevice>
#include <QtEndian>

namespace Corvale_Qt {

QByteArray InstanceMessage::toBytes(const QString &message)
{
    const QByteArray utf8 = message.toUtf8();
    if (utf8.size() > kMaximumSize)
        return {};
    QByteArray bytes(kHeadSize, Qt::Uninitialized);
    qToBigEndian(quint32(utf8.size()), bytes.data());
    return bytes + utf8;
}

InstanceMessage::State InstanceMessage::take(QIODevice &device, QString *message)
{
    const QByteArray head = device.peek(kHeadSize);
    if (head.size() < kHeadSize)
        return State::Incomplete;
    const auto size = qFromBigEndian<quint32>(head.constData());
    if (size > quint32(kMaximumSize))
        return State::TooLong;
    if (device.bytesAvailable() < kHeadSize + qint64(size))
        return State::Incomplete;
    device.skip(kHeadSize);
    *message = QString::fromUtf8(device.read(size));
    return State::Complete;
}

} // namespace Corvale_Qt
