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
            payloadOf({QString(), "",
                       QString::fromUtf8("\xc2\xb5"
                                         "A")}),
            std::string("\x7f\xff\xff\xfe", 4), std::string("\0\0\0\3abc", 7),
            std::string(64, '\0')};
}

namespace {

//! Returns the names that a proxy asks for when these data are dropped, and requires whether it takes them.
QStringList namesOfDrop(const QMimeData *mime, Qt::DropAction action, bool isTaken)
{
    RVXMultichannelProxyModel proxy;
    auto *keeper = new NameKeeper;
    proxy.setChannelModelFactory(keeper);
    FUZZ_REQUIRE(proxy.dropMimeData(mime, action, -1, -1, QModelIndex()) == isTaken);
    FUZZ_REQUIRE(keeper->names.size() <= 257);
    return keeper->names;
}

} // namespace

/*! The names of a list, written again, are the beginning of the payload, and there are at most 257. A text is a single name, and
    what is neither is refused. */
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    qInstallMessageHandler(beSilent);
    const QByteArray payload(reinterpret_cast<const char *>(data), int(size));
    QMimeData list, text, other;
    list.setData(listType, payload);
    text.setData(QStringLiteral("text/plain"), payload);
    other.setData(QStringLiteral("application/octet-stream"), payload);
    const QStringList names = namesOfDrop(&list, Qt::CopyAction, true);
    FUZZ_REQUIRE(payload.startsWith(QByteArray::fromStdString(payloadOf(names))));
    FUZZ_REQUIRE(namesOfDrop(&text, Qt::CopyAction, true) == QStringList(text.text()));
    FUZZ_REQUIRE(namesOfDrop(&other, Qt::CopyAction, false).isEmpty());
    FUZZ_REQUIRE(namesOfDrop(&list, Qt::IgnoreAction, true).isEmpty());
    FUZZ_REQUIRE(namesOfDrop(nullptr, Qt::CopyAction, false).isEmpty());
    return 0;
}
