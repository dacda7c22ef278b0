// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/RVXPlotProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "tests/support/BufferModel.h"
#include "tests/support/ModelLog.h"
#include "tests/support/ModelText.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/RowAccount.h"
#include "tests/support/TestMain.h"

#include <QItemSelectionModel>
#include <QMimeData>
#include <QStandardItemModel>

#include <functional>
#include <memory>
#include <utility>

using namespace Corvale_Qt;

namespace {

// Shows what its source shows, and records the calls of its hooks.
class PlainProxy : public RVXPlotProxyModel
{
public:
    double doubleData(int row, int column) const override
    {
        return sourcePlotModel() ? sourcePlotModel()->doubleData(row, column) : 0.0;
    }

    QStringList lines;

protected:
    void sourceRowsInserted(const QModelIndex &, int first, int last) override
    {
        note("inserted", first, last);
    }
    void sourceRowsRemoved(const QModelIndex &, int first, int last) override
    {
        note("removed", first, last);
    }
    void sourceModelReset() override { lines << QString("reset, %1 rows").arg(rowCount()); }
    void sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight) override
    {
        QCOMPARE(topLeft.model(), this);
        note("changed", topLeft.row(), bottomRight.row());
    }

private:
    void note(const char *what, int first, int last)
    {
        lines << QString("%1 %2-%3, %4 rows").arg(what).arg(first).arg(last).arg(rowCount());
    }
};

} // namespace

// Does something at the first call of its slot.
class Once : public QObject
{
    Q_OBJECT

public:
    std::function<void()> act;

public Q_SLOTS:
    void fire()
    {
        if (act)
            std::exchange(act, nullptr)();
    }
};

class tst_RVXPlotProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutASource();
    void refusedSources();
    void everySignalIsPassedOn_data();
    void everySignalIsPassedOn();
    void indexesOfCellsThatAreNotThere();
    void hooksRunBeforeTheEndSignal();
    void persistentIndexesFollowTheirSamples();
    void selectionsAndMatches();
    void anotherSource();
    void aSourceThatGoesDuringItsReset();
    void attachedInTheMiddle_data();
    void attachedInTheMiddle();
    void detachedInTheMiddle();
};

void tst_RVXPlotProxyModel::withoutASource()
{
    PlainProxy proxy;
    BufferModel other(1);
    const QModelIndex foreign = other.index(0, 0);
    QMimeData mime;
    QCOMPARE(proxy.rowCount(), 0);
    QCOMPARE(proxy.columnCount(), 0);
    QVERIFY(!proxy.index(0, 0).isValid());
    QVERIFY(!proxy.mapToSource(foreign).isValid());
    QVERIFY(!proxy.mapFromSource(foreign).isValid());
    QVERIFY(!proxy.data(foreign).isValid());
    QVERIFY(!proxy.units());
    QVERIFY(!proxy.xUnits());
    QCOMPARE(proxy.MaxBufferSize() + proxy.PlotWidthHintPoints() + proxy.PlotWidthHint(), 0.0);
    QVERIFY(!proxy.SaveDataToFile("accepted"));
    QVERIFY(proxy.match(foreign, Qt::DisplayRole, 1).isEmpty());
    QVERIFY(!proxy.insertRows(0, 1) && !proxy.removeRows(0, 1));
    QVERIFY(!proxy.insertColumns(0, 1) && !proxy.removeColumns(0, 1));
    QVERIFY(!proxy.dropMimeData(&mime, Qt::CopyAction, 0, 0, QModelIndex()));
    proxy.Clear();
}

void tst_RVXPlotProxyModel::refusedSources()
{
    PlainProxy proxy;
    ModelLog log(&proxy);
    QStandardItemModel plain(3, 3);
    proxy.setSourceModel(&plain);
    proxy.setSourceModel(&proxy);
    QVERIFY(!proxy.sourceModel());
    BufferModel source(1);
    proxy.setSourceModel(&source);
    QCOMPARE(log.take(), QString("reset?, reset!"));
    proxy.setSourceModel(&source);
    proxy.setSourceModel(nullptr);
    proxy.setSourceModel(&plain);
    QCOMPARE(log.take(), QString());
    QCOMPARE(proxy.sourceModel(), &source);
}

void tst_RVXPlotProxyModel::everySignalIsPassedOn_data()
{
    QTest::addColumn<QString>("script");
    const auto row = [](const char *name, const char *script) {
        QTest::newRow(name) << QString(script);
    };
    row("append", "append 9 9");
    row("roll over, nested", "append 8 8; append 9 9");
    row("roll over, one after the other", "roll-over 1; append 8 8; append 9 9");
    row("drop", "drop 2");
    row("insert between", "insert 2 1.5 7");
    row("move", "move 1");
    row("sort", "reverse");
    row("change", "change 2 2 5");
    row("gain a channel", "prepend-channel 3");
    row("lose a channel", "remove-channel 1");
    row("move a channel", "move-channel");
    row("clear", "clear");
    row("check box", "check 1 0");
    row("header", "header 1 2");
}

void tst_RVXPlotProxyModel::everySignalIsPassedOn()
{
    QFETCH(QString, script);
    BufferModel source(2, 4);
    for (int i = 1; i <= 3; ++i)
        source.append(i, 10.0 * i);
    PlainProxy proxy;
    PlainProxy onTop;
    proxy.setSourceModel(&source);
    onTop.setSourceModel(&proxy);
    const ModelWatch watch(&onTop);
    ModelLog log(&source);
    ModelLog proxyLog(&onTop);
    source.act(script);
    const QString announced = log.take();
    QVERIFY(!announced.isEmpty());
    QCOMPARE(proxyLog.take(), announced);
    QCOMPARE(rowsText(onTop), rowsText(source));
    QCOMPARE(onTop.columnCount(), source.columnCount());
    // The tester accepts an insertion around a removal from no model.
    if (!announced.contains("insert 4-4?, remove 1-1?"))
        QCOMPARE(watch.complaints(), QString());
}

void tst_RVXPlotProxyModel::indexesOfCellsThatAreNotThere()
{
    // Returns an index for any row and column.
    struct CarelessModel : RVXSingleChannelDataModel
    {
        QModelIndex index(int row, int column, const QModelIndex &) const override
        {
            return createIndex(row, column);
        }
    };
    struct ShorterProxy : RVXZeroingProxyModel
    {
        int rowCount(const QModelIndex &) const override { return 2; }
    };
    CarelessModel careless;
    RVXSingleChannelDataModel model;
    for (RVXSingleChannelDataModel *each :
         {static_cast<RVXSingleChannelDataModel *>(&careless), &model}) {
        for (int i = 1; i <= 3; ++i)
            each->AddData(i, i);
    }
    RVXZeroingProxyModel overCareless;
    overCareless.setSourceModel(&careless);
    RVXZeroingProxyModel plain;
    plain.setSourceModel(&model);
    RVXZeroingProxyModel onTop;
    onTop.setSourceModel(&plain);
    ShorterProxy shorter;
    shorter.setSourceModel(&model);
    for (const QAbstractItemModel *proxy : {static_cast<QAbstractItemModel *>(&overCareless),
                                            static_cast<QAbstractItemModel *>(&plain),
                                            static_cast<QAbstractItemModel *>(&onTop),
                                            static_cast<QAbstractItemModel *>(&shorter)}) {
        const int rows = proxy->rowCount(QModelIndex());
        const QModelIndex last = proxy->index(rows - 1, 1, QModelIndex());
        QCOMPARE(last.model(), proxy);
        QVERIFY(!proxy->index(rows, 1, QModelIndex()).isValid());
        QVERIFY(!proxy->index(0, 2, QModelIndex()).isValid());
        QVERIFY(!proxy->index(-1, 0, QModelIndex()).isValid());
        QVERIFY(!proxy->index(0, -1, QModelIndex()).isValid());
        QVERIFY(!proxy->index(0, 0, last).isValid());
    }
}

void tst_RVXPlotProxyModel::hooksRunBeforeTheEndSignal()
{
    BufferModel source(1, 3);
    PlainProxy proxy;
    proxy.setSourceModel(&source);
    const auto note = [&](const char *text) {
        return [&proxy, text] {
            proxy.lines << text;
        };
    };
    connect(&proxy, &QAbstractItemModel::rowsInserted, this, note("told"));
    connect(&proxy, &QAbstractItemModel::rowsRemoved, this, note("told"));
    connect(&proxy, &QAbstractItemModel::modelReset, this, note("told"));
    connect(&proxy, &QAbstractItemModel::dataChanged, this, note("told"));
    proxy.lines.clear();
    source.append(1, 1);
    source.append(2, 2);
    source.change(2, 1, 7);
    source.dropOldest(1);
    source.Clear();
    QCOMPARE(proxy.lines.join("; "),
             QString("inserted 1-1, 2 rows; told; inserted 2-2, 3 rows; told; "
                     "changed 2-2, 3 rows; told; removed 1-1, 2 rows; told; reset, 1 rows; told"));
}

void tst_RVXPlotProxyModel::persistentIndexesFollowTheirSamples()
{
    BufferModel source(2, 10);
    for (int i = 1; i <= 4; ++i)
        source.append(i, 10.0 * i);
    PlainProxy proxy;
    PlainProxy onTop;
    proxy.setSourceModel(&source);
    onTop.setSourceModel(&proxy);
    const QPersistentModelIndex held = onTop.index(1, 2);
    // A selection makes its persistent indexes when it hears of the change.
    QItemSelectionModel selection(&onTop);
    selection.select(onTop.index(2, 1), QItemSelectionModel::Select);

    source.reverse();
    QCOMPARE(held.row(), 4);
    QCOMPARE(held.data(RVXAbstractPlotDataModel::NumericValueRole).toDouble(), 11.0);
    QCOMPARE(selection.selectedIndexes(), QModelIndexList{onTop.index(3, 1)});

    source.dropOldest(1);
    QCOMPARE(held.row(), 3);
}

void tst_RVXPlotProxyModel::selectionsAndMatches()
{
    BufferModel source(2, 10);
    for (int i = 1; i <= 4; ++i)
        source.append(i, 10.0 * i);
    PlainProxy proxy;
    proxy.setSourceModel(&source);
    const QItemSelection range(proxy.index(1, 1), proxy.index(3, 2));
    const QItemSelection mapped = proxy.mapSelectionToSource(range);
    QCOMPARE(mapped, QItemSelection(source.index(1, 1), source.index(3, 2)));
    QCOMPARE(proxy.mapSelectionFromSource(mapped), range);
    QVERIFY(proxy.mapSelectionToSource(QItemSelection(QModelIndex(), QModelIndex())).isEmpty());

    const QModelIndexList hits =
        proxy.match(proxy.index(1, 1), Qt::DisplayRole, 30.0, 1, Qt::MatchExactly);
    QCOMPARE(hits, QModelIndexList{proxy.index(3, 1)});
}

void tst_RVXPlotProxyModel::anotherSource()
{
    BufferModel one(1, 10);
    auto two = std::make_unique<BufferModel>(3, 10);
    two->append(1, 5);
    PlainProxy proxy;
    proxy.setSourceModel(&one);
    ModelLog log(&proxy);
    proxy.setSourceModel(two.get());
    QCOMPARE(log.take(), QString("reset?, reset!"));
    one.append(1, 1);
    QCOMPARE(log.take(), QString());
    QCOMPARE(rowsText(proxy), QString("1: 5 6 7"));
    two.reset();
    QCOMPARE(log.take(), QString("reset?, reset!"));
    QCOMPARE(proxy.rowCount() + proxy.columnCount(), 0);
}

void tst_RVXPlotProxyModel::aSourceThatGoesDuringItsReset()
{
    BufferModel other(1, 10);
    other.append(1, 1);
    PlainProxy proxy;
    {
        BufferModel source(1, 10);
        source.append(1, 1);
        proxy.setSourceModel(&source);
        ModelLog log(&proxy);
        auto once = std::make_shared<QMetaObject::Connection>();
        *once = connect(&source, &QAbstractItemModel::modelAboutToBeReset, this, [&, once] {
            disconnect(*once);
            proxy.setSourceModel(&other);
        });
        source.Clear();
        QCOMPARE(log.take(), QString("reset?, reset!"));
    }
    ModelLog log(&proxy);
    other.append(2, 2);
    other.Clear();
    QCOMPARE(log.take(), QString("insert 2-2?, insert 2-2!, reset?, reset!"));
}

void tst_RVXPlotProxyModel::attachedInTheMiddle_data()
{
    // The model and the signal that attach the proxies.
    QTest::addColumn<bool>("ofAverage");
    QTest::addColumn<QByteArray>("signal");
    for (const char *const signal : {SIGNAL(rowsAboutToBeInserted(QModelIndex, int, int)),
                                     SIGNAL(rowsInserted(QModelIndex, int, int)),
                                     SIGNAL(rowsAboutToBeRemoved(QModelIndex, int, int)),
                                     SIGNAL(rowsRemoved(QModelIndex, int, int)),
                                     SIGNAL(columnsAboutToBeInserted(QModelIndex, int, int)),
                                     SIGNAL(columnsInserted(QModelIndex, int, int)),
                                     SIGNAL(rowsMoved(QModelIndex, int, int, QModelIndex, int)),
                                     SIGNAL(layoutAboutToBeChanged()),
                                     SIGNAL(layoutChanged()),
                                     SIGNAL(modelAboutToBeReset()),
                                     SIGNAL(modelReset())}) {
        QTest::addRow("device %s", signal) << false << QByteArray(signal);
        QTest::addRow("average %s", signal) << true << QByteArray(signal);
    }
}

void tst_RVXPlotProxyModel::attachedInTheMiddle()
{
    QFETCH(bool, ofAverage);
    QFETCH(QByteArray, signal);
    const char *const scripts[] =
        {"append 5 50 2", "drop 1", "prepend-channel 3", "move 1", "reverse", "clear"};
    for (int run = 0; run < 4 * int(std::size(scripts)); ++run) {
        BufferModel source(2, 4);
        source.rollOver = BufferModel::RollOver(run % 3);
        for (int i = 1; i <= 4; ++i)
            source.append(i, 10.0 * i);
        RVXAveragingProxyModel average;
        average.setAveraging(3);
        PlainProxy plain;
        RVXAveragingProxyModel onAverage;
        RVXMultichannelProxyModel merged;
        Once once;
        once.act = [&] {
            plain.setSourceModel(&average);
            onAverage.setSourceModel(&average);
            merged.addSourceModel(&average, 2);
            merged.addSourceModel(&source, 2);
        };
        // Attaches the proxies before or after the average hears of the change.
        const bool isFirst = run % 4 == 3;
        if (isFirst && !ofAverage)
            connect(&source, signal, &once, SLOT(fire()));
        average.setSourceModel(&source);
        if (ofAverage)
            connect(&average, signal, &once, SLOT(fire()));
        else if (!isFirst)
            connect(&source, signal, &once, SLOT(fire()));

        source.act(scripts[run / 4]);
        once.fire();
        const RowAccount accounts[] = {RowAccount(&plain),
                                       RowAccount(&onAverage),
                                       RowAccount(&merged)};
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(rowsText(plain), rowsText(average));
            QCOMPARE(rowsText(onAverage), rowsText(average));
            QCOMPARE(merged.rowCount(), source.rowCount());
            for (int row = 1; row < source.rowCount(); ++row) {
                QCOMPARE(merged.doubleData(row, 1), average.doubleData(row, 2));
                QCOMPARE(merged.doubleData(row, 2), source.doubleData(row, 2));
            }
            for (const RowAccount &account : accounts)
                QCOMPARE(account.error(), QString());
            source.append(10 + i, 7.0 * i);
        }
    }
}

void tst_RVXPlotProxyModel::detachedInTheMiddle()
{
    BufferModel two(1);
    two.append(1, 5);
    two.append(2, 6);
    for (const bool whileBeginning : {false, true}) {
        BufferModel source(1);
        PlainProxy proxy;
        PlainProxy onTop;
        proxy.setSourceModel(&source);
        onTop.setSourceModel(&proxy);
        Once once;
        once.act = [&] {
            proxy.setSourceModel(&two);
        };
        connect(whileBeginning ? static_cast<QAbstractItemModel *>(&proxy) : &source,
                SIGNAL(rowsAboutToBeInserted(QModelIndex, int, int)),
                &once,
                SLOT(fire()));
        ModelLog log(&onTop);
        source.append(1, 1);
        source.append(2, 2);
        QCOMPARE(rowsText(onTop), QString("1: 5; 2: 6"));
        // Every change that was begun has ended, though the source did not end it.
        const QString announced = log.take();
        QVERIFY(announced.contains("insert 1-1?"));
        QCOMPARE(announced.count('!'), announced.count('?'));
        two.append(3, 7);
        QCOMPARE(log.take(), QString("insert 3-3?, insert 3-3!"));
        two.remove(3, 3);
    }
}

CORVALE_QT_TEST_MAIN(tst_RVXPlotProxyModel)
#include "tst_RVXPlotProxyModel.moc"
