// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/BufferModel.h"
#include "tests/support/ModelLog.h"
#include "tests/support/ModelText.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"

#include <limits>

using namespace Corvale_Qt;

class tst_RVXZeroingProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void zerosApplyToAllRows();
    void resetsOfTheSource();
    void channelsComeAndGo_data();
    void channelsComeAndGo();
    void anotherUnit();
    void unitsOfTheirOwn();
    void zerosAreTakenFromFiniteReadings();
    void cellsThatHoldNothing();
    void nothingToTakeAZeroFrom();
    void rolesAndTexts();
    void filesHoldWhatWasMeasured();
};

void tst_RVXZeroingProxyModel::zerosApplyToAllRows()
{
    BufferModel source(2);
    RVXZeroingProxyModel proxy;
    proxy.setSourceModel(&source);
    const ModelWatch watch(&proxy);
    source.append(1, 4);
    source.append(2, 6);
    ModelLog log(&proxy);
    proxy.zeroNow();
    QCOMPARE(log.take(), QString("reset?, reset!"));
    QCOMPARE(rowsText(proxy), QString("1: -2 -2; 2: 0 0"));
    source.append(3, 9);
    QCOMPARE(rowsText(proxy), QString("1: -2 -2; 2: 0 0; 3: 3 3"));
    proxy.zeroNow();
    QCOMPARE(rowsText(proxy), QString("1: -5 -5; 2: -3 -3; 3: 0 0"));
    QCOMPARE(proxy.doubleData(0, 2), 2.0);
    log.take();
    proxy.zeroClear();
    QCOMPARE(log.take(), QString("reset?, reset!"));
    QCOMPARE(rowsText(proxy), rowsText(source));
    QCOMPARE(watch.complaints(), QString());
}

void tst_RVXZeroingProxyModel::resetsOfTheSource()
{
    BufferModel source(1);
    source.append(1, 4);
    RVXZeroingProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.zeroNow();
    source.Clear();
    source.append(2, 10);
    QCOMPARE(rowsText(proxy), QString("2: 6"));

    BufferModel asMany(1);
    asMany.append(3, 5);
    proxy.setSourceModel(&asMany);
    QCOMPARE(rowsText(proxy), QString("3: 1"));
    BufferModel more(2);
    more.append(3, 5);
    proxy.setSourceModel(&more);
    QCOMPARE(rowsText(proxy), QString("3: 5 6"));
}

void tst_RVXZeroingProxyModel::channelsComeAndGo_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("rows");
    const auto row = [](const char *name, const char *script, const char *rows) {
        QTest::newRow(name) << QString(script) << QString(rows);
    };
    row("one is appended, without a zero", "append-channel 7", "1: 0 0 7");
    row("the appended one is removed",
        "append-channel 7; append-channel 8; remove-channel 3",
        "1: 0 0 8");
    row("one is appended, and samples are cleared",
        "append-channel 7; clear; append 2 9",
        "2: 5 5 11");
    row("one is inserted in front", "prepend-channel 1", "1: 1 4 5, ended");
    row("the first is removed", "remove-channel 1", "1: 5, ended");
    row("they change places", "move-channel", "1: 5 4, ended");
    row("one is appended and one is inserted in front",
        "append-channel 7; prepend-channel 1",
        "1: 1 4 5 7, ended");
}

//! A change that ends the zeros changes every number, so a reset follows the change.
void tst_RVXZeroingProxyModel::channelsComeAndGo()
{
    QFETCH(QString, script);
    QFETCH(QString, rows);
    BufferModel other(2), source(2);
    source.append(1, 4);
    RVXZeroingProxyModel proxy;
    proxy.setSourceModel(&other); // whose later changes must not count
    proxy.setSourceModel(&source);
    const ModelWatch watch(&proxy);
    proxy.zeroNow();
    QString atLastReset;
    connect(&proxy, &QAbstractItemModel::modelReset, this, [&] {
        atLastReset = proxy.isZeroed() ? QString() : rowsText(proxy) + ", ended";
    });
    other.insertChannelInFront(1);
    QVERIFY(proxy.isZeroed());
    source.act(script);
    QCOMPARE(rowsText(proxy) + (proxy.isZeroed() ? "" : ", ended"), rows);
    QCOMPARE(atLastReset, proxy.isZeroed() ? QString() : rows);
    QCOMPARE(watch.complaints(), QString());

    proxy.zeroNow(); // now all of them have a zero
    QVERIFY(proxy.isZeroed());
    for (int column = 1; column < proxy.columnCount(); ++column)
        QCOMPARE(proxy.doubleData(proxy.rowCount() - 1, column), 0.0);
}

void tst_RVXZeroingProxyModel::anotherUnit()
{
    const Units::nA nA;
    const Units::pA pA;
    BufferModel source(1);
    source.SetUnits(&nA);
    source.append(1, 4e-9);
    RVXZeroingProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.zeroNow();
    source.append(2, 5e-9);
    QVERIFY(qFuzzyCompare(proxy.doubleData(2, 1), 1.0));
    source.SetUnits(&pA);
    QVERIFY(qFuzzyCompare(proxy.doubleData(2, 1), 1000.0));
    QVERIFY(qAbs(proxy.doubleData(1, 1)) < 1e-9);
    source.SetUnits(nullptr);
    QVERIFY(!proxy.units());
}

void tst_RVXZeroingProxyModel::unitsOfTheirOwn()
{
    const Units::nA nA;
    const Units::pA pA;
    const Units::mV mV;
    BufferModel source(2);
    source.channelUnits[2] = &mV;
    source.SetUnits(&nA);
    source.append({{1, {4e-9, 0.25}}});
    source.append({{2, {5e-9, 0.75}}});
    RVXAveragingProxyModel averaging;
    averaging.setSourceModel(&source);
    RVXZeroingProxyModel proxy;
    proxy.setSourceModel(&averaging);
    proxy.zeroNow();
    QCOMPARE(averaging.index(1, 2).data(Qt::ToolTipRole).toString(), QString("2.500e+02 mV"));
    QCOMPARE(proxy.index(1, 1).data(Qt::ToolTipRole).toString(), QString("-1.0000 nA"));
    QCOMPARE(proxy.index(1, 2).data(Qt::ToolTipRole).toString(), QString("-5.000e+02 mV"));
    // The zero of a channel follows the unit of the channel only.
    source.SetUnits(&pA);
    QCOMPARE(proxy.index(1, 1).data(Qt::ToolTipRole).toString(), QString("-1000.0000 pA"));
    QCOMPARE(proxy.index(1, 2).data(Qt::ToolTipRole).toString(), QString("-5.000e+02 mV"));

    // So does the zero of a channel that was appended.
    source.channelUnits.clear();
    proxy.setSourceModel(&source);
    source.channelUnits[3] = &mV;
    source.appendChannel(0.75);
    proxy.zeroNow();
    QCOMPARE(proxy.index(1, 3).data(Qt::ToolTipRole).toString(), QString("0.000e+00 mV"));
}

void tst_RVXZeroingProxyModel::zerosAreTakenFromFiniteReadings()
{
    const double gap = std::numeric_limits<double>::quiet_NaN();
    BufferModel source(3);
    source.append({{1, {1, 2, gap}}});
    source.append({{2, {3, gap, gap}}});
    RVXZeroingProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.zeroNow();
    source.append({{3, {4, 5, 6}}});
    QCOMPARE(rowsText(proxy), QString("1: -2 0 nan; 2: 0 nan nan; 3: 1 3 6"));
}

void tst_RVXZeroingProxyModel::cellsThatHoldNothing()
{
    BufferModel source(1);
    RVXZeroingProxyModel proxy;
    proxy.setSourceModel(&source);
    source.append(1, 4);
    source.append(2, 4);
    proxy.zeroNow();
    const QModelIndex gone = proxy.index(2, 1);
    QCOMPARE(gone.data().toString(), QString("0.000e+00"));
    source.dropOldest(1);
    for (int role : {int(Qt::DisplayRole),
                     int(Qt::EditRole),
                     int(Qt::ToolTipRole),
                     int(RVXAbstractPlotDataModel::NumericValueRole)})
        QVERIFY(!proxy.data(gone, role).isValid());
    QCOMPARE(proxy.doubleData(2, 1), 0.0);
}

void tst_RVXZeroingProxyModel::nothingToTakeAZeroFrom()
{
    RVXZeroingProxyModel proxy;
    ModelLog log(&proxy);
    proxy.zeroNow();
    QCOMPARE(log.take(), QString());
    RVXSingleChannelDataModel empty;
    proxy.setSourceModel(&empty);
    proxy.zeroNow();
    empty.AddData(1, 5);
    QCOMPARE(rowsText(proxy), QString("1: 5"));
}

void tst_RVXZeroingProxyModel::rolesAndTexts()
{
    const Units::mA mA;
    BufferModel source(1);
    source.SetUnits(&mA);
    source.append(1, 0.25);
    source.append(2, 0.75);
    RVXZeroingProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.zeroNow();
    const QModelIndex sample = proxy.index(1, 1);
    QCOMPARE(sample.data().toString(), QString("-5.000e+02"));
    QCOMPARE(sample.data(Qt::EditRole).toString(), QString("-5.000e+02"));
    QCOMPARE(sample.data(Qt::ToolTipRole).toString(), QString("-5.000e+02 mA"));
    QCOMPARE(sample.data(RVXAbstractPlotDataModel::NumericValueRole).toDouble(), -500.0);
    QCOMPARE(sample.data(Qt::UserRole), QVariant("of the device"));
    for (const QModelIndex &index : {proxy.index(0, 1), proxy.index(1, 0)}) {
        for (int role = 0; role <= Qt::UserRole; ++role)
            QCOMPARE(index.data(role), proxy.mapToSource(index).data(role));
    }
    proxy.zeroClear();
    for (int role = 0; role <= Qt::UserRole; ++role)
        QCOMPARE(sample.data(role), source.index(1, 1).data(role));
}

void tst_RVXZeroingProxyModel::filesHoldWhatWasMeasured()
{
    BufferModel source(1);
    RVXZeroingProxyModel proxy;
    proxy.setSourceModel(&source);
    QVERIFY(proxy.SaveDataToFile("accepted"));
    QVERIFY(!proxy.SaveDataToFile("refused"));
}

CORVALE_QT_TEST_MAIN(tst_RVXZeroingProxyModel)
#include "tst_RVXZeroingProxyModel.moc"
