// SPDX-License-Identifier: LGPL-2.1-or-later
// What RVXMultichannelProxyModel announces while its sources grow, drop and roll over independently of each other.
// Devices merged with their own averages and zeros, and an average of it all: every number after every step of a long
// random history. CORVALE_QT_TEST_STEPS in the environment sets the number of steps, for runs under a sanitizer.
#include "corvale_qt/models/RVXBulkPlotData.h"
#include "tests/proxies/Averages.h"
#include "tests/proxies/Merged.h"
#include "tests/proxies/ProxyTest.h"

#include <QPointer>

#include <utility>
#include <vector>

using namespace Corvale_Qt;

namespace {

constexpr int length = 5;

// Counts the questions that it is asked.
class CountingModel : public RVXSingleChannelDataModel
{
public:
    int rowCount(const QModelIndex &parent = QModelIndex()) const override
    {
        ++questions;
        return RVXSingleChannelDataModel::rowCount(parent);
    }
    double doubleData(int row, int column) const override
    {
        ++questions;
        return RVXSingleChannelDataModel::doubleData(row, column);
    }
    static qint64 questions;
};
qint64 CountingModel::questions = 0;

constexpr int channel = 2;

// A device, its average, and the zeroed average. Without a device the others are empty.
struct Trio
{
    Trio() { zero->setSourceModel(average.get()); }
    QVector<QAbstractItemModel *> models() const
    {
        return {device.get(), average.get(), zero.get()};
    }
    int rows() const { return device ? device->rowCount() - 1 : 0; }

    std::unique_ptr<BufferModel> device;
    std::unique_ptr<RVXAveragingProxyModel> average = std::make_unique<RVXAveragingProxyModel>();
    std::unique_ptr<RVXZeroingProxyModel> zero = std::make_unique<RVXZeroingProxyModel>();
};

// A channel of the merged model, and the averages of its model where it is not merged with any other.
struct Column
{
    explicit Column(QAbstractItemModel *items)
        : model(items)
        , plot(dynamic_cast<RVXAbstractPlotDataModel *>(items))
        , alone(std::make_shared<RVXAveragingProxyModel>())
    {
        alone->setSourceModel(items);
        startAfresh();
    }
    void startAfresh() const { alone->setAveraging(length); }
    int rows() const { return std::max(model->rowCount() - 1, 0); }

    // Beyond the rows of its model a channel repeats the newest.
    double raw(int row) const
    {
        return rows() == 0 ? qQNaN() : plot->doubleData(std::min(row, rows()), channel);
    }
    double average(int row) const
    {
        if (rows() == 0)
            return qQNaN();
        double value = alone->doubleData(std::min(row, rows()), channel);
        for (int r = rows() + 1; r <= row; ++r)
            value = (1.0 - 1.0 / length) * value + 1.0 / length * raw(r);
        return value;
    }

    QAbstractItemModel *model;
    RVXAbstractPlotDataModel *plot;
    std::shared_ptr<RVXAveragingProxyModel> alone;
};

class Scene
{
public:
    explicit Scene(int seed)
        : random(unsigned(seed))
        , merged(new RVXMultichannelProxyModel)
        , top(new RVXAveragingProxyModel)
    {
        top->setSourceModel(merged.get());
        top->setAveraging(length);
        QObject::connect(merged.get(), &QAbstractItemModel::modelReset, top.get(),
                         [this] { isReset = true; });
        account = std::make_unique<RowAccount>(top.get());
        for (Trio &trio : trios) {
            // Decides whether the merged model or the average hears of the device first.
            const bool mergedFirst = below(2);
            trio.device = std::make_unique<BufferModel>(2, 2 + below(8));
            if (mergedFirst)
                add(trio.device.get());
            trio.average->setSourceModel(trio.device.get());
            add(trio.models()[1 + below(2)]);
            if (!mergedFirst)
                add(trio.device.get());
            add(trio.models()[1 + below(2)]);
        }
    }

    int below(int limit) { return int(random() % unsigned(limit)); }

    void step()
    {
        Trio &trio = trios[below(2)];
        const int what = below(100);
        act = QStringLiteral("act %1 on trio %2").arg(what).arg(&trio - trios);
        isReset = false;
        mayReset = what >= 90;
        if (mayReset)
            changeModels(trio, what - 90);
        else if (what < 60 && trio.device)
            append(*trio.device, 1 + below(what < 30 ? 1 : 6));
        else if (trio.rows() > 0)
            changeRows(trio, what);
        // Averages start afresh after a reset of the table.
        if (isReset)
            startAfresh();
    }

    QString difference() const
    {
        int rows = 0;
        for (const Column &column : columns)
            rows = std::max(rows, column.rows());
        if (isReset && !mayReset)
            return QStringLiteral("a reset");
        if (merged->rowCount() != rows + 1 || top->rowCount() != rows + 1)
            return QStringLiteral("%1 rows instead of %2").arg(merged->rowCount() - 1).arg(rows);
        if (top->columnCount() != columns.size() + 1)
            return QStringLiteral("%1 columns").arg(top->columnCount());
        for (int row = 1; row <= rows; ++row) {
            if (merged->doubleData(row, 0) != time(row) || top->doubleData(row, 0) != time(row))
                return QStringLiteral("time of row %1").arg(row);
            for (int c = 1; c <= columns.size(); ++c) {
                if (!same(merged->doubleData(row, c), columns[c - 1].raw(row)))
                    return QStringLiteral("row %1, channel %2").arg(row).arg(c);
                if (!same(top->doubleData(row, c), columns[c - 1].average(row)))
                    return QStringLiteral("average of row %1, channel %2").arg(row).arg(c);
            }
        }
        return account->error() + differenceInBulk();
    }

    //! Deletes all models one after the other, while listeners read from those that are left.
    void deleteInAnyOrder()
    {
        account.reset();
        columns.clear();
        QVector<QPointer<QAbstractItemModel>> models{top.release(), merged.release()};
        const auto read = [all = models[0], below = models[1]] {
            rowsText(static_cast<RVXMultichannelProxyModel &>(*below));
            rowsText(static_cast<RVXAveragingProxyModel &>(*all));
        };
        QObject::connect(models[1], &QAbstractItemModel::modelAboutToBeReset, models[0], read);
        QObject::connect(models[1], &QAbstractItemModel::modelReset, models[0], read);
        for (Trio &trio : trios)
            models << trio.device.release() << trio.average.release() << trio.zero.release();
        std::shuffle(models.begin(), models.end(), random);
        for (const QPointer<QAbstractItemModel> &model : models)
            delete model;
    }

    QString act;

private:
    //! Returns where a chunk that reaches beyond the rows at both ends has other numbers than the cells.
    QString differenceInBulk() const
    {
        std::vector<double> chunk(size_t(merged->rowCount()) + 3);
        for (int column = 0; column <= columns.size(); ++column) {
            RVXBulkPlotData::of(merged.get())->read(column, -1, int(chunk.size()), chunk.data());
            for (size_t i = 0; i < chunk.size(); ++i) {
                if (!same(chunk[i], merged->doubleData(int(i) - 1, column)))
                    return QStringLiteral("chunk of channel %1, row %2").arg(column).arg(i - 1);
            }
        }
        return QString();
    }
    void add(QAbstractItemModel *model)
    {
        merged->addSourceModel(model, channel);
        columns.append(Column(model));
    }
    void removeColumnsOf(const QAbstractItemModel *model)
    {
        const auto shows = [model](const Column &column) { return column.model == model; };
        columns.erase(std::remove_if(columns.begin(), columns.end(), shows), columns.end());
    }
    void startAfresh()
    {
        for (const Column &column : columns)
            column.startAfresh();
    }
    double time(int row) const
    {
        for (const Column &column : columns) {
            if (row <= column.rows())
                return column.plot->doubleData(row, 0);
        }
        return qQNaN();
    }

    BufferModel::Sample sample() { return {now += 0.25, {now / 3.0, below(1000) / 7.0}}; }
    void append(BufferModel &device, int count)
    {
        device.rollOver = BufferModel::RollOver(below(3));
        QVector<BufferModel::Sample> samples;
        while (samples.size() < std::min(count, device.MaxBufferSize()))
            samples << sample();
        device.append(samples);
    }
    void changeRows(const Trio &trio, int what)
    {
        BufferModel &device = *trio.device;
        const int row = 1 + below(trio.rows());
        if (what < 72) {
            device.dropOldest(row);
        } else if (what < 80) {
            device.change(row, 1 + below(2), below(1000) / 7.0);
            // The channel is announced with the other one, so its averages start there.
            for (const Column &column : columns) {
                if (row == 1 && trio.models().contains(column.model))
                    column.startAfresh();
            }
        } else if (what < 82) {
            Q_EMIT device.dataChanged(device.index(below(2), 1), device.index(trio.rows(), 2));
        } else if (what < 84) {
            const QModelIndex box = device.index(0, 1); // changes no number
            device.setData(box, !box.data(Qt::CheckStateRole).toBool(), Qt::CheckStateRole);
        } else if (what < 86 && trio.rows() < device.MaxBufferSize()) {
            device.insert(row, sample());
        } else if (row > 1) {
            device.remove(row, row + below(trio.rows() - row + 1));
        }
    }

    // Does what resets the table: acts of the host, and of a device.
    void changeModels(Trio &trio, int what)
    {
        if (what == 0 && trio.device) {
            trio.device->Clear();
        } else if (what == 1) {
            trio.average->setAveraging(1 + below(4));
        } else if (what == 2) {
            trio.zero->zeroNow();
        } else if (what == 3 && trio.device) {
            const QAbstractItemModel *const gone = trio.device.get();
            trio.device.reset();
            removeColumnsOf(gone);
        } else if (what == 4 && !trio.device) {
            trio.device = std::make_unique<BufferModel>(2, 2 + below(8));
            trio.average->setSourceModel(trio.device.get());
            add(trio.device.get());
        } else if (what == 5 && trios[0].device && trios[1].device) {
            std::swap(trios[0].device, trios[1].device);
            for (const Trio &each : trios)
                each.average->setSourceModel(each.device.get());
        } else if (what == 6 && columns.size() < 9) {
            if (QAbstractItemModel *const model = trio.models()[below(3)])
                add(model);
        } else if (what == 7 && !columns.isEmpty()) {
            QAbstractItemModel *const gone = columns[below(columns.size())].model;
            if (gone == columns.first().model)
                return; // it would stay without being heard
            merged->removeSourceModel(gone);
            removeColumnsOf(gone);
        } else if (what >= 8 && trio.rows() > 1) {
            rearrange(trio);
        }
    }
    // Averages of all channels start afresh with the rows in another order.
    void rearrange(const Trio &trio)
    {
        if (below(2))
            trio.device->reverse();
        else
            trio.device->moveToEnd(1 + below(trio.rows() - 1));
        for (const Column &column : qAsConst(columns))
            isReset = isReset || trio.models().contains(column.model);
    }

    std::mt19937 random;
    Trio trios[2];
    std::unique_ptr<RVXMultichannelProxyModel> merged;
    std::unique_ptr<RVXAveragingProxyModel> top;
    std::unique_ptr<RowAccount> account;
    QVector<Column> columns;
    double now = 0.0;
    bool isReset = false;
    bool mayReset = true;
};

} // namespace

class tst_MergedRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void announcements_data()
    {
        tableFrom(R"(
            | int capacity | before | change | announced
            the first sample | 9 | | append 1 1 | insert 1-1?, insert 1-1!
            growth within the rows | 9 | append 1 1 | / append 1 1 | changed (1,2)-(1,2)
            growth of the longest
                | 9 | append 1 1 / append 1 1 | / append 2 2 2 | insert 2-3?, insert 2-3!
            growth beyond the longest | 9 | append 1 1 / append 1 1 3 | append 2 2 3
                | insert 4-4?, insert 4-4!, changed (2,0)-(3,0), changed (2,1)-(3,1)
            growth of a shorter one, which gives the time | 9 | append 1 1 3 / append 1 1 5
                | append 4 4 | changed (4,0)-(4,0), changed (4,1)-(5,1)
            a newest sample, which is repeated
                | 9 | append 1 1 3 / append 1 1 5 | change 3 1 7 | changed (3,1)-(5,1)
            an older sample
                | 9 | append 1 1 3 / append 1 1 5 | change 2 1 7 | changed (2,1)-(2,1)
            the first to roll over, nested | 3 | append 1 1 3 / append 1 1 3 | append 4 4
                | remove 1-1?, remove 1-1!, insert 3-3?, insert 3-3!
            the second to roll over, nested
                | 3 | append 1 1 3; append 4 4 / append 1 1 3 | / append 4 4 | changed (3,2)-(3,2)
            the first to roll over, one after the other
                | 3 | append 1 1 3; roll-over 1 / append 1 1 3 | append 4 4
                | remove 1-1?, remove 1-1!, insert 3-3?, insert 3-3!, changed (3,0)-(3,0), changed (3,1)-(3,1)
            the second to roll over, one after the other
                | 3 | append 1 1 3; append 4 4 / append 1 1 3; roll-over 1 | / append 4 4
                | changed (3,2)-(3,2), changed (3,2)-(3,2)
            a whole buffer replaced, nested | 3 | append 1 1 3 | append 4 4 3
                | remove 1-2?, remove 1-2!, insert 2-3?, insert 2-3!, changed (1,0)-(1,0), changed (1,1)-(1,1)
            a drop of the longest | 9 | append 1 1 4 | drop 2 | remove 1-2?, remove 1-2!
            a drop of one of two | 9 | append 3 3 2 / append 5 50 2 | drop 1
                | remove 1-1?, remove 1-1!, insert 2-2?, insert 2-2!
            the drop of the other one | 9 | append 3 3 2; drop 1 / append 5 50 2 | / drop 1
                | remove 2-2?, remove 2-2!
            a removal in the middle | 9 | append 1 1 5 / append 1 2 2 | remove 2 3
                | remove 2-3?, remove 2-3!, changed (2,0)-(3,0), changed (2,1)-(3,1), changed (2,2)-(3,2)
            a removal that reaches the other one | 9 | append 1 1 3 / append 1 2 2 | remove 2 3
                | remove 3-3?, remove 3-3!, changed (2,0)-(2,0), changed (2,1)-(2,1)
            an insertion in front | 9 | append 1 1 / append 1 2 2 | insert 1 0 7
                | changed (1,0)-(2,0), changed (1,1)-(2,1)
            another order | 9 | append 1 1 3 / append 1 2 3 | reverse | layout?, layout!
            an end without a beginning | 9 | append 1 1 3 | layout-changed | reset?, reset!
            a reset | 9 | append 1 1 3 / append 1 2 3 | clear | reset?, reset!
        )");
    }
    void announcements()
    {
        Merged m(1, 1, cell<int>("capacity"));
        RVXAveragingProxyModel averaging;
        averaging.setSourceModel(&m.proxy);
        averaging.setAveraging(length);
        const RowAccount account(&averaging);
        // One row stays announced while all samples leave; the tester expects its number to stay too.
        std::optional<ModelWatch> watch;
        if (QByteArray(QTest::currentDataTag()) != "a whole buffer replaced, nested")
            watch.emplace(&m.proxy);
        m.announced(cell("before"));
        QTEST(m.announced(cell("change")), "announced");
        QCOMPARE(account.error(), QString());
    }

    //! Sources that grow, shrink and change in any order, without dropping their oldest samples.
    void everyCellIsAnnounced()
    {
        std::mt19937 random(1);
        const auto below = [&random](int limit) { return int(random() % unsigned(limit)); };
        BufferModel sources[3]{BufferModel(2), BufferModel(1), BufferModel(1)};
        RVXMultichannelProxyModel merged;
        for (const auto &[source, column] : {std::pair(1, 1), {0, 2}, {2, 1}, {0, 1}})
            merged.addSourceModel(&sources[source], column);
        const TableMirror<RVXMultichannelProxyModel> mirror(&merged);
        double now = 0.0;
        for (int step = 0; step < 3000; ++step) {
            BufferModel &source = sources[below(3)];
            const int rows = source.rowCount() - 1;
            const int what = below(12);
            now += 0.1 + 0.01 * below(9);
            if (what < 6 && rows < 60)
                source.append(now, below(1000));
            else if (what < 7 && rows > 0 && rows < 60)
                source.insert(2 + below(rows), {now, {double(below(1000)), -now}});
            else if (what < 9 && rows > 0)
                source.change(1 + below(rows), 1, below(1000));
            else if (what < 11 && rows > 1)
                source.remove(2 + below(rows - 1), rows);
            else if (rows > 2)
                source.remove(2, 2 + below(rows - 2));
            const QString error = mirror.error();
            QVERIFY2(error.isEmpty(),
                     qPrintable(QString("step %1, %2: %3").arg(step).arg(what).arg(error)));
        }
    }

    void fullBuffersOfTheLibrary()
    {
        const int capacity = int(RVXAbstractDeviceDataModel::maxBufferSize);
        RVXSingleChannelDataModel models[3];
        RVXMultichannelProxyModel merged;
        RVXAveragingProxyModel onMerged;
        RVXAveragingProxyModel alone[3];
        onMerged.setSourceModel(&merged);
        onMerged.setAveraging(length);
        for (int i = 0; i < 3; ++i) {
            merged.addSourceModel(&models[i], 1);
            alone[i].setSourceModel(&models[i]);
            alone[i].setAveraging(length);
        }
        const RowAccount account(&merged);
        const auto tick = [&](int i, double time) { models[i].AddData(time, time * 0.37 + i); };
        const auto compare = [&] {
            QCOMPARE(account.error(), QString());
            for (int c = 1; c <= 3; ++c) {
                for (int row = 1; row < alone[c - 1].rowCount(); ++row) {
                    if (onMerged.doubleData(row, c) != alone[c - 1].doubleData(row, 1))
                        QFAIL(qPrintable(QString("channel %1, row %2").arg(c).arg(row)));
                }
            }
        };
        for (int i = 0; i < 3; ++i) {
            models[i].setAutoUpdate(false);
            for (int n = 1; n <= capacity - 20; ++n)
                tick(i, n);
            models[i].UpdateView();
            models[i].setAutoUpdate(true);
        }
        for (int n = capacity - 19; n <= capacity + 50; ++n) {
            for (int i = 0; i < 3; ++i)
                tick(i, n);
        }
        compare();
        // The second runs ahead, the first catches up, the third announces its samples in batches.
        models[2].setAutoUpdate(false);
        for (int n = 1; n <= 300; ++n) {
            tick(1, 2e5 + n);
            if (n % 3 == 0)
                tick(0, 2e5 + n);
            tick(2, 2e5 + n);
            if (n % 100 == 0)
                models[2].UpdateView();
        }
        compare();
    }

    void changesWithinAChange_data()
    {
        tableFrom(R"(
            | script | announced
            a sample that changes and shifts | change 3 1 77; drop 1
                | insert 5-5?, insert 5-5!, remove 1-1?, remove 1-1!, insert 5-5?, insert 5-5!,
                  changed (2,0)-(3,0), changed (2,1)-(3,1)
            a check box | check 1 0 | insert 5-5?, insert 5-5!, changed (0,1)-(0,1)
        )");
    }
    //! The first model changes while the second one inserts a row.
    void changesWithinAChange()
    {
        QFETCH(QString, script);
        Merged m;
        m.announced("append 1 1 4 / append 1 1 4");
        connect(&m.two, &QAbstractItemModel::rowsAboutToBeInserted, this,
                [&] { m.one.act(script); });
        QTEST(m.announced("/ append 5 5"), "announced");
    }

    //! The host adds a channel when a model has dropped a sample and the proxy has not heard of it yet.
    void aChannelAddedWithinAChange()
    {
        BufferModel one(1), two(1);
        one.act("append 1 10 4");
        two.act("append 1 50");
        RVXMultichannelProxyModel merged;
        connect(&one, &QAbstractItemModel::rowsRemoved, this,
                [&] { merged.addSourceModel(&two, 1); });
        merged.addSourceModel(&one, 1);
        RVXAveragingProxyModel averaging;
        averaging.setSourceModel(&merged);
        averaging.setAveraging(2);
        const RowAccount account(&averaging);
        one.dropOldest(1);
        QCOMPARE(rowsText(averaging), QString("2: 11 50; 3: 11.5 50; 4: 12.25 50"));
        QCOMPARE(account.error(), QString());
    }

    void sourcesThatMoveEachOther()
    {
        // In the middle of its announcements, each sample of the first model makes the other one append a sample or reset.
        Merged m(1, 1, 4);
        RVXAveragingProxyModel onTop;
        onTop.setSourceModel(&m.proxy);
        const RowAccount account(&m.proxy);
        int ticks = 0;
        const auto join = [&] {
            if (++ticks == 9)
                m.two.Clear();
            m.two.append(ticks, 10.0 * ticks);
        };
        connect(&m.one, &QAbstractItemModel::rowsAboutToBeInserted, this, join);
        connect(&m.one, &QAbstractItemModel::rowsRemoved, this, join);
        for (int i = 1; i <= 12; ++i) {
            m.one.append(i, i);
            QCOMPARE(account.error(), QString());
            QCOMPARE(rowsText(onTop), rowsText(m.proxy));
            QCOMPARE(m.proxy.rowCount(), std::max(m.one.rowCount(), m.two.rowCount()));
        }
    }

    void workPerSample()
    {
        qint64 perRound[2];
        const int channelCounts[] = {8, 256};
        for (int run = 0; run < 2; ++run) {
            std::vector<std::unique_ptr<CountingModel>> models;
            RVXMultichannelProxyModel merged;
            RVXAveragingProxyModel averaging;
            averaging.setSourceModel(&merged);
            averaging.setAveraging(length);
            for (int i = 0; i < channelCounts[run]; ++i) {
                models.push_back(std::make_unique<CountingModel>());
                merged.addSourceModel(models.back().get(), 1);
            }
            const int rounds = 20;
            CountingModel::questions = 0;
            for (int n = 1; n <= rounds; ++n) {
                for (const auto &model : models)
                    model->AddData(n, n);
            }
            perRound[run] = CountingModel::questions / rounds / channelCounts[run];
        }
        QVERIFY(perRound[0] > 0);
        QVERIFY2(perRound[1] <= perRound[0] + 1, qPrintable(QString::number(perRound[1])));
    }

    void anythingInAnyOrder_data()
    {
        QTest::addColumn<int>("seed");
        for (int seed = 1; seed <= 8; ++seed)
            QTest::addRow("seed %d", seed) << seed;
    }
    void anythingInAnyOrder()
    {
        const int wanted = qEnvironmentVariableIntValue("CORVALE_QT_TEST_STEPS");
        Scene scene(cell<int>("seed"));
        for (int i = 0; i < (wanted > 0 ? wanted : 1500); ++i) {
            scene.step();
            const QString difference = scene.difference();
            if (!difference.isEmpty())
                QFAIL(qPrintable(QString("step %1, %2: %3").arg(i).arg(scene.act, difference)));
        }
        scene.deleteInAnyOrder();
    }

    void deletedInAnyOrder()
    {
        for (int seed = 1; seed <= 100; ++seed) {
            Scene scene(seed);
            for (int i = 0; i < 5; ++i)
                scene.step();
            scene.deleteInAnyOrder();
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_MergedRows)
#include "tst_MergedRows.moc"
