// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/BufferModel.h"
#include "tests/support/ModelLog.h"
#include "tests/support/ModelText.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TableMirror.h"
#include "tests/support/TestMain.h"

#include <cmath>
#include <cstring>
#include <limits>

using namespace Corvale_Qt;

namespace {

constexpr double gap = std::numeric_limits<double>::quiet_NaN();

/*! Computes the averages of \a raw by their definition into \a averages, from index \a from on. Readings that are not
    finite stay and are skipped. */
void average(const QVector<double> &raw, int length, int from, QVector<double> &averages)
{
    const double alpha = 1.0 / length;
    averages.resize(raw.size());
    for (int i = from; i < raw.size(); ++i) {
        averages[i] = raw[i];
        int before = i - 1;
        while (before >= 0 && !std::isfinite(averages[before]))
            --before;
        if (before >= 0 && length > 1 && std::isfinite(raw[i]))
            averages[i] = (1.0 - alpha) * averages[before] + alpha * raw[i];
    }
}

//! Returns the first number whose bits differ, or an empty text.
QString difference(const QVector<double> &actual, const QVector<double> &expected)
{
    if (actual.size() != expected.size())
        return QStringLiteral("%1 numbers, not %2").arg(actual.size()).arg(expected.size());
    for (int i = 0; i < actual.size(); ++i) {
        const bool bothNaN = std::isnan(actual[i]) && std::isnan(expected[i]);
        if (!bothNaN && std::memcmp(&actual[i], &expected[i], sizeof(double)) != 0)
            return QStringLiteral("%1: %2, not %3").arg(i).arg(actual[i]).arg(expected[i]);
    }
    return QString();
}

template<typename Model>
QVector<double> column(const Model &model, int number)
{
    QVector<double> values;
    for (int row = 1; row < model.rowCount(); ++row)
        values.append(model.doubleData(row, number));
    return values;
}

// Returns numbers that have no short binary fraction.
double awkward(int i)
{
    return std::sin(i * 0.7) * 1e-9 + i * 1e-12;
}

} // namespace

class tst_RVXAveragingProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lengthsThatAreNone();
    void rowsThatChange_data();
    void rowsThatChange();
    void readingsThatAreNotFinite_data();
    void readingsThatAreNotFinite();
    void aRowThatIsNotAnnouncedYet();
    void aSourceOfWhichLittleIsLeft();
    void headerAndTimePassThrough();
    void textsAreInTheUnit();
    void chunksEqualTheRecurrence_data();
    void chunksEqualTheRecurrence();
    void memoryOfLibraryModels_data();
    void memoryOfLibraryModels();
    void aFullBufferThatRollsOver();
    void clearIsOneReset();
    void onlyATimeColumn();
    void moreRowsThanTheBufferWasSaidToHold();
};

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
    QCOMPARE(proxy.averaging(), 1);
    QCOMPARE(rowsText(proxy), QString("1: 4; 2: 8"));
    proxy.setAveraging(2);
    QCOMPARE(log.take(), QString("reset?, reset!"));
}

void tst_RVXAveragingProxyModel::rowsThatChange_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("announced");
    QTest::addColumn<QString>("rows");
    const auto row =
        [](const char *name, const char *script, const char *announced, const char *rows) {
            QTest::newRow(name) << QString(script) << QString(announced) << QString(rows);
        };
    row("a sample", "change 2 1 17", "changed (2,1)-(3,1)", "8: 5 6; 8: 8 6.75; 16: 10 9.3125");
    row("the newest sample",
        "change 3 2 18",
        "changed (3,2)-(3,2)",
        "8: 5 6; 8: 5.75 6.75; 16: 8.3125 9.5625");
    row("the header row and a sample",
        "signal 0 0 2 2",
        "changed (0,0)-(3,2)",
        "8: 8 9; 8: 8 9; 16: 10 11");
    row("the header row",
        "signal 0 0 0 2",
        "changed (0,0)-(0,2)",
        "8: 5 6; 8: 5.75 6.75; 16: 8.3125 9.3125");
    row("a time",
        "signal 2 0 2 0",
        "changed (2,0)-(2,0)",
        "8: 5 6; 8: 5.75 6.75; 16: 8.3125 9.3125");
    row("a sample is removed",
        "remove 2 2",
        "remove 2-2?, remove 2-2!, changed (2,1)-(2,2)",
        "8: 5 6; 16: 7.75 8.75");
    row("the newest sample is removed",
        "remove 3 3; append 17 17",
        "remove 3-3?, remove 3-3!, insert 3-3?, insert 3-3!",
        "8: 5 6; 8: 5.75 6.75; 17: 8.5625 9.5625");
    row("a sample is inserted between others",
        "insert 2 9 9",
        "insert 2-2?, insert 2-2!, changed (3,1)-(4,2)",
        "8: 5 6; 9: 6 7; 8: 6.5 7.5; 16: 8.875 9.875");
    row("a sample moves",
        "move 2",
        "move 2-2?, move 2-2!, changed (1,1)-(3,2)",
        "8: 8 9; 16: 10 11; 8: 9.5 10.5");
    row("samples in another order",
        "reverse",
        "layout?, layout!",
        "16: 16 17; 8: 14 15; 8: 12.5 13.5");
    row("a channel is inserted",
        "prepend-channel 1",
        "insert column 1-1?, insert column 1-1!",
        "8: 1 5 6; 8: 1 5.75 6.75; 16: 1 8.3125 9.3125");
    row("a channel is removed",
        "remove-channel 1",
        "remove column 1-1?, remove column 1-1!",
        "8: 6; 8: 6.75; 16: 9.3125");
}

//! The oldest row has been dropped, so that only averages that are not computed again know of it.
void tst_RVXAveragingProxyModel::rowsThatChange()
{
    QFETCH(QString, script);
    QFETCH(QString, announced);
    QFETCH(QString, rows);
    BufferModel source(2);
    for (const double value : {4, 8, 8, 16})
        source.append(value, value);
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.setAveraging(4);
    source.dropOldest(1);
    const ModelWatch watch(&proxy);
    const TableMirror<RVXAveragingProxyModel> mirror(&proxy);
    ModelLog log(&proxy);
    source.act(script);
    QCOMPARE(log.take(), announced);
    QCOMPARE(rowsText(proxy), rows);
    QCOMPARE(mirror.error(), QString());
    QCOMPARE(watch.complaints(), QString());

    // Without averaging, only what the source said.
    proxy.setAveraging(1);
    QCOMPARE(rowsText(proxy), rowsText(source));
    log.take();
    source.change(1, 1, 0);
    source.remove(2, 2);
    QCOMPARE(log.take(), QString("changed (1,1)-(1,1), remove 2-2?, remove 2-2!"));
    QCOMPARE(rowsText(proxy), rowsText(source));
}

void tst_RVXAveragingProxyModel::readingsThatAreNotFinite_data()
{
    const double inf = std::numeric_limits<double>::infinity();
    QTest::addColumn<int>("capacity");
    QTest::addColumn<QVector<double>>("readings");
    QTest::addColumn<QString>("averages");
    QTest::newRow("one between others") << 9 << QVector<double>{4, gap, 8} << "4 nan 6";
    QTest::newRow("infinite") << 9 << QVector<double>{4, inf, -inf, 8} << "4 inf -inf 6";
    QTest::newRow("none is finite yet") << 9 << QVector<double>{gap, inf, 8, 4} << "nan inf 8 6";
    QTest::newRow("the last average has left")
        << 3 << QVector<double>{2, 4, gap, gap, gap, 8} << "nan nan 5.5";
    QTest::newRow("all have left, and more") << 2 << QVector<double>{4, gap, gap, gap} << "nan nan";
    QTest::newRow("none ever") << 2 << QVector<double>{gap, gap, gap, 8} << "nan 8";
}

void tst_RVXAveragingProxyModel::readingsThatAreNotFinite()
{
    QFETCH(int, capacity);
    QFETCH(QVector<double>, readings);
    QFETCH(QString, averages);
    BufferModel source(1, capacity);
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.setAveraging(2);
    const auto shown = [&proxy] {
        QStringList texts;
        for (int row = 1; row < proxy.rowCount(); ++row)
            texts << QString::number(proxy.doubleData(row, 1));
        return texts.join(' ');
    };
    for (const double reading : readings)
        source.append(0, reading);
    QCOMPARE(shown(), averages);
    // When the newest row changes, the average before it is found again, in the table or among the dropped rows.
    const int last = source.rowCount() - 1;
    source.change(last, 1, readings.last());
    QCOMPARE(shown(), averages);
    source.remove(last, last);
    source.append(0, readings.last());
    QCOMPARE(shown(), averages);
}

void tst_RVXAveragingProxyModel::aRowThatIsNotAnnouncedYet()
{
    BufferModel source(1);
    RVXAveragingProxyModel proxy;
    QVariantList answers;
    // Connected before the proxy: the source has the row and the proxy has not heard of it.
    connect(&source, &QAbstractItemModel::rowsInserted, this, [&](const QModelIndex &, int, int) {
        for (int role : {int(Qt::DisplayRole),
                         int(Qt::EditRole),
                         int(Qt::ToolTipRole),
                         int(RVXAbstractPlotDataModel::NumericValueRole)})
            answers << proxy.index(source.rowCount() - 1, 1).data(role);
    });
    proxy.setSourceModel(&source);
    source.append(1, 4);
    QCOMPARE(answers, QVariantList({QVariant(), QVariant(), QVariant(), QVariant()}));
    // A row that was dropped does not answer either.
    const QModelIndex gone = proxy.index(1, 1);
    source.dropOldest(1);
    QVERIFY(!proxy.data(gone, Qt::ToolTipRole).isValid());
}

void tst_RVXAveragingProxyModel::aSourceOfWhichLittleIsLeft()
{
    RVXAveragingProxyModel proxy;
    RVXZeroingProxyModel zeroing;
    QVector<double> numbers;
    QModelIndex cell, zeroed;
    {
        BufferModel source(1);
        // Connected before the proxies, which have not heard of the deletion yet.
        connect(&source, &QObject::destroyed, this, [&] {
            numbers << proxy.doubleData(0, 1) << zeroing.doubleData(0, 1);
            QVERIFY(!proxy.data(cell).isValid() && !proxy.data(proxy.index(1, 1)).isValid());
            QVERIFY(!zeroing.data(zeroed).isValid());
            zeroing.zeroNow();
        });
        proxy.setSourceModel(&source);
        zeroing.setSourceModel(&proxy);
        source.append(1, 4);
        zeroing.zeroNow();
        cell = proxy.index(1, 1);
        zeroed = zeroing.index(1, 1);
    }
    QCOMPARE(numbers, QVector<double>({0.0, 0.0}));
    QCOMPARE(zeroing.rowCount(), 0);
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
}

void tst_RVXAveragingProxyModel::chunksEqualTheRecurrence_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("samples");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("gaps"); // one in so many readings is not finite
    QTest::newRow("one channel") << 1 << 1000 << 16 << 0;
    QTest::newRow("fewer than are read side by side") << 7 << 300 << 3 << 0;
    QTest::newRow("just as many") << 8 << 257 << 3 << 0;
    QTest::newRow("one more") << 9 << 256 << 7 << 0;
    QTest::newRow("many, long") << 20 << 1500 << 1000 << 0;
    QTest::newRow("no averaging") << 9 << 600 << 1 << 0;
    QTest::newRow("gaps in all channels") << 9 << 700 << 5 << 3;
    QTest::newRow("few gaps") << 9 << 700 << 5 << 601;
    QTest::newRow("gaps, no averaging") << 3 << 300 << 1 << 7;
}

void tst_RVXAveragingProxyModel::chunksEqualTheRecurrence()
{
    QFETCH(int, channels);
    QFETCH(int, samples);
    QFETCH(int, length);
    QFETCH(int, gaps);
    // The buffers have wrapped around when all averages are computed again.
    BufferModel source(channels, samples);
    RVXAveragingProxyModel proxy;
    proxy.setSourceModel(&source);
    for (int i = 0; i < samples + samples / 2; ++i) {
        BufferModel::Sample sample{double(i), {}};
        for (int c = 0; c < channels; ++c)
            sample.values << (gaps > 0 && (i + 5 * c) % gaps == 0 ? gap : awkward(i + c));
        source.append({sample});
    }
    const auto compare = [&] {
        QString found;
        for (int c = 1; c <= channels; ++c) {
            QVector<double> expected;
            average(column(source, c), length, 0, expected);
            found += difference(column(proxy, c), expected);
        }
        return found;
    };
    proxy.setAveraging(length);
    QCOMPARE(compare(), QString());
    // A change of all channels continues from a row in between.
    Q_EMIT source.dataChanged(source.index(samples / 2, 1), source.index(samples / 2, channels));
    QCOMPARE(compare(), QString());
}

void tst_RVXAveragingProxyModel::memoryOfLibraryModels_data()
{
    QTest::addColumn<int>("zeros");
    QTest::newRow("in a unit") << 0;
    QTest::newRow("with a zero") << 1;
    QTest::newRow("with a zero over a zero") << 2;
}

/*! Compares averages of models that are read in memory, whose rings wrap at different rows, with averages of the
    readings before they went through any model. */
void tst_RVXAveragingProxyModel::memoryOfLibraryModels()
{
    QFETCH(int, zeros);
    constexpr int capacity = 100000;
    constexpr int length = 16;
    const Units::mA mA;
    const auto reading = [](int channel, int i) {
        return channel + (i % 1000) * 1e-3;
    };
    RVXSingleChannelDataModel models[5];
    RVXMultichannelProxyModel merged;
    for (int c = 0; c < 5; ++c) {
        models[c].SetUnits(&mA);
        for (int i = 0; i < capacity + 700 + 37 * c; ++i)
            models[c].AddData(i + 1, reading(c, i));
        merged.addSourceModel(&models[c], 1);
    }
    RVXZeroingProxyModel zeroing[2];
    zeroing[0].setSourceModel(&merged);
    zeroing[1].setSourceModel(&zeroing[0]);
    // The upper one is zeroed first, so that each of them takes the reading as it is.
    for (int i = zeros - 1; i >= 0; --i)
        zeroing[i].zeroNow();
    RVXAveragingProxyModel proxy;
    proxy.setAveraging(length);
    proxy.setSourceModel(&zeroing[1]);

    for (int c = 0; c < 5; ++c) {
        const int first = 700 + 37 * c;
        const double zero = zeros * 1e3 * reading(c, first + capacity - 1);
        double average = 1e3 * reading(c, first) - zero;
        for (int row = 1; row <= capacity; ++row) {
            const double x = 1e3 * reading(c, first + row - 1) - zero;
            average += (x - average) / length;
            if (!(std::abs(proxy.doubleData(row, c + 1) - average) < 1e-6))
                QFAIL(qPrintable(QStringLiteral("channel %1, row %2").arg(c + 1).arg(row)));
        }
    }
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
