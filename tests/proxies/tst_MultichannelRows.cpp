// SPDX-License-Identifier: LGPL-2.1-or-later
// What RVXMultichannelProxyModel announces while its sources grow, drop and roll over independently of each other.
#include "tests/proxies/Merged.h"
#include "tests/proxies/ProxyTest.h"

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

} // namespace

class tst_MultichannelRows : public QObject
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
        const auto below = [&random](int limit) {
            return int(random() % unsigned(limit));
        };
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
        const auto tick = [&](int i, double time) {
            models[i].AddData(time, time * 0.37 + i);
        };
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
        connect(&m.two, &QAbstractItemModel::rowsAboutToBeInserted, this, [&] {
            m.one.act(script);
        });
        QTEST(m.announced("/ append 5 5"), "announced");
    }

    //! The host adds a channel when a model has dropped a sample and the proxy has not heard of it yet.
    void aChannelAddedWithinAChange()
    {
        BufferModel one(1), two(1);
        one.act("append 1 10 4");
        two.act("append 1 50");
        RVXMultichannelProxyModel merged;
        connect(&one, &QAbstractItemModel::rowsRemoved, this, [&] {
            merged.addSourceModel(&two, 1);
        });
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
};

CORVALE_QT_TEST_MAIN(tst_MultichannelRows)
#include "tst_MultichannelRows.moc"
