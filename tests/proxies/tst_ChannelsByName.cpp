// SPDX-License-Identifier: LGPL-2.1-or-later
// Channels that RVXMultichannelProxyModel creates by name, through factories and drops, and the names that it shows.
#include "corvale_qt/proxies/SingleChannelModelFactory.h"
#include "tests/proxies/ProxyTest.h"

#include <QDataStream>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPointer>
#include <QTableView>

using namespace Corvale_Qt;

namespace {

const QString listType = QStringLiteral("application/vnd.text.list");

QByteArray payloadOf(const QStringList &names)
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    for (const QString &name : names)
        stream << name;
    return payload;
}

bool drop(RVXMultichannelProxyModel &proxy, const QString &format, const QByteArray &payload,
          Qt::DropAction action = Qt::CopyAction)
{
    QMimeData mime;
    mime.setData(format, payload);
    return proxy.dropMimeData(&mime, action, 0, 0, QModelIndex());
}

//! Returns the names of the models that the default factory created, in order.
QStringList namesOfChildren(const RVXMultichannelProxyModel &proxy)
{
    QStringList names;
    const auto models = proxy.findChildren<RVXSingleChannelDataModel *>();
    for (const RVXSingleChannelDataModel *model : models)
        names << model->channelName();
    return names;
}

// Creates models whose third column is the channel.
class ThirdColumnFactory : public SingleChannelModelFactory
{
public:
    QAbstractItemModel *createModel(const QStringList &, int *column, QObject *parent) override
    {
        *column = 3;
        auto *model = new BufferModel(3, 100, parent);
        model->append(1, 10);
        return model;
    }
};

// Sets the property that channelNames() reads; creates no models for names that start with '-'.
class NamingFactory : public SingleChannelModelFactory
{
public:
    using SingleChannelModelFactory::SingleChannelModelFactory;
    QAbstractItemModel *createModel(const QStringList &names, int *column, QObject *parent) override
    {
        if (names.value(0).startsWith('-'))
            return nullptr;
        auto *model = SingleChannelModelFactory::createModel(names, column, parent);
        model->setProperty("channel", names.value(0));
        return model;
    }
};

//! A model whose second channel has a title.
class TitledModel : public BufferModel
{
public:
    TitledModel()
        : BufferModel(2)
    {
    }
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override
    {
        const bool isTitle = index.row() == 0 && index.column() == 2 && role == Qt::DisplayRole;
        return isTitle ? QStringLiteral("halo left") : BufferModel::data(index, role);
    }
};

//! Returns the titles of all channels as the header row and as the header give them, which must be the same.
QString titles(const QAbstractItemModel &model)
{
    QStringList row;
    QStringList header;
    for (int column = 1; column < model.columnCount(); ++column) {
        row << model.index(0, column).data().toString();
        header << model.headerData(column, Qt::Horizontal).toString();
    }
    return row == header ? row.join(", ") : row.join(", ") + " but " + header.join(", ");
}

} // namespace

class tst_ChannelsByName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAndFactories()
    {
        RVXMultichannelProxyModel proxy;
        BufferModel given(1);
        proxy.addSourceModel(&given, 1);
        proxy.setChannelNames({"a", "b"});
        QCOMPARE(proxy.columnCount(), 4);
        QCOMPARE(namesOfChildren(proxy), QStringList({"a", "b"}));
        QCOMPARE(proxy.channelNames(), QStringList());

        const QPointer<NamingFactory> naming = new NamingFactory(this);
        proxy.setChannelModelFactory(naming);
        proxy.setChannelModelFactory(naming);
        QVERIFY(naming);
        proxy.setChannelNames({"c", "-", "", "d"});
        QCOMPARE(proxy.columnCount(), 7);
        QCOMPARE(proxy.channelNames(), QStringList({"c", "d"}));
        AbstractChannelModelFactory *const factory = naming;
        const std::unique_ptr<QAbstractItemModel> made(
            factory->createModel(QStringLiteral("e"), nullptr, nullptr));
        QCOMPARE(made->property("channel").toString(), QString("e"));

        proxy.setChannelModelFactory(nullptr);
        QVERIFY(!naming);
        proxy.addChannel("nobody makes it");
        QCOMPARE(proxy.columnCount(), 7);

        QPointer<NamingFactory> owned = new NamingFactory;
        const QPointer<NamingFactory> parented = new NamingFactory(this);
        {
            RVXMultichannelProxyModel shortLived;
            shortLived.setChannelModelFactory(owned);
            RVXMultichannelProxyModel another;
            another.setChannelModelFactory(parented);
        }
        QVERIFY(!owned);
        QVERIFY(parented);
    }

    void theColumnThatAFactoryNames()
    {
        RVXMultichannelProxyModel proxy;
        proxy.setChannelModelFactory(new ThirdColumnFactory);
        proxy.addChannel("by name");
        QTest::ignoreMessage(QtDebugMsg, "Drop channel \"dropped\"");
        QVERIFY(drop(proxy, "text/plain", "dropped"));
        QCOMPARE(rowsText(proxy), QString("1: 12 12"));
    }

    void noMoreThan256()
    {
        RVXMultichannelProxyModel proxy;
        BufferModel one(1);
        for (int i = 0; i < 255; ++i)
            proxy.addSourceModel(&one, 1);
        QTest::ignoreMessage(QtDebugMsg, "No more than 256 channels: the rest is refused");
        proxy.setChannelNames({"a", "b", "c"});
        QCOMPARE(proxy.columnCount(), 257);
        QTest::ignoreMessage(QtDebugMsg, "No more than 256 channels: the rest is refused");
        proxy.addSourceModel(&one, 1);
        QCOMPARE(proxy.columnCount(), 257);
    }

    void droppedNames()
    {
        RVXMultichannelProxyModel proxy;
        QCOMPARE(proxy.mimeTypes(), QStringList({listType, "text/plain"}));
        QCOMPARE(proxy.supportedDropActions(), Qt::CopyAction | Qt::LinkAction);
        QTest::ignoreMessage(QtDebugMsg, "Drop channel \"QV1/current\"");
        QVERIFY(drop(proxy, "text/plain", "QV1/current"));
        QTest::ignoreMessage(QtDebugMsg, "Drop channel \"a\"");
        QTest::ignoreMessage(QtDebugMsg, "Drop channel \"\"");
        QTest::ignoreMessage(QtDebugMsg, "Drop channel \"b c\"");
        QVERIFY(drop(proxy, listType, payloadOf({"a", "", "b c"}), Qt::LinkAction));
        QVERIFY(!drop(proxy, listType, payloadOf({"d"}), Qt::MoveAction));
        QVERIFY(!drop(proxy, "image/png", "d"));
        QVERIFY(drop(proxy, "image/png", "d", Qt::IgnoreAction));
        QVERIFY(!proxy.canDropMimeData(nullptr, Qt::CopyAction, 0, 0, QModelIndex()));
        QVERIFY(!proxy.dropMimeData(nullptr, Qt::CopyAction, 0, 0, QModelIndex()));
        QVERIFY(proxy.dropMimeData(nullptr, Qt::IgnoreAction, 0, 0, QModelIndex()));
        // A table of readings drags both; the list keeps the names apart.
        QMimeData both;
        both.setData(listType, payloadOf({"e", "f"}));
        both.setText("e f");
        QTest::ignoreMessage(QtDebugMsg, "Drop channel \"e\"");
        QTest::ignoreMessage(QtDebugMsg, "Drop channel \"f\"");
        QVERIFY(proxy.dropMimeData(&both, Qt::CopyAction, 0, 0, QModelIndex()));
        QCOMPARE(namesOfChildren(proxy), QStringList({"QV1/current", "a", "", "b c", "e", "f"}));
        QCOMPARE(proxy.columnCount(), 7);
    }

    void hostilePayloads_data()
    {
        columns<QByteArray, int>("payload", "channels");
        const QByteArray good = payloadOf({"a", "b"});
        QTest::newRow("empty") << QByteArray() << 0;
        QTest::newRow("cut in a length") << good + QByteArray(3, '\0') << 2;
        QTest::newRow("cut in a string") << good.left(good.size() - 1) << 1;
        QTest::newRow("absurd length") << good + QByteArray("\x7f\xff\xff\xfezz", 6) << 2;
        QTest::newRow("half a character") << good + QByteArray("\0\0\0\3abc", 7) << 2;
        QTest::newRow("null string") << good + QByteArray(4, '\xff') << 3;
        QTest::newRow("a megabyte of zeros") << QByteArray(1 << 20, '\0') << 256;
    }
    void hostilePayloads()
    {
        RVXMultichannelProxyModel proxy;
        static int lines = 0;
        lines = 0;
        const auto previous = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &) { ++lines; });
        const bool taken = drop(proxy, listType, cell<QByteArray>("payload"));
        qInstallMessageHandler(previous);
        QVERIFY(taken);
        QTEST(proxy.columnCount() - 1, "channels");
        QVERIFY(lines <= 257);
    }

    void aDropOnAView()
    {
        BufferModel device(3);
        RVXLatestPlotDataProxyModel latest;
        latest.setSourceModel(&device);
        const std::unique_ptr<QMimeData> dragged(
            latest.mimeData({latest.index(0, 0), latest.index(2, 0)}));
        QMimeData picture;
        picture.setData("image/png", "x");

        RVXMultichannelProxyModel merged;
        QTableView view;
        view.setModel(&merged);
        view.setAcceptDrops(true);
        view.setDragDropMode(QAbstractItemView::DropOnly);
        view.resize(400, 300);
        view.show();
        const QPoint empty(300, 200);
        const auto isTaken = [&](auto event) {
            QApplication::sendEvent(view.viewport(), &event);
            return event.isAccepted();
        };
        QVERIFY(isTaken(
            QDragEnterEvent(empty, Qt::CopyAction, dragged.get(), Qt::LeftButton, Qt::NoModifier)));
        QVERIFY(isTaken(
            QDragMoveEvent(empty, Qt::CopyAction, dragged.get(), Qt::LeftButton, Qt::NoModifier)));
        QTest::ignoreMessage(QtDebugMsg, "Drop channel \"ch1\"");
        QTest::ignoreMessage(QtDebugMsg, "Drop channel \"ch3\"");
        isTaken(QDropEvent(empty, Qt::CopyAction, dragged.get(), Qt::LeftButton, Qt::NoModifier));
        QCOMPARE(namesOfChildren(merged), QStringList({"ch1", "ch3"}));
        QVERIFY(!isTaken(
            QDragMoveEvent(empty, Qt::CopyAction, &picture, Qt::LeftButton, Qt::NoModifier)));
    }

    void titlesAreNumbersOrNames()
    {
        RVXSingleChannelDataModel named;
        named.setChannelName("cup 1");
        named.AddData(1, 7);
        RVXSingleChannelDataModel nameless;
        RVXSingleChannelDataModel withProperty;
        withProperty.setChannelName("hidden by the property");
        withProperty.setProperty("channel", "QV1/current");
        TitledModel titled;
        titled.setProperty("channel", "of no use for two channels");
        RVXAveragingProxyModel average;
        average.setSourceModel(&named);
        RVXMultichannelProxyModel inner;
        inner.addSourceModel(&nameless, 1);
        inner.addSourceModel(&named, 1);

        RVXMultichannelProxyModel merged;
        const QAbstractItemModelTester tester(&merged);
        for (QAbstractItemModel *source : {static_cast<QAbstractItemModel *>(&named),
                                           static_cast<QAbstractItemModel *>(&nameless),
                                           static_cast<QAbstractItemModel *>(&withProperty),
                                           static_cast<QAbstractItemModel *>(&average)})
            merged.addSourceModel(source, 1);
        merged.addSourceModel(&titled, 1);
        merged.addSourceModel(&titled, 2);
        merged.addSourceModel(&inner, 1);
        merged.addSourceModel(&inner, 2);
        merged.addSourceModel(&named, 9); // a column that the model does not have
        QCOMPARE(titles(merged), QString("1, 1, 1, 1, ch1, halo left, 1, 1, "));

        merged.setShowNames(true);
        QCOMPARE(titles(merged),
                 QString("cup 1, 1, QV1/current, cup 1, ch1, halo left, 1, cup 1, "));
        QCOMPARE(merged.headerData(0, Qt::Horizontal), inner.headerData(0, Qt::Horizontal));
        QCOMPARE(merged.index(1, 1).data(), named.index(1, 1).data());

        // A table of readings on top shows, and drags, the names.
        RVXLatestPlotDataProxyModel latest;
        latest.setSourceModel(&merged);
        QCOMPARE(latest.index(0, 0).data().toString(), QString("cup 1"));
        merged.setShowNames(false);
        QCOMPARE(titles(merged), QString("1, 1, 1, 1, ch1, halo left, 1, 1, "));
    }

    void changesAreAnnounced()
    {
        RVXSingleChannelDataModel first;
        RVXSingleChannelDataModel second;
        RVXAveragingProxyModel average;
        average.setSourceModel(&second);
        RVXMultichannelProxyModel merged;
        merged.setShowNames(true);
        merged.setShowNames(false);
        merged.addSourceModel(&first, 1);
        merged.addSourceModel(&average, 1);
        ModelLog log(&merged);
        QSignalSpy spy(&merged, &RVXMultichannelProxyModel::showNamesChanged);

        QVERIFY(merged.setProperty("showNames", true));
        QVERIFY(merged.setProperty("showNames", true));
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.first().first().toBool(), true);
        QCOMPARE(log.take(), QString("header 1-2, changed (0,1)-(0,2) with roles"));
        second.setChannelName("cup 2");
        second.setChannelName("cup 2");
        QCOMPARE(log.take(), QString("header 2-2, changed (0,2)-(0,2) with roles"));
        QCOMPARE(titles(merged), QString("1, cup 2"));
    }
};

CORVALE_QT_TEST_MAIN(tst_ChannelsByName)
#include "tst_ChannelsByName.moc"
