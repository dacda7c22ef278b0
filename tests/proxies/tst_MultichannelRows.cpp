// SPDX-License-Identifier: LGPL-2.1-or-later
// What RVXMultichannelProxyModel announces while its sources grow, drop and roll over, each in its own time.
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/BufferModel.h"
#include "tests/support/ModelLog.h"
#include "tests/support/ModelText.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/RowAccount.h"
#include "tests/support/TestMain.h"

#include <memory>
#include <random>
#include <vector>

using namespace Corvale_Qt;

namespace {

constexpr int length = 5;

double step(double before, double raw)
{
    const double alpha = 1.0 / length;
    return (1.0 - alpha) * before + alpha * raw;
}

bool same(double one, double other)
{
    return one == other || (qIsNaN(one) && qIsNaN(other));
}

// A channel as it ought to be: the averages of the samples that its source holds, in the channel's own history.
class Expected
{
public:
    Expected(BufferModel *source, int column)
        : model(source)
        , m_column(column)
    {
    }

    int rows() const { return model->rowCount() - 1; }
    // A row that the source does not have repeats its newest; an empty source has none to repeat.
    double raw(int row) const
    {
        return rows() == 0 ? qQNaN() : model->doubleData(std::min(row, rows()), m_column);
    }
    double average(int row) const
    {
        double value = 0.0;
        for (int r = std::min(row, std::max(rows(), 1)); r <= row; ++r)
            value = r <= rows() ? m_averages[r - 1] : r == 1 ? raw(r) : step(value, raw(r));
        return value;
    }

    void dropped(int count) { m_averages.remove(0, std::min(count, m_averages.size())); }
    void changedFrom(int row)
    {
        m_averages.resize(rows());
        for (int r = row; r <= rows(); ++r)
            m_averages[r - 1] = r == 1 ? raw(r) : step(m_averages[r - 2], raw(r));
    }

    BufferModel *model;

private:
    int m_column;
    QVector<double> m_averages;
};

// The proxy under test, what stands on it, and what ought to be seen.
class Scene
{
public:
    Scene()
    {
        zeroing.setSourceModel(&merged);
        averaging.setSourceModel(&zeroing);
        averaging.setAveraging(length);
        account = std::make_unique<RowAccount>(&averaging);
    }

    BufferModel *addSource(int width, int capacity, int column)
    {
        models.push_back(std::make_unique<BufferModel>(width, capacity));
        add(models.back().get(), column);
        return models.back().get();
    }
    void add(BufferModel *model, int column)
    {
        merged.addSourceModel(model, column);
        channels.append(Expected(model, column));
        allAnew();
    }
    // The model at position 0 stays.
    void remove(int position)
    {
        BufferModel *const gone = channels[position].model;
        merged.removeSourceModel(gone);
        for (int i = channels.size() - 1; i > 0; --i) {
            if (channels[i].model == gone)
                channels.removeAt(i);
        }
        allAnew();
    }
    void allAnew()
    {
        for (Expected &channel : channels)
            channel.changedFrom(1);
    }
    void changed(BufferModel *model, int row)
    {
        for (Expected &channel : channels) {
            if (channel.model == model)
                channel.changedFrom(row);
        }
    }
    void append(BufferModel *model, const QVector<BufferModel::Sample> &samples)
    {
        const int before = model->rowCount() - 1;
        model->append(samples);
        const int after = model->rowCount() - 1;
        dropped(model, before + samples.size() - after);
        changed(model, after - samples.size() + 1);
    }
    void dropped(BufferModel *model, int count)
    {
        for (Expected &channel : channels) {
            if (channel.model == model)
                channel.dropped(count);
        }
    }

    double time(int row) const
    {
        for (const Expected &channel : channels) {
            if (row <= channel.rows())
                return channel.model->doubleData(row, 0);
        }
        return -1.0;
    }

    //! What differs first; empty if nothing does.
    QString difference() const
    {
        int rows = 0;
        for (const Expected &channel : channels)
            rows = std::max(rows, channel.rows());
        if (merged.rowCount() != rows + 1 || averaging.rowCount() != rows + 1)
            return QStringLiteral("%1 rows instead of %2").arg(merged.rowCount() - 1).arg(rows);
        for (int row = 1; row <= rows; ++row) {
            if (merged.doubleData(row, 0) != time(row) || averaging.doubleData(row, 0) != time(row))
                return QStringLiteral("time of row %1").arg(row);
            for (int c = 1; c <= channels.size(); ++c) {
                if (!same(merged.doubleData(row, c), channels[c - 1].raw(row)))
                    return QStringLiteral("value of row %1, channel %2").arg(row).arg(c);
                if (!same(averaging.doubleData(row, c), channels[c - 1].average(row)))
                    return QStringLiteral("average of row %1, channel %2: %3 instead of %4")
                        .arg(row)
                        .arg(c)
                        .arg(averaging.doubleData(row, c))
                        .arg(channels[c - 1].average(row));
            }
        }
        return account->error();
    }

    std::vector<std::unique_ptr<BufferModel>> models;
    RVXMultichannelProxyModel merged;
    RVXZeroingProxyModel zeroing;
    RVXAveragingProxyModel averaging;
    QVector<Expected> channels;
    std::unique_ptr<RowAccount> account;
};

// Counts what it is asked.
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
    void growth();
    void rollingOverInRounds_data();
    void rollingOverInRounds();
    void aShrinkingCount();
    void removalsInTheMiddle();
    void shortSourcesThatRollOver();
    void fullBuffersOfTheLibrary();
    void sourcesThatMoveEachOther();
    void anythingInAnyOrder_data();
    void anythingInAnyOrder();
    void workPerSample();
};

void tst_MultichannelRows::growth()
{
    BufferModel one(1);
    BufferModel two(1);
    RVXMultichannelProxyModel proxy;
    const ModelWatch watch(&proxy);
    proxy.addSourceModel(&one, 1);
    proxy.addSourceModel(&two, 1);
    ModelLog log(&proxy);
    one.append(1, 1);
    QCOMPARE(log.take(), QString("insert 1-1?, insert 1-1!"));
    two.append(1, 1);
    QCOMPARE(log.take(), QString("changed (1,2)-(1,2)"));
    two.append({{2, {2}}, {3, {3}}});
    QCOMPARE(log.take(), QString("insert 2-3?, insert 2-3!"));
    one.append({{2, {2}}, {3, {3}}, {4, {4}}});
    QCOMPARE(log.take(),
             QString("insert 4-4?, insert 4-4!, changed (2,0)-(3,0), changed (2,1)-(3,1)"));
    QCOMPARE(watch.complaints(), QString());
}

void tst_MultichannelRows::rollingOverInRounds_data()
{
    QTest::addColumn<int>("rollOver");
    QTest::newRow("nested") << int(BufferModel::InsertAroundRemove);
    QTest::newRow("one after the other") << int(BufferModel::RemoveThenInsert);
}

void tst_MultichannelRows::rollingOverInRounds()
{
    QFETCH(int, rollOver);
    Scene scene;
    BufferModel *const one = scene.addSource(1, 3, 1);
    BufferModel *const two = scene.addSource(2, 3, 2);
    one->rollOver = two->rollOver = BufferModel::RollOver(rollOver);
    for (int i = 1; i <= 3; ++i) {
        scene.append(one, {{double(i), {1.0 * i}}});
        scene.append(two, {{double(i), {0.0, 2.0 * i}}});
    }
    const ModelWatch watch(&scene.merged);
    ModelLog log(&scene.merged);
    for (int i = 4; i <= 20; ++i) {
        scene.append(one, {{double(i), {1.0 * i}}});
        const QString led = "remove 1-1?, remove 1-1!, insert 3-3?, insert 3-3!";
        const QString thenTold = rollOver == BufferModel::InsertAroundRemove
            ? QString()
            : QString(", changed (3,0)-(3,0), changed (3,1)-(3,1)");
        QCOMPARE(log.take(), led + thenTold);
        QCOMPARE(scene.difference(), QString());
        scene.append(two, {{double(i), {0.0, 2.0 * i}}});
        const QString followed = rollOver == BufferModel::InsertAroundRemove
            ? QString("changed (3,2)-(3,2)")
            : QString("changed (3,2)-(3,2), changed (3,2)-(3,2)");
        QCOMPARE(log.take(), followed);
        QCOMPARE(scene.difference(), QString());
    }
    QCOMPARE(watch.complaints(), QString());
}

void tst_MultichannelRows::aShrinkingCount()
{
    Scene scene;
    BufferModel *const one = scene.addSource(1, 9, 1);
    for (int i = 1; i <= 4; ++i)
        scene.append(one, {{double(i), {1.0 * i}}});
    ModelLog log(&scene.merged);
    one->dropOldest(2);
    scene.dropped(one, 2);
    QCOMPARE(log.take(), QString("remove 1-2?, remove 1-2!"));
    QCOMPARE(scene.difference(), QString());

    BufferModel *const two = scene.addSource(1, 9, 1);
    scene.append(two, {{5, {50}}, {6, {60}}});
    log.take();
    one->dropOldest(1);
    scene.dropped(one, 1);
    QCOMPARE(log.take(), QString("remove 1-1?, remove 1-1!, insert 2-2?, insert 2-2!"));
    QCOMPARE(scene.difference(), QString());
    two->dropOldest(1);
    scene.dropped(two, 1);
    QCOMPARE(log.take(), QString("remove 2-2?, remove 2-2!"));
    QCOMPARE(scene.difference(), QString());
}

void tst_MultichannelRows::removalsInTheMiddle()
{
    Scene scene;
    BufferModel *const one = scene.addSource(1, 9, 1);
    BufferModel *const two = scene.addSource(1, 9, 1);
    for (int i = 1; i <= 5; ++i)
        scene.append(one, {{double(i), {1.0 * i}}});
    for (int i = 1; i <= 2; ++i)
        scene.append(two, {{double(i), {2.0 * i}}});
    ModelLog log(&scene.merged);
    one->remove(2, 3);
    scene.changed(one, 2);
    QCOMPARE(log.take(),
             QString("remove 2-3?, remove 2-3!, changed (2,0)-(3,0), changed (2,1)-(3,1)"));
    QCOMPARE(scene.difference(), QString());
    one->remove(2, 3);
    scene.changed(one, 2);
    QCOMPARE(log.take(), QString("remove 3-3?, remove 3-3!, changed (2,1)-(2,1)"));
    QCOMPARE(scene.difference(), QString());
    one->insert(1, {0, {7}});
    scene.changed(one, 1);
    QCOMPARE(log.take(), QString("changed (1,0)-(2,0), changed (1,1)-(2,1)"));
    QCOMPARE(scene.difference(), QString());
}

void tst_MultichannelRows::shortSourcesThatRollOver()
{
    Scene scene;
    BufferModel *const fast = scene.addSource(1, 8, 1);
    BufferModel *const brief = scene.addSource(1, 3, 1);
    for (int i = 1; i <= 200; ++i) {
        scene.append(fast, {{double(i), {1.0 * i}}});
        QCOMPARE(scene.difference(), QString());
        if (i % 3 == 0) {
            scene.append(brief, {{double(i), {2.0 * i}}});
            QCOMPARE(scene.difference(), QString());
        }
    }
}

void tst_MultichannelRows::fullBuffersOfTheLibrary()
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
    for (int n = 1; n <= capacity + 50; ++n) {
        for (int i = 0; i < 3; ++i)
            tick(i, n);
    }
    compare();
    // One runs ahead, one catches up, one is told of in batches.
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

void tst_MultichannelRows::sourcesThatMoveEachOther()
{
    // Each sample of one brings a sample of the other in the middle of its announcement, and once a reset.
    BufferModel one(1, 4);
    BufferModel two(1, 4);
    RVXMultichannelProxyModel proxy;
    proxy.addSourceModel(&one, 1);
    proxy.addSourceModel(&two, 1);
    RVXAveragingProxyModel onTop;
    onTop.setSourceModel(&proxy);
    const RowAccount account(&proxy);
    int ticks = 0;
    const auto join = [&] {
        if (++ticks == 9)
            two.Clear();
        two.append(ticks, 10.0 * ticks);
    };
    connect(&one, &QAbstractItemModel::rowsAboutToBeInserted, &two, join);
    connect(&one, &QAbstractItemModel::rowsRemoved, &two, join);
    for (int i = 1; i <= 12; ++i) {
        one.append(i, i);
        QCOMPARE(account.error(), QString());
        QCOMPARE(rowsText(onTop), rowsText(proxy));
        QCOMPARE(proxy.rowCount(), std::max(one.rowCount(), two.rowCount()));
    }
}

void tst_MultichannelRows::anythingInAnyOrder_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 6; ++seed)
        QTest::addRow("seed %d", seed) << seed;
}

void tst_MultichannelRows::anythingInAnyOrder()
{
    QFETCH(int, seed);
    std::mt19937 random{unsigned(seed)};
    const auto below = [&random](int limit) {
        return int(random() % unsigned(limit));
    };
    const Units::mA mA;
    const Units::A A;
    Scene scene;
    double now = 0.0;
    for (int i = 0; i < 4; ++i)
        scene.addSource(3, 2 + below(9), 1 + below(3));
    scene.add(scene.models[2].get(), 1);

    for (int act = 0; act < 3000; ++act) {
        BufferModel *const model = scene.channels[below(scene.channels.size())].model;
        const int rows = model->rowCount() - 1;
        const int what = below(100);
        const auto sample = [&] {
            now += 0.25;
            return BufferModel::Sample{now, {below(1000) / 7.0, below(1000) / 7.0, now / 3.0}};
        };
        if (what < 50) {
            QVector<BufferModel::Sample> samples;
            for (int i = 1 + below(what < 40 ? 1 : 3); i > 0; --i)
                samples << sample();
            if (samples.size() <= model->MaxBufferSize())
                scene.append(model, samples);
        } else if (what < 60 && rows > 0) {
            const int count = 1 + below(rows);
            model->dropOldest(count);
            scene.dropped(model, count);
        } else if (what < 75 && rows > 0) {
            const int row = 1 + below(rows);
            // The channels of a model are told of each of its changes, whichever column they show.
            model->change(row, 1 + below(3), below(1000) / 7.0);
            scene.changed(model, row);
        } else if (what < 79 && rows > 2) {
            const int first = 2 + below(rows - 1);
            model->remove(first, first + below(rows - first + 1));
            scene.changed(model, first);
        } else if (what < 82 && rows > 0 && rows < model->MaxBufferSize()) {
            const int row = 1 + below(rows);
            model->insert(row, sample());
            scene.changed(model, row);
        } else if (what < 84 && rows > 0) {
            model->SetUnits(below(2) ? static_cast<const Units::MeasurementUnit *>(&mA) : &A);
            scene.changed(model, 1);
        } else if (what < 86) {
            const QModelIndex box = model->index(0, 1);
            model->setData(box, box.data(Qt::CheckStateRole).toInt() == 0, Qt::CheckStateRole);
        } else if (what < 88) {
            model->rollOver = BufferModel::RollOver(below(2));
        } else if (what < 90 && rows > 1) {
            if (below(2))
                model->moveToEnd(1 + below(rows - 1));
            else
                model->reverse();
            scene.allAnew();
        } else if (what == 90) {
            model->Clear();
            scene.allAnew();
        } else if (what == 91 && scene.channels.size() < 9) {
            scene.addSource(3, 2 + below(9), 1 + below(3));
        } else if (what == 92) {
            const int position = below(scene.channels.size());
            if (scene.channels[position].model != scene.channels.first().model)
                scene.remove(position);
        }
        const QString difference = scene.difference();
        if (!difference.isEmpty())
            QFAIL(qPrintable(QString("after act %1 (%2): %3").arg(act).arg(what).arg(difference)));
    }
}

void tst_MultichannelRows::workPerSample()
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

CORVALE_QT_TEST_MAIN(tst_MultichannelRows)
#include "tst_MultichannelRows.moc"
