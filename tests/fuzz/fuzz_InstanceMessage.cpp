// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/InstanceMessage_p.h"
#include "tests/support/FuzzTarget.h"

#include <QBuffer>

using Corvale_Qt::InstanceMessage;

std::vector<std::string> fuzzSeeds()
{
    return {InstanceMessage::toBytes(QStringLiteral("--record a.csv sim:ic4")).toStdString(),
            InstanceMessage::toBytes(QString::fromUtf8("\xc2\xb5\xf0\x9f\x92\xa5")).toStdString(),
            std::string("\0\0\0\0", 4),
            std::string("\0\x10\0\1x", 5),
            std::string("\xff\xff\xff\xff", 4),
            std::string("\0\0\0\2\xc3", 5)};
}

namespace {

//! What is too long to be a message is neither written nor read.
void tryTooLong()
{
    const QString longest(InstanceMessage::kMaximumSize, QLatin1Char('x'));
    FUZZ_REQUIRE(!InstanceMessage::toBytes(longest).isEmpty());
    FUZZ_REQUIRE(InstanceMessage::toBytes(longest + QLatin1Char('x')).isEmpty());
}

} // namespace

/*! Bytes that arrive one after the other give a message when its last one is there. Written and read again, it is the same. */
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool once = (tryTooLong(), true);
    Q_UNUSED(once)
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    QBuffer device;
    device.open(QIODevice::ReadWrite);
    QString message;
    auto state = InstanceMessage::State::Incomplete;
    for (int sent = 0; sent <= bytes.size(); ++sent) {
        device.buffer() = bytes.left(sent);
        device.seek(0);
        state = InstanceMessage::take(device, &message);
        FUZZ_REQUIRE(state == InstanceMessage::State::Complete || device.pos() == 0);
        if (state != InstanceMessage::State::Incomplete)
            break;
        FUZZ_REQUIRE(message.isEmpty());
    }
    if (state == InstanceMessage::State::Complete) {
        FUZZ_REQUIRE(device.pos() == device.size());
        QString again;
        device.buffer() = InstanceMessage::toBytes(message);
        device.seek(0);
        FUZZ_REQUIRE(InstanceMessage::take(device, &again) == InstanceMessage::State::Complete);
        FUZZ_REQUIRE(again == message);
    }
    return 0;
}
