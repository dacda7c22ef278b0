// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/BufferModel.h"
#include "tests/support/ModelLog.h"
#include "tests/support/ModelText.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"

#include <cmath>
#include <stdexcept>

using namespace Corvale_Qt;

namespace {

/*! The recurrence as it is defined, in one loop: \a raw from index \a from on, into \a averages. */
void average(const QVector<double> &raw, int length, int from, QVector<double> &averages)
{
    const double alpha = 1.0 / length;
    averages.resize(raw.size());
    for (int i = from; i < raw.size(); ++i) {
        averages[i] = raw[i];
        if (i > 0 && length > 1)
            averages[i] = (1.0 - alpha) * averages[i - 1] + alpha * averages[i];
    }
}

template<typename Model>
QVector<double> column(const Model &model, int number)
{
    QVector<double> values;
    for (int row = 1; row < model.rowCount(); ++row)
        values.append(model.doubleData(row, number));
    return values;
}

// Neither short nor round in binary.
double awkward(int i)
{
    return std::sin(i * 0.7) * 1e-9 + i * 1e-12;
}

} // namespace

class tst_RVXAveragingProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void threeSamples();
    void lengthsThatAreNone();
    void whatTheSourceDropsIsNotForgotten();
    void headerAndTimePassThrough();
    void textsAreInTheUnit();
    void chunksEqualTheRecurrence_data();
    void chunksEqualTheRecurrence();
    void aHostsNumbersAreTheOnesAveraged();
    void aFullBufferThatRollsOver();
    void clearIsOneReset();
    void channelsComeAndGo();
    void onlyATimeColumn();
    void moreRowsThanTheBufferWasSaidToHold();
};

void tst_RVXAveragingProxyModel::threeSamples()
{
    BufferModel source(1);
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    const ModelWatch watch(&proxy);
    source.append(1, 4);
    source.append(2, 8);
    QCOMPARE(rowsText(proxy), QString("1: 4; 2: 8"));
    proxy.setAveraging(4);
    source.append(3, 8);
    QCOMPARE(rowsText(proxy), QString("1: 4; 2: 5; 3: 5.75"));
    source.change(2, 1, 4);
    QCOMPARE(rowsText(proxy), QString("1: 4; 2: 4; 3: 5"));
    source.change(1, 1, 8);
    QCOMPARE(rowsText(proxy), QString("1: 8; 2: 7; 3: 7.25"));
    QCOMPARE(watch.complaints(), QString());
}

void tst_RVXAveragingProxyModel::lengthsThatAreNone()
{
    BufferModel source(1);
    source.append(1, 4);
    source.append(2, 8);
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    ModelLog log(&proxy);
    proxy.setAveraging(0);
    proxy.setAveraging(-3);
    QCOMPARE(log.take(), QString());
    QCOMPARE(rowsText(proxy), QString("1: 4; 2: 8"));
    proxy.setAveraging(2);
    QCOMPARE(log.take(), QString("reset?, reset!"));
}

void tst_RVXAveragingProxyModel::whatTheSourceDropsIsNotForgotten()
{
    BufferModel source(2);
    for (const double value : {4, 8, 8, 16})
        source.append(value, value);
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.setAveraging(4);
    QCOMPARE(rowsText(proxy), QString("4: 4 5; 8: 5 6; 8: 5.75 6.75; 16: 8.3125 9.3125"));
    source.dropOldest(2);
    QCOMPARE(rowsText(proxy), QString("8: 5.75 6.75; 16: 8.3125 9.3125"));
    // A cell of the header row renews its channel from the first row that there is.
    source.setData(source.index(0, 1), false, Qt::CheckStateRole);
    QCOMPARE(rowsText(proxy), QString("8: 8 6.75; 16: 10 9.3125"));
    source.dropOldest(2);
    source.append(1, 3);
    QCOMPARE(rowsText(proxy), QString("1: 3 4"));
}

void tst_RVXAveragingProxyModel::headerAndTimePassThrough()
{
    BufferModel source(2);
    source.append(1, 4);
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    for (const QModelIndex &index : {proxy.index(0, 0), proxy.index(0, 2), proxy.index(1, 0)}) {
        QCOMPARE(proxy.doubleData(index.row(), index.column()),
                 source.doubleData(index.row(), index.column()));
        for (int role = 0; role <= Qt::UserRole; ++role)
            QCOMPARE(index.data(role), proxy.mapToSource(index).data(role));
    }
    const QModelIndex sample = proxy.index(1, 1);
    QCOMPARE(sample.data(Qt::UserRole), QVariant("of the device"));
    QCOMPARE(sample.data(Qt::BackgroundRole), source.index(1, 1).data(Qt::BackgroundRole));
    QCOMPARE(proxy.doubleData(2, 1), 0.0);
    QCOMPARE(proxy.doubleData(-1, 1), 0.0);
    QCOMPARE(proxy.doubleData(1, 9), 0.0);
}

void tst_RVXAveragingProxyModel::textsAreInTheUnit()
{
    const Units::nA nA;
    BufferModel source(1);
    source.append(1, 4e-9);
    source.append(2, 8e-9);
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.setAveraging(2);
    source.SetUnits(&nA);
    const QModelIndex sample = proxy.index(2, 1);
    QCOMPARE(sample.data().toString(), QString("6.0000"));
    QCOMPARE(sample.data(Qt::EditRole).toString(), QString("6.0000"));
    QCOMPARE(sample.data(Qt::ToolTipRole).toString(), QString("6.0000 nA"));
    QCOMPARE(sample.data(RVXAbstractPlotDataModel::NumericValueRole).toDouble(),
             proxy.doubleData(2, 1));
    source.SetUnits(nullptr);
    QCOMPARE(proxy.units(), nullptr);

    source.dropOldest(1);
    QVERIFY_EXCEPTION_THROWN(proxy.data(sample, Qt::ToolTipRole), std::out_of_range);
}

void tst_RVXAveragingProxyModel::chunksEqualTheRecurrence_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("samples");
    QTest::addColumn<int>("length");
    QTest::newRow("one channel") << 1 << 1000 << 16;
    QTest::newRow("fewer than are read side by side") << 7 << 300 << 3;
    QTest::newRow("just as many") << 8 << 257 << 3;
    QTest::newRow("one more") << 9 << 256 << 7;
    QTest::newRow("many, long") << 20 << 1500 << 1000;
    QTest::newRow("no averaging") << 9 << 600 << 1;
}

void tst_RVXAveragingProxyModel::chunksEqualTheRecurrence()
{
    QFETCH(int, channels);
    QFETCH(int, samples);
    QFETCH(int, length);
    // The buffers have wrapped around in the middle when they are computed anew.
    BufferModel source(channels, samples);
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    for (int i = 0; i < samples + samples / 2; ++i)
        source.append(i, awkward(i));
    proxy.setAveraging(length);
    for (int c = 1; c <= channels; ++c) {
        QVector<double> expected;
        average(column(source, c), length, 0, expected);
        QCOMPARE(column(proxy, c), expected);
    }
    // And continued from a row in between, over the channels of one change.
    Q_EMIT source.dataChanged(source.index(samples / 2, 1), source.index(samples / 2, channels));
    for (int c = 1; c <= channels; ++c) {
        QVector<double> expected;
        average(column(source, c), length, 0, expected);
        QCOMPARE(column(proxy, c), expected);
    }
}

void tst_RVXAveragingProxyModel::aHostsNumbersAreTheOnesAveraged()
{
    class Doubled : public RVXSingleChannelDataModel
    {
        double doubleData(int row, int column) const override
        {
            const double value = RVXSingleChannelDataModel::doubleData(row, column);
            return row > 0 && column > 0 ? 2.0 * value : value;
        }
    };
    Doubled source;
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.setAveraging(4);
    source.AddData(1, 2);
    source.AddData(2, 4);
    QCOMPARE(rowsText(proxy), QString("1: 4; 2: 5"));
}

void tst_RVXAveragingProxyModel::aFullBufferThatRollsOver()
{
    const int capacity = int(RVXAbstractDeviceDataModel::maxBufferSize);
    RVXSingleChannelDataModel source;
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.setAveraging(50);
    QVector<double> raw;
    for (int i = 0; i < capacity + 700; ++i) {
        raw.append(awkward(i));
        source.AddData(i + 1, raw.last());
    }
    QVector<double> expected;
    average(raw, 50, 0, expected);
    QCOMPARE(proxy.rowCount(), capacity + 1);
    QCOMPARE(column(proxy, 1), expected.mid(700));

    source.setAutoUpdate(false);
    for (int i = capacity + 700; i < capacity + 900; ++i) {
        raw.append(awkward(i));
        source.AddData(i + 1, raw.last());
    }
    average(raw, 50, capacity + 700, expected);
    QCOMPARE(column(proxy, 1), expected.mid(900, capacity - 200));
    source.UpdateView();
    QCOMPARE(column(proxy, 1), expected.mid(900));
}

void tst_RVXAveragingProxyModel::clearIsOneReset()
{
    BufferModel source(1);
    source.append(1, 4);
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    RVXAveragingProxyModel onTop;
    onTop.setSourceModel(&proxy);
    ModelLog log(&onTop);
    onTop.Clear();
    QCOMPARE(log.take(), QString("reset?, reset!"));
    QCOMPARE(onTop.rowCount(), 1);
    source.append(2, 8);
    QCOMPARE(log.take(), QString("insert 1-1?, insert 1-1!"));
    QCOMPARE(rowsText(onTop), QString("2: 8"));
}

void tst_RVXAveragingProxyModel::channelsComeAndGo()
{
    BufferModel source(2);
    for (const double value : {4, 8})
        source.append(value, value);
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.setAveraging(4);
    QString seen;
    connect(&proxy, &QAbstractItemModel::columnsInserted, this, [&] {
        seen = rowsText(proxy);
    });
    source.insertChannelInFront(1);
    QCOMPARE(seen, QString("4: 1 4 5; 8: 1 5 6"));
    source.removeFirstChannel();
    source.removeFirstChannel();
    QCOMPARE(rowsText(proxy), QString("4: 5; 8: 6"));
    source.reverse();
    QCOMPARE(rowsText(proxy), QString("8: 9; 4: 8"));
    source.moveToEnd(1);
    QCOMPARE(rowsText(proxy), QString("4: 5; 8: 6"));
}

void tst_RVXAveragingProxyModel::onlyATimeColumn()
{
    BufferModel source(0);
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.setAveraging(4);
    source.append(7, 1);
    QCOMPARE(proxy.columnCount(), 1);
    QCOMPARE(proxy.doubleData(1, 0), 7.0);
    QCOMPARE(proxy.doubleData(1, 1), 0.0);
}

void tst_RVXAveragingProxyModel::moreRowsThanTheBufferWasSaidToHold()
{
    class Modest : public BufferModel
    {
    public:
        using BufferModel::BufferModel;
        int MaxBufferSize() const override { return -1; }
    };
    Modest source(1, 50);
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    for (int i = 0; i < 70; ++i)
        source.append(i, i);
    QCOMPARE(rowsText(proxy), rowsText(source));
}

CORVALE_QT_TEST_MAIN(tst_RVXAveragingProxyModel)
#include "tst_RVXAveragingProxyModel.moc"
