// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/SingleChannelModelFactory.h"
#include "tests/support/FuzzTarget.h"

#include <QDataStream>
#include <QMimeData>

using namespace Corvale_Qt;

namespace {

const QString listType = QStringLiteral("application/vnd.text.list");

//! Creates no model and records the names it is asked for, since a payload may name a thousand channels.
class NameKeeper : public AbstractChannelModelFactory
{
public:
    QAbstractItemModel *createModel(const QStringList &asked, int *, QObject *) override
    {
        names << asked.value(0);
        return nullptr;
    }

    QStringList names;
};

std::string payloadOf(const QStringList &names)
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    for (const QString &name : names)
        stream << name;
    return payload.toStdString();
}

void beSilent(QtMsgType, const QMessageLogContext &, const QString &) { }

} // namespace

std::vector<std::string> fuzzSeeds()
{
    return {payloadOf({"ch1", "QV1/current"}),
            payloadOf({QString(),
                       "",
                       QString::fromUtf8("\xc2\xb5"
                                         "A")}),
            std::string("\x7f\xff\xff\xfe", 4),
            std::string("\0\0\0\3abc", 7),
            std::string(64, '\0')};
}

//! The names that the proxy asked for, written again, are the beginning of the payload, and there are at most 257.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    qInstallMessageHandler(beSilent);
    const QByteArray payload(reinterpret_cast<const char *>(data), int(size));
    QMimeData mime;
    mime.setData(listType, payload);
    RVXMultichannelProxyModel proxy;
    auto *keeper = new NameKeeper;
    proxy.setChannelModelFactory(keeper);
    FUZZ_REQUIRE(proxy.dropMimeData(&mime, Qt::CopyAction, -1, -1, QModelIndex()));
    FUZZ_REQUIRE(keeper->names.size() <= 257);
    const QByteArray again = QByteArray::fromStdString(payloadOf(keeper->names));
    FUZZ_REQUIRE(payload.startsWith(again));
    return 0;
}
