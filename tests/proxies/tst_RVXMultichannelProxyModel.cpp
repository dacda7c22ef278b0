// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXLatestPlotDataProxyModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/BufferModel.h"
#include "tests/support/Files.h"
#include "tests/support/ModelLog.h"
#include "tests/support/ModelText.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"

#include <QBrush>
#include <QItemSelectionModel>
#include <QStandardItemModel>
#include <QTemporaryDir>

#include <utility>

using namespace Corvale_Qt;

class tst_RVXMultichannelProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewProxy();
    void whatIsNoChannel();
    void sourcesOfDifferentLength();
    void oneColumnOfAWiderSource();
    void oneModelForTwoChannels();
    void channelsWithoutReadings();
    void sourcesWhoseColumnsChange();
    void headerCells();
    void titles();
    void insertionAndRemoval();
    void removalKeepsTheFirst();
    void unitsAreRelayed();
    void everyChannelHasItsUnit();
    void fileBytes();
    void filesThatCannotBeWritten();
    void indexesOverALayoutChange();
    void proxiesInACircle();
    void clearIsOneReset();
    void sourcesDeletedInAnyOrder_data();
    void sourcesDeletedInAnyOrder();
    void aSourceTakenOutByAListener();
};

void tst_RVXMultichannelProxyModel::aNewProxy()
{
    RVXMultichannelProxyModel proxy;
    const ModelWatch watch(&proxy);
    QCOMPARE(proxy.rowCount(), 1);
    QCOMPARE(proxy.columnCount(), 1);
    QVERIFY(proxy.hasChildren() && !proxy.hasChildren(proxy.index(0, 0)));
    QCOMPARE(proxy.NumberOfChannels(), 1);
    QCOMPARE(proxy.PlotWidthHintPoints(), 256);
    QCOMPARE(proxy.PlotWidthHint() + proxy.MaxBufferSize(), 0.0);
    QCOMPARE(proxy.units()->name(), QString("A"));
    QCOMPARE(proxy.units()->scale(3.0), 3.0);
    QCOMPARE(proxy.xUnits()->name(), QString("s"));
    QCOMPARE(proxy.doubleData(0, 0) + proxy.doubleData(1, 0) + proxy.doubleData(1, 1), 0.0);
    QCOMPARE(proxy.doubleData(0, 3), 3.0);
    QCOMPARE(proxy.flags(QModelIndex()), Qt::ItemIsDropEnabled);
    QVERIFY(!proxy.SaveDataToFile("unused"));
    QVERIFY(!proxy.insertRows(0, 1) && !proxy.removeRows(0, 1));
    QVERIFY(!proxy.insertColumns(0, 1) && !proxy.removeColumns(0, 1));
    proxy.Clear();
    QCOMPARE(watch.complaints(), QString());
}

void tst_RVXMultichannelProxyModel::whatIsNoChannel()
{
    RVXMultichannelProxyModel proxy;
    ModelLog log(&proxy);
    QStandardItemModel plain(3, 3);
    BufferModel stranger(1);
    proxy.addSourceModel(nullptr, 1);
    proxy.addSourceModel(&plain, 1);
    proxy.addSourceModel(&proxy, 1);
    proxy.setSourceModel(&stranger);
    proxy.removeSourceModel(nullptr);
    proxy.removeSourceModel(&stranger);
    QCOMPARE(log.take(), QString());
    QVERIFY(!proxy.mapFromSource(stranger.index(0, 0)).isValid());
    proxy.addSourceModel(&plain, 1);
    QCOMPARE(proxy.columnCount(), 1);
}

void tst_RVXMultichannelProxyModel::sourcesOfDifferentLength()
{
    BufferModel longer(1);
    BufferModel shorter(1);
    for (int i = 1; i <= 5; ++i)
        longer.append(i, 10 * i);
    for (int i = 1; i <= 3; ++i)
        shorter.append(i + 0.5, 100 * i);
    RVXMultichannelProxyModel proxy;
    const ModelWatch watch(&proxy);
    proxy.addSourceModel(&shorter, 1);
    proxy.addSourceModel(&longer, 1);
    QCOMPARE(rowsText(proxy),
             QString("1.5: 100 10; 2.5: 200 20; 3.5: 300 30; 4: 300 40; 5: 300 50"));
    QCOMPARE(proxy.doubleData(9, 0), 5.0);
    QCOMPARE(proxy.doubleData(9, 1), 300.0);
    QCOMPARE(proxy.index(5, 1).data(), shorter.index(3, 1).data());
    QCOMPARE(proxy.mapToSource(proxy.index(5, 1)), shorter.index(3, 1));
    QCOMPARE(proxy.mapToSource(proxy.index(4, 0)), longer.index(4, 0));
    QCOMPARE(proxy.mapFromSource(longer.index(2, 1)), proxy.index(2, 2));
    QVERIFY(!proxy.index(6, 0).isValid() && !proxy.index(0, 3).isValid());

    // A new sample of the shorter one shows on all rows that repeat it, and brings its time.
    ModelLog log(&proxy);
    shorter.append(4.5, 400);
    QCOMPARE(log.take(), QString("changed (4,0)-(4,0), changed (4,1)-(5,1)"));
    shorter.change(4, 1, 500);
    QCOMPARE(log.take(), QString("changed (4,1)-(5,1)"));
    shorter.change(2, 1, 600);
    QCOMPARE(log.take(), QString("changed (2,1)-(2,1)"));
    QCOMPARE(rowsText(proxy),
             QString("1.5: 100 10; 2.5: 600 20; 3.5: 300 30; 4.5: 500 40; 5: 500 50"));
    QCOMPARE(watch.complaints(), QString());
}

void tst_RVXMultichannelProxyModel::oneColumnOfAWiderSource()
{
    BufferModel source(3);
    source.append(1, 10);
    RVXMultichannelProxyModel proxy;
    proxy.addSourceModel(&source, 3);
    QCOMPARE(rowsText(proxy), QString("1: 12"));
    QCOMPARE(proxy.index(0, 1).data().toString(), QString("ch3"));
    QCOMPARE(proxy.headerData(1, Qt::Horizontal).toString(), QString("ch3"));
    QCOMPARE(proxy.headerData(0, Qt::Horizontal).toString(), QString("Time (s)"));
    QCOMPARE(proxy.mapFromSource(source.index(1, 2)), proxy.index(1, 1));
}

void tst_RVXMultichannelProxyModel::oneModelForTwoChannels()
{
    BufferModel source(2, 3);
    RVXMultichannelProxyModel proxy;
    const ModelWatch watch(&proxy);
    proxy.addSourceModel(&source, 2);
    proxy.addSourceModel(&source, 1);
    ModelLog log(&proxy);
    source.append(1, 10);
    QCOMPARE(log.take(), QString("insert 1-1?, insert 1-1!"));
    source.change(1, 1, 20);
    QCOMPARE(log.take(), QString("changed (1,1)-(1,1), changed (1,2)-(1,2)"));
    source.append(2, 30);
    source.append(3, 30);
    source.append(4, 40);
    QCOMPARE(rowsText(proxy), QString("2: 31 30; 3: 31 30; 4: 41 40"));
    QCOMPARE(watch.complaints(), QString());
}

void tst_RVXMultichannelProxyModel::channelsWithoutReadings()
{
    BufferModel full(1);
    BufferModel empty(1);
    RVXMultichannelProxyModel proxy;
    RVXAveragingProxyModel average;
    average.setAveraging(2);
    average.setSourceModel(&proxy);
    RVXLatestPlotDataProxyModel latest;
    latest.setSourceModel(&proxy);
    proxy.addSourceModel(&full, 1);
    proxy.addSourceModel(&empty, 1);
    proxy.addSourceModel(&full, 2);
    full.append(1, 10);
    full.append(2, 20);
    QCOMPARE(rowsText(proxy), QString("1: 10 nan nan; 2: 20 nan nan"));
    QCOMPARE(rowsText(average), QString("1: 10 nan nan; 2: 15 nan nan"));
    for (const QModelIndex &cell : {proxy.index(2, 2), proxy.index(2, 3), latest.index(1, 1)}) {
        QCOMPARE(cell.data().toString(), QString("N/A"));
        QCOMPARE(cell.data(Qt::BackgroundRole).value<QBrush>(), QBrush(Qt::black));
        QVERIFY(qIsNaN(cell.data(RVXAbstractPlotDataModel::NumericValueRole).toDouble()));
    }
    QCOMPARE(proxy.doubleData(0, 2), 2.0);
    QVERIFY(!proxy.mapToSource(proxy.index(1, 2)).isValid());
    empty.append(1, 7);
    QCOMPARE(rowsText(average), QString("1: 10 7 nan; 2: 15 7 nan"));
    empty.dropOldest(1);
    QCOMPARE(rowsText(proxy), QString("1: 10 nan nan; 2: 20 nan nan"));
}

void tst_RVXMultichannelProxyModel::sourcesWhoseColumnsChange()
{
    BufferModel one(2);
    BufferModel two(1);
    one.append(1, 10);
    two.append(1, 50);
    RVXMultichannelProxyModel proxy;
    const ModelWatch watch(&proxy);
    proxy.addSourceModel(&one, 1);
    proxy.addSourceModel(&one, 2);
    proxy.addSourceModel(&two, 1);
    ModelLog log(&proxy);
    one.moveFirstChannelToEnd();
    QCOMPARE(log.take(), QString("reset?, reset!"));
    QCOMPARE(rowsText(proxy), QString("1: 11 10 50"));
    one.removeFirstChannel();
    QCOMPARE(log.take(), QString("reset?, reset!"));
    QCOMPARE(rowsText(proxy), QString("1: 10 nan 50"));
    QVERIFY(!proxy.headerData(2, Qt::Horizontal).isValid());
    QVERIFY(!proxy.index(0, 2).data().isValid());
    one.insertChannelInFront(4);
    QCOMPARE(log.take(), QString("reset?, reset!"));
    QCOMPARE(rowsText(proxy), QString("1: 4 10 50"));
    QCOMPARE(watch.complaints(), QString());
}

void tst_RVXMultichannelProxyModel::headerCells()
{
    BufferModel one(1);
    BufferModel two(1);
    RVXMultichannelProxyModel proxy;
    proxy.addSourceModel(&one, 1);
    proxy.addSourceModel(&two, 1);
    QCOMPARE(proxy.index(0, 2).data(Qt::BackgroundRole).value<QBrush>(),
             QBrush(RVXPlotColors::color(1)));
    QCOMPARE(proxy.flags(proxy.index(0, 0)), Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    QVERIFY(proxy.flags(proxy.index(0, 2)) & Qt::ItemIsUserCheckable);
    ModelLog log(&proxy);
    QVERIFY(proxy.setData(proxy.index(0, 2), Qt::Unchecked, Qt::CheckStateRole));
    QCOMPARE(log.take(), QString("changed (0,2)-(0,2)"));
    QCOMPARE(two.index(0, 1).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QCOMPARE(proxy.index(0, 1).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
}

void tst_RVXMultichannelProxyModel::titles()
{
    BufferModel one(3);
    BufferModel two(1);
    RVXMultichannelProxyModel proxy;
    QVERIFY(!proxy.headerData(1, Qt::Horizontal).isValid());
    proxy.addSourceModel(&two, 1);
    proxy.addSourceModel(&one, 3);
    proxy.addSourceModel(&one, 2);
    QCOMPARE(proxy.headerData(0, Qt::Horizontal).toString(), QString("Time (s)"));
    QCOMPARE(proxy.headerData(2, Qt::Horizontal).toString(), QString("ch3"));
    for (const int section : {-1, 4, 99}) {
        QVERIFY(!proxy.headerData(section, Qt::Horizontal).isValid());
        QVERIFY(!proxy.headerData(section, Qt::Vertical).isValid());
    }
    ModelLog log(&proxy);
    Q_EMIT one.headerDataChanged(Qt::Horizontal, 2, 2);
    QCOMPARE(log.take(), QString("header 3-3"));
    Q_EMIT one.headerDataChanged(Qt::Horizontal, 0, 3);
    QCOMPARE(log.take(), QString("header 2-2, header 3-3"));
    Q_EMIT two.headerDataChanged(Qt::Horizontal, 0, 1);
    QCOMPARE(log.take(), QString("header 0-0, header 1-1"));
    Q_EMIT one.headerDataChanged(Qt::Horizontal, 1, 1);
    QCOMPARE(log.take(), QString());
}

void tst_RVXMultichannelProxyModel::insertionAndRemoval()
{
    BufferModel one(1);
    BufferModel two(1);
    BufferModel three(1);
    one.append(1, 1);
    for (int i = 1; i <= 3; ++i)
        two.append(i, 2);
    RVXMultichannelProxyModel proxy;
    ModelLog log(&proxy);
    proxy.addSourceModel(&one, 1);
    proxy.insertSourceModel(-5, &two, 1);
    proxy.insertSourceModel(99, &three, 1);
    QCOMPARE(log.take(), QString("reset?, reset!, reset?, reset!, reset?, reset!"));
    QCOMPARE(proxy.rowCount(), 4);
    QCOMPARE(proxy.doubleData(1, 1), 2.0);

    proxy.removeSourceModel(&one);
    QCOMPARE(log.take(), QString("reset?, reset!"));
    QCOMPARE(proxy.columnCount(), 3);
    one.append(2, 1);
    QCOMPARE(log.take(), QString());
    proxy.addSourceModel(&one, 1);
    log.take();
    one.append(3, 7);
    QCOMPARE(log.take(), QString("changed (3,3)-(3,3)"));
}

void tst_RVXMultichannelProxyModel::removalKeepsTheFirst()
{
    BufferModel one(1);
    BufferModel two(1);
    one.append(1, 1);
    RVXMultichannelProxyModel proxy;
    proxy.addSourceModel(&one, 1);
    proxy.addSourceModel(&two, 1);
    proxy.addSourceModel(&one, 1);
    ModelLog log(&proxy);
    proxy.removeSourceModel(&one);
    QCOMPARE(log.take(), QString("reset?, reset!"));
    QCOMPARE(proxy.columnCount(), 4);
    one.append(2, 2);
    QCOMPARE(log.take(), QString());
    // Not heard, still shown; the next reset counts it.
    QCOMPARE(proxy.rowCount(), 2);
    two.Clear();
    QCOMPARE(proxy.rowCount(), 3);
    proxy.addSourceModel(&one, 1);
    log.take();
    one.append(3, 3);
    QCOMPARE(log.take(), QString("insert 3-3?, insert 3-3!"));
}

void tst_RVXMultichannelProxyModel::unitsAreRelayed()
{
    const Units::nA nA;
    BufferModel one(1);
    BufferModel two(1);
    RVXMultichannelProxyModel proxy;
    proxy.addSourceModel(&one, 1);
    proxy.addSourceModel(&two, 1);
    int heard = 0;
    connect(&proxy, &RVXMultichannelProxyModel::unitsChanged, this, [&](const auto *unit) {
        heard += unit == &nA ? 1 : 100;
    });
    two.SetUnits(&nA);
    QCOMPARE(heard, 1);
    // Removed, it is heard twice.
    proxy.removeSourceModel(&two);
    two.SetUnits(&nA);
    QCOMPARE(heard, 3);
    // However often it comes and goes.
    heard = 0;
    for (int i = 0; i < 100; ++i) {
        proxy.addSourceModel(&two, 1);
        two.SetUnits(&nA);
        QCOMPARE(std::exchange(heard, 0), 1);
        proxy.removeSourceModel(&two);
        two.SetUnits(&nA);
        QCOMPARE(std::exchange(heard, 0), 2);
    }
    // A proxy has no such signal; nothing complains of that.
    RVXAveragingProxyModel averaging;
    averaging.setSourceModel(&one);
    proxy.addSourceModel(&averaging, 1);
    one.SetUnits(&nA);
    QCOMPARE(heard, 1);
    QCOMPARE(proxy.units(), &nA);
}

void tst_RVXMultichannelProxyModel::everyChannelHasItsUnit()
{
    const Units::nA nA;
    const Units::V V;
    const Units::Celcius celsius;
    RVXSingleChannelDataModel current;
    BufferModel both(2);
    both.channelUnits[2] = &celsius;
    current.SetUnits(&nA);
    both.SetUnits(&V);
    RVXMultichannelProxyModel inner;
    inner.addSourceModel(&both, 1);
    inner.addSourceModel(&both, 2);
    RVXAveragingProxyModel average;
    average.setSourceModel(&inner);
    RVXMultichannelProxyModel merged;
    merged.addSourceModel(&current, 1);
    merged.addSourceModel(&average, 1);
    merged.addSourceModel(&average, 2);
    RVXZeroingProxyModel zero;
    zero.setSourceModel(&merged);
    RVXAveragingProxyModel top;
    top.setSourceModel(&zero);
    current.AddData(1, 2e-9);
    both.append(1, 20);
    const auto unit = [](const QAbstractItemModel &model, int column) {
        return model.index(0, column)
            .data(RVXAbstractPlotDataModel::ChannelUnitRole)
            .value<const Units::MeasurementUnit *>();
    };
    for (const QAbstractItemModel *const model : {static_cast<QAbstractItemModel *>(&merged),
                                                  static_cast<QAbstractItemModel *>(&zero),
                                                  static_cast<QAbstractItemModel *>(&top)}) {
        QCOMPARE(unit(*model, 1), &nA);
        QCOMPARE(unit(*model, 2), &V);
        QCOMPARE(unit(*model, 3), &celsius);
        QVERIFY(!model->index(0, 0).data(RVXAbstractPlotDataModel::ChannelUnitRole).isValid());
        QVERIFY(!model->index(1, 1).data(RVXAbstractPlotDataModel::ChannelUnitRole).isValid());
    }
    QCOMPARE(top.index(1, 1).data(Qt::ToolTipRole).toString(), QString("2.0000 nA"));
    QCOMPARE(top.index(1, 2).data(Qt::ToolTipRole).toString(), QString("20.000 V"));
    QCOMPARE(top.index(1, 3).data(Qt::ToolTipRole).toString(), celsius.formatSuffix(21));
    // Where there is none, the unit of another channel is not meant either.
    both.SetUnits(nullptr);
    QVERIFY(merged.index(0, 2).data(RVXAbstractPlotDataModel::ChannelUnitRole).isValid());
    QVERIFY(!unit(top, 2));
}

void tst_RVXMultichannelProxyModel::fileBytes()
{
    const Units::mA mA;
    RVXSingleChannelDataModel models[3];
    RVXMultichannelProxyModel proxy;
    for (auto &model : models) {
        model.SetUnits(&mA);
        proxy.addSourceModel(&model, 1);
    }
    models[0].AddData(1, 0.001);
    models[0].AddData(2.5, -0.25);
    models[2].AddData(1.125, 1);
    const QTemporaryDir folder;
    const QString name = folder.filePath("merged.csv");
    QVERIFY(proxy.SaveDataToFile(name));
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(),
             QByteArray("hannel__timestamp(s),hannel_,annel__timestamp(s),annel_,"
                        "nnel__timestamp(s),nnel_,\n"
                        "1.000e+00,1.000e+00,,,1.125e+00,1.000e+03,\n"
                        "2.500e+00,-2.500e+02,,,,,\n"));

    for (int i = 0; i < 6; ++i)
        proxy.addSourceModel(&models[0], 1);
    QVERIFY(proxy.SaveDataToFile(name));
    QFile wider(name);
    QVERIFY(wider.open(QIODevice::ReadOnly));
    QVERIFY(wider.readLine().endsWith(",l__timestamp(s),l_,__timestamp(s),_,_timestamp(s),,"
                                      "_timestamp(s),,\n"));
}

void tst_RVXMultichannelProxyModel::filesThatCannotBeWritten()
{
    BufferModel source(1);
    RVXMultichannelProxyModel proxy;
    proxy.addSourceModel(&source, 1);
    const QTemporaryDir folder;
    QVERIFY(!proxy.SaveDataToFile(QString()));
    QVERIFY(!proxy.SaveDataToFile(folder.path()));
    if (!hasFullDevice())
        QSKIP("no device here that is always full");
    QVERIFY(!proxy.SaveDataToFile("/dev/full"));
}

void tst_RVXMultichannelProxyModel::indexesOverALayoutChange()
{
    BufferModel one(1);
    BufferModel two(1);
    for (int i = 1; i <= 4; ++i)
        one.append(i, i);
    for (int i = 1; i <= 3; ++i)
        two.append(i, i);
    RVXMultichannelProxyModel proxy;
    proxy.addSourceModel(&one, 1);
    proxy.addSourceModel(&two, 1);
    const QPersistentModelIndex moved = proxy.index(1, 2);
    const QPersistentModelIndex repeated = proxy.index(4, 2);
    const QPersistentModelIndex other = proxy.index(1, 1);
    two.reverse();
    QCOMPARE(moved, proxy.index(3, 2));
    QCOMPARE(repeated, proxy.index(4, 2));
    QCOMPARE(other, proxy.index(1, 1));

    // The cells of every channel that shows the model follow it, and no others.
    proxy.addSourceModel(&two, 1);
    const QPersistentModelIndex first = proxy.index(2, 2);
    const QPersistentModelIndex second = proxy.index(1, 3);
    const QPersistentModelIndex time = proxy.index(1, 0);
    const QPersistentModelIndex still = proxy.index(1, 1);
    QCOMPARE(proxy.match(proxy.index(1, 3), Qt::DisplayRole, 1.0, 1, Qt::MatchExactly),
             QModelIndexList{proxy.index(3, 3)});
    ModelLog log(&proxy);
    two.moveToEnd(1);
    QCOMPARE(log.take(), QString("layout?, layout!"));
    QCOMPARE(first, proxy.index(1, 2));
    QCOMPARE(second, proxy.index(3, 3));
    QCOMPARE(time, proxy.index(1, 0));
    QCOMPARE(still, proxy.index(1, 1));
    // Where one source is all of the table its rows move.
    RVXMultichannelProxyModel alone;
    alone.addSourceModel(&two, 1);
    ModelLog aloneLog(&alone);
    const QPersistentModelIndex row = alone.index(1, 0);
    two.moveToEnd(1);
    QCOMPARE(aloneLog.take(), QString("move 1-1?, move 1-1!"));
    QCOMPARE(row, alone.index(3, 0));
}

void tst_RVXMultichannelProxyModel::proxiesInACircle()
{
    BufferModel source(1);
    RVXAveragingProxyModel average;
    RVXZeroingProxyModel zero;
    RVXMultichannelProxyModel merged;
    RVXMultichannelProxyModel outer;
    average.setSourceModel(&source);
    zero.setSourceModel(&average);
    merged.addSourceModel(&source, 1);
    merged.addSourceModel(&zero, 1);
    outer.addSourceModel(&merged, 1);
    average.setSourceModel(&outer);
    average.setSourceModel(&zero);
    merged.addSourceModel(&outer, 1);
    QCOMPARE(average.sourceModel(), &source);
    QCOMPARE(merged.columnCount(), 3);
    source.append(1, 10);
    QCOMPARE(rowsText(outer), QString("1: 10"));
}

void tst_RVXMultichannelProxyModel::clearIsOneReset()
{
    BufferModel one(1);
    BufferModel two(1);
    one.append(1, 1);
    two.append(1, 1);
    RVXMultichannelProxyModel proxy;
    proxy.addSourceModel(&one, 1);
    proxy.addSourceModel(&two, 1);
    ModelLog log(&proxy);
    proxy.Clear();
    QCOMPARE(log.take(), QString("reset?, reset!"));
    QCOMPARE(one.rowCount() + two.rowCount() + proxy.rowCount(), 3);
}

void tst_RVXMultichannelProxyModel::sourcesDeletedInAnyOrder_data()
{
    QTest::addColumn<QVector<int>>("order");
    QVector<int> order{0, 1, 2, 3, 4};
    do
        QTest::addRow("%d %d %d %d %d", order[0], order[1], order[2], order[3], order[4]) << order;
    while (std::next_permutation(order.begin(), order.end()));
}

void tst_RVXMultichannelProxyModel::sourcesDeletedInAnyOrder()
{
    QFETCH(QVector<int>, order);
    auto *proxy = new RVXMultichannelProxyModel;
    auto *onTop = new RVXAveragingProxyModel;
    onTop->setSourceModel(proxy);
    auto *one = new BufferModel(1);
    auto *two = new BufferModel(1);
    proxy->addSourceModel(one, 1);
    proxy->addSourceModel(two, 1);
    proxy->addSourceModel(one, 1);
    auto *average = new RVXAveragingProxyModel;
    average->setSourceModel(one);
    proxy->insertSourceModel(0, average, 1);
    one->append(1, 1);
    two->append(1, 2);
    two->append(2, 3);
    const QPointer<QObject> objects[] = {proxy, onTop, one, two, average};
    const auto readAll = [onTop] {
        rowsText(*onTop);
    };
    connect(onTop, &QAbstractItemModel::modelAboutToBeReset, onTop, readAll);
    connect(onTop, &QAbstractItemModel::modelReset, onTop, readAll);
    const auto log = std::make_unique<ModelLog>(proxy);
    for (const int number : order) {
        log->take();
        const bool isSource = number >= 2;
        const bool isBelow = number == 2 && objects[4]; // the average is reset as well
        delete objects[number];
        const QString reset = "reset?, reset!";
        if (objects[0] && isSource)
            QCOMPARE(log->take(), isBelow ? reset + ", " + reset : reset);
        if (objects[0])
            QCOMPARE(proxy->columnCount(),
                     1 + (objects[2] ? 2 : 0) + (objects[3] ? 1 : 0) + (objects[4] ? 1 : 0));
    }
}

void tst_RVXMultichannelProxyModel::aSourceTakenOutByAListener()
{
    BufferModel one(1);
    BufferModel two(1);
    RVXMultichannelProxyModel proxy;
    proxy.addSourceModel(&one, 1);
    proxy.addSourceModel(&two, 1);
    const auto takeOut = connect(&proxy, &QAbstractItemModel::rowsInserted, this, [&] {
        proxy.removeSourceModel(&two);
    });
    two.append(1, 1);
    QCOMPARE(proxy.columnCount(), 2);
    disconnect(takeOut);
    one.append(1, 1);
    QCOMPARE(rowsText(proxy), QString("1: 1"));

    // Taken out while its change is open: the proxy does not wait for the end of it.
    proxy.addSourceModel(&two, 1);
    const auto early = connect(&proxy, &QAbstractItemModel::rowsAboutToBeInserted, this, [&] {
        proxy.removeSourceModel(&two);
    });
    two.append(2, 2);
    disconnect(early);
    one.append(2, 2);
    QCOMPARE(rowsText(proxy), QString("1: 1; 2: 2"));
}

CORVALE_QT_TEST_MAIN(tst_RVXMultichannelProxyModel)
#include "tst_RVXMultichannelProxyModel.moc"
