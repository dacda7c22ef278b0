// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/proxies/PlotDataExport.h"
#include "corvale_qt/proxies/RVXPlotProxyModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/proxies/ProxyTest.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

#include <QItemSelectionModel>
#include <QMimeData>

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

//! What every proxy passes on, and how any plot model is written to a file.
class tst_RVXPlotProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutASource()
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
        QVERIFY(!proxy.dropMimeData(&mime, Qt::CopyAction, 0, 0, QModelIndex()));
        proxy.Clear();
    }

    void refusedSources()
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

    void everySignalIsPassedOn_data()
    {
        tableFrom(R"(
            | script
            append | append 9 9
            roll over, nested | append 8 8; append 9 9
            roll over, one after the other | roll-over 1; append 8 8; append 9 9
            drop | drop 2
            insert between | insert 2 1.5 7
            move | move 1
            sort | reverse
            change | change 2 2 5
            gain a channel | prepend-channel 3
            lose a channel | remove-channel 1
            move a channel | move-channel
            clear | clear
            check box | check 1 0
            header | header 1 2
        )");
    }
    void everySignalIsPassedOn()
    {
        BufferModel source(2, 4);
        for (int i = 1; i <= 3; ++i)
            source.append(i, 10.0 * i);
        PlainProxy proxy;
        PlainProxy onTop;
        proxy.setSourceModel(&source);
        onTop.setSourceModel(&proxy);
        // The tester accepts an insertion around a removal from no model.
        std::optional<ModelWatch> watch;
        if (QByteArray(QTest::currentDataTag()) != "roll over, nested")
            watch.emplace(&onTop);
        ModelLog log(&source);
        ModelLog proxyLog(&onTop);
        source.act(cell("script"));
        const QString announced = log.take();
        QVERIFY(!announced.isEmpty());
        QCOMPARE(proxyLog.take(), announced);
        QCOMPARE(rowsText(onTop), rowsText(source));
        QCOMPARE(onTop.columnCount(), source.columnCount());
    }

    void indexesOfCellsThatAreNotThere()
    {
        // Returns an index for any row and column.
        struct CarelessModel : BufferModel
        {
            using BufferModel::BufferModel;
            QModelIndex index(int row, int column, const QModelIndex &) const override
            {
                return createIndex(row, column);
            }
        };
        struct ShorterProxy : RVXZeroingProxyModel
        {
            int rowCount(const QModelIndex &) const override { return 2; }
        };
        CarelessModel careless(1);
        careless.act("append 1 1 3");
        RVXSingleChannelDataModel model;
        for (int i = 1; i <= 3; ++i)
            model.AddData(i, i);
        RVXZeroingProxyModel overCareless;
        RVXZeroingProxyModel plain;
        RVXZeroingProxyModel onTop;
        ShorterProxy shorter;
        overCareless.setSourceModel(&careless);
        plain.setSourceModel(&model);
        onTop.setSourceModel(&plain);
        shorter.setSourceModel(&model);
        for (const RVXZeroingProxyModel *each :
             {&overCareless, &onTop, &plain, static_cast<RVXZeroingProxyModel *>(&shorter)}) {
            const QAbstractItemModel *const proxy = each;
            const int rows = proxy->rowCount();
            const QModelIndex last = proxy->index(rows - 1, 1);
            QCOMPARE(last.model(), proxy);
            for (const QPoint &beside :
                 {QPoint(rows, 1), QPoint(0, 2), QPoint(-1, 0), QPoint(0, -1)})
                QVERIFY(!proxy->index(beside.x(), beside.y()).isValid());
            QVERIFY(!proxy->index(0, 0, last).isValid());
        }
    }

    void hooksRunBeforeTheEndSignal()
    {
        BufferModel source(1, 3);
        PlainProxy proxy;
        proxy.setSourceModel(&source);
        const auto note = [&proxy] { proxy.lines << "told"; };
        connect(&proxy, &QAbstractItemModel::rowsInserted, this, note);
        connect(&proxy, &QAbstractItemModel::rowsRemoved, this, note);
        connect(&proxy, &QAbstractItemModel::modelReset, this, note);
        connect(&proxy, &QAbstractItemModel::dataChanged, this, note);
        proxy.lines.clear();
        source.act("append 1 1; append 2 2; change 2 1 7; drop 1; clear");
        QCOMPARE(
            proxy.lines.join("; "),
            QString("inserted 1-1, 2 rows; told; inserted 2-2, 3 rows; told; "
                    "changed 2-2, 3 rows; told; removed 1-1, 2 rows; told; reset, 1 rows; told"));
    }

    void indexesAreMapped()
    {
        BufferModel source(2, 10);
        for (int i = 1; i <= 4; ++i)
            source.append(i, 10.0 * i);
        PlainProxy proxy;
        PlainProxy onTop;
        proxy.setSourceModel(&source);
        onTop.setSourceModel(&proxy);
        const QItemSelection range(onTop.index(1, 1), onTop.index(3, 2));
        const QItemSelection mapped = onTop.mapSelectionToSource(range);
        QCOMPARE(mapped, QItemSelection(proxy.index(1, 1), proxy.index(3, 2)));
        QCOMPARE(onTop.mapSelectionFromSource(mapped), range);
        QVERIFY(onTop.mapSelectionToSource(QItemSelection(QModelIndex(), QModelIndex())).isEmpty());
        QCOMPARE(onTop.match(onTop.index(1, 1), Qt::DisplayRole, 30.0, 1, Qt::MatchExactly),
                 QModelIndexList{onTop.index(3, 1)});

        // Indexes that are held follow their samples; a selection makes its own when it hears of the change.
        const QPersistentModelIndex held = onTop.index(1, 2);
        QItemSelectionModel selection(&onTop);
        selection.select(onTop.index(2, 1), QItemSelectionModel::Select);
        source.reverse();
        QCOMPARE(held.row(), 4);
        QCOMPARE(held.data(RVXAbstractPlotDataModel::NumericValueRole).toDouble(), 11.0);
        QCOMPARE(selection.selectedIndexes(), QModelIndexList{onTop.index(3, 1)});
        source.dropOldest(1);
        QCOMPARE(held.row(), 3);
    }

    void anotherSource()
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

    void aSourceThatGoesDuringItsReset()
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

    void attachedInTheMiddle_data()
    {
        // The signal of the device, or of its average, at which the proxies are attached.
        tableFrom(R"(
            | QByteArray signal
            rows come | rowsAboutToBeInserted(QModelIndex,int,int)
            rows have come | rowsInserted(QModelIndex,int,int)
            rows go | rowsAboutToBeRemoved(QModelIndex,int,int)
            rows have gone | rowsRemoved(QModelIndex,int,int)
            columns come | columnsAboutToBeInserted(QModelIndex,int,int)
            columns have come | columnsInserted(QModelIndex,int,int)
            rows have moved | rowsMoved(QModelIndex,int,int,QModelIndex,int)
            another order comes | layoutAboutToBeChanged()
            another order has come | layoutChanged()
            a reset comes | modelAboutToBeReset()
            a reset has come | modelReset()
        )");
    }
    void attachedInTheMiddle()
    {
        QFETCH(QByteArray, signal);
        signal.prepend(QByteArray::number(QSIGNAL_CODE));
        const char *const scripts[] = {"append 5 50 2", "drop 1",  "prepend-channel 3",
                                       "move 1",        "reverse", "clear"};
        for (int run = 0; run < 9 * int(std::size(scripts)); ++run) {
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
            // The proxies are attached before the average hears of the change, after that, or by the average.
            if (run / 3 % 3 == 0)
                connect(&source, signal, &once, SLOT(fire()));
            average.setSourceModel(&source);
            if (run / 3 % 3 == 1)
                connect(&source, signal, &once, SLOT(fire()));
            else if (run / 3 % 3 == 2)
                connect(&average, signal, &once, SLOT(fire()));

            source.act(scripts[run / 9]);
            once.fire();
            const RowAccount ofPlain(&plain), ofAverage(&onAverage), ofMerged(&merged);
            for (int i = 0; i < 3; ++i) {
                QCOMPARE(rowsText(plain), rowsText(average));
                QCOMPARE(rowsText(onAverage), rowsText(average));
                QCOMPARE(merged.rowCount(), source.rowCount());
                for (int row = 1; row < source.rowCount(); ++row) {
                    QCOMPARE(merged.doubleData(row, 1), average.doubleData(row, 2));
                    QCOMPARE(merged.doubleData(row, 2), source.doubleData(row, 2));
                }
                QCOMPARE(ofPlain.error() + ofAverage.error() + ofMerged.error(), QString());
                source.append(10 + i, 7.0 * i);
            }
        }
    }

    void detachedInTheMiddle()
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
            once.act = [&] { proxy.setSourceModel(&two); };
            connect(whileBeginning ? static_cast<QAbstractItemModel *>(&proxy) : &source,
                    SIGNAL(rowsAboutToBeInserted(QModelIndex, int, int)), &once, SLOT(fire()));
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

    void writesWhatIsChosen()
    {
        const Units::nA nA;
        const Units::mm mm;
        RVXMultichannelDeviceModel model;
        model.setChannels(
            {{"left, top", nullptr, &nA}, {"hidden", nullptr, &nA}, {"motor\naxis", &mm, &mm}});
        model.SetUnits(&nA);
        model.setData(model.index(0, 2), Qt::Unchecked, Qt::CheckStateRole);
        // The last two moments lie beyond the dates that can be relied on.
        model.appendRows({1.0, 2.0, 2.002, 2e11, 6e11},
                         {0.1, 9, 1, 1.0 / 3.0, 9, 2, std::nan(""), 9, 3, 5, 9, 4, 6, 9, 5});
        PlotDataExport save(&model);
        save.setTimes(2.0, 2e11);
        save.setShownOnly(true);
        save.setStartTime(QDateTime(QDate(2026, 3, 29), QTime(0, 59, 58), Qt::UTC));
        const QTemporaryDir folder;
        QSignalSpy finished(&save, &PlotDataExport::finished);
        QVERIFY(save.start(folder.filePath("a.csv")));
        model.Clear(); // the rows were copied
        QTRY_COMPARE(finished.count(), 1);
        QCOMPARE(finished.first().first().toBool(), true);
        QCOMPARE(QString(fileContents(folder.filePath("a.csv"))),
                 QString("time (s),UTC,\"left, top (nA)\",\"motor\naxis (mm)\"\n"
                         "2,2026-03-29T01:00:00.000Z,0.3333333333333333,2\n"
                         "2.002,2026-03-29T01:00:00.002Z,,3\n2e+11,,5,4\n"));
        QVERIFY(!save.start(folder.filePath("b.csv")));
        QCOMPARE(save.errorString(), QString("there are no rows to save"));
    }

    void longExportsLetTheLoopRun()
    {
        RVXMultichannelDeviceModel model(4);
        const int rows = 50000;
        QVector<double> times;
        for (int i = 0; i < rows; ++i)
            times << 1.0 + 0.001 * i;
        model.appendRows(times, QVector<double>(4 * rows, 0.1));
        const QTemporaryDir folder;
        const QString path = folder.filePath("long.csv");
        PlotDataExport save(&model);
        QSignalSpy progressed(&save, &PlotDataExport::progressed);
        QSignalSpy finished(&save, &PlotDataExport::finished);
        QVERIFY(save.start(path));
        QVERIFY(!save.start(path));
        connect(&save, &PlotDataExport::progressed, &save, [&](int done) {
            if (done > rows / 2)
                save.cancel();
        });
        QTRY_COMPARE(finished.count(), 1);
        QCOMPARE(finished.first().first().toBool(), false);
        QVERIFY(progressed.count() > 3);
        QVERIFY(!QFile::exists(path));

        QVERIFY(save.start(path));
        disconnect(&save, &PlotDataExport::progressed, nullptr, nullptr);
        QTRY_COMPARE(finished.count(), 2);
        QCOMPARE(fileContents(path).count('\n'), rows + 1);
        QVERIFY(!save.start(folder.filePath("no/such/folder.csv")));
        QVERIFY(!save.errorString().isEmpty());
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXPlotProxyModel)
#include "tst_RVXPlotProxyModel.moc"
