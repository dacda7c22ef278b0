// SPDX-License-Identifier: LGPL-2.1-or-later
// tst_ProxyStack follows zeros through long histories: samples, gaps, other units, other sources and resets.
#include "tests/proxies/ProxyTest.h"

using namespace Corvale_Qt;

class tst_RVXZeroingProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void zerosApplyToAllRows()
    {
        BufferModel source(2);
        RVXZeroingProxyModel proxy;
        ModelLog log(&proxy);
        proxy.zeroNow();
        QCOMPARE(log.take(), QString());
        proxy.setSourceModel(&source);
        const ModelWatch watch(&proxy);
        source.act("append 1 4; append 2 6");
        log.take();
        proxy.zeroNow();
        QCOMPARE(log.take(), QString("reset?, reset!"));
        source.append(3, 9);
        QCOMPARE(rowsText(proxy), QString("1: -2 -2; 2: 0 0; 3: 3 3"));
        QCOMPARE(proxy.doubleData(0, 2), 2.0);
        log.take();
        proxy.zeroClear();
        QCOMPARE(log.take(), QString("reset?, reset!"));
        QCOMPARE(rowsText(proxy), rowsText(source));
        for (int role = 0; role <= Qt::UserRole; ++role)
            QCOMPARE(proxy.index(1, 1).data(role), source.index(1, 1).data(role));
    }

    void zerosWithoutReadings()
    {
        BufferModel source(3);
        RVXZeroingProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.zeroNow();
        source.append({{1, {1, 2, qQNaN()}}, {2, {3, qQNaN(), qQNaN()}}});
        QCOMPARE(rowsText(proxy), QString("1: 1 2 nan; 2: 3 nan nan"));
        proxy.zeroNow();
        source.append({{3, {4, 5, 6}}});
        QCOMPARE(rowsText(proxy), QString("1: -2 0 nan; 2: 0 nan nan; 3: 1 3 6"));
    }

    void channelsComeAndGo_data()
    {
        tableFrom(R"(
            | script | rows
            one is appended, without a zero | append-channel 7 | 1: 0 0 7
            the appended one is removed | append-channel 7; append-channel 8; remove-channel 3 | 1: 0 0 8
            one is appended, and samples are cleared | append-channel 7; clear; append 2 9 | 2: 5 5 11
            one is inserted in front | prepend-channel 1 | 1: 1 4 5, ended
            the first is removed | remove-channel 1 | 1: 5, ended
            they change places | move-channel | 1: 5 4, ended
            one is appended and one is inserted in front
                | append-channel 7; prepend-channel 1 | 1: 1 4 5 7, ended
        )");
    }
    //! A change that ends the zeros changes every number, so a reset follows the change.
    void channelsComeAndGo()
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

        proxy.zeroNow(); // now all of them have a zero
        QVERIFY(proxy.isZeroed());
        for (int column = 1; column < proxy.columnCount(); ++column)
            QCOMPARE(proxy.doubleData(proxy.rowCount() - 1, column), 0.0);
    }

    //! The zero of a channel follows the unit of the channel.
    //! A listener that hears of other channels before the proxy zeroes those that are there now; one that is told of them
    //! beforehand zeroes those that were, which ends.
    void zeroedInTheMiddleOfAChange()
    {
        using Model = QAbstractItemModel;
        for (const bool isAfter : {true, false}) {
            BufferModel source(3);
            source.append(1, 7);
            RVXZeroingProxyModel proxy;
            QAbstractItemModel *const sender = isAfter ? static_cast<Model *>(&source) : &proxy;
            for (const auto signal :
                 {isAfter ? &Model::columnsInserted : &Model::columnsAboutToBeInserted,
                  isAfter ? &Model::columnsRemoved : &Model::columnsAboutToBeRemoved})
                connect(sender, signal, &proxy, &RVXZeroingProxyModel::zeroNow);
            proxy.setSourceModel(&source);
            source.insertChannelInFront(4);
            QCOMPARE(rowsText(proxy), QString(isAfter ? "1: 0 0 0 0" : "1: 4 7 8 9"));
            source.removeChannel(4);
            QCOMPARE(rowsText(proxy), QString(isAfter ? "1: 0 0 0" : "1: 4 7 8"));
        }
    }

    void textsAreInTheUnit()
    {
        const Units::nA nA;
        const Units::pA pA;
        const Units::mV mV;
        BufferModel source(2);
        source.channelUnits[2] = &mV;
        source.SetUnits(&nA);
        source.append({{1, {4e-9, 0.25}}, {2, {5e-9, 0.75}}});
        RVXAveragingProxyModel averaging;
        averaging.setSourceModel(&source);
        RVXZeroingProxyModel proxy;
        proxy.setSourceModel(&averaging);
        proxy.zeroNow();
        QCOMPARE(averaging.index(1, 2).data(Qt::ToolTipRole).toString(), QString("2.500e+02 mV"));
        const QModelIndex sample = proxy.index(1, 2);
        const QString inMillivolts("-5.000e+02 / -5.000e+02 / -5.000e+02 mV / -500");
        QCOMPARE(readingText(sample), inMillivolts);
        QCOMPARE(proxy.index(1, 1).data(Qt::ToolTipRole).toString(), QString("-1.0000 nA"));
        source.SetUnits(&pA);
        QCOMPARE(readingText(sample), inMillivolts);
        QCOMPARE(proxy.index(1, 1).data(Qt::ToolTipRole).toString(), QString("-1000.0000 pA"));
        QCOMPARE(sample.data(Qt::UserRole), QVariant("of the device"));
        for (const QModelIndex &index : {proxy.index(0, 1), proxy.index(1, 0)}) {
            for (int role = 0; role <= Qt::UserRole; ++role)
                QCOMPARE(index.data(role), averaging.index(index.row(), index.column()).data(role));
        }

        // So does the zero of a channel that was appended.
        source.channelUnits.clear();
        proxy.setSourceModel(&source);
        source.channelUnits[3] = &mV;
        source.appendChannel(0.75);
        proxy.zeroNow();
        QCOMPARE(proxy.index(1, 3).data(Qt::ToolTipRole).toString(), QString("0.000e+00 mV"));
        source.SetUnits(nullptr);
        QVERIFY(!proxy.units());
    }

    void cellsThatHoldNothing()
    {
        BufferModel source(1);
        RVXZeroingProxyModel proxy;
        proxy.setSourceModel(&source);
        source.act("append 1 4; append 2 4");
        proxy.zeroNow();
        const QModelIndex gone = proxy.index(2, 1);
        QCOMPARE(gone.data().toString(), QString("0.000e+00"));
        source.dropOldest(1);
        QCOMPARE(readingText(gone), QString("/  /  /"));
        QCOMPARE(proxy.doubleData(2, 1), 0.0);
    }

    //! The zeros of one proxy can be those of another, whatever the unit of display is.
    void zerosAreHandedOver()
    {
        const Units::nA nA;
        const Units::pA pA;
        BufferModel source(2);
        source.SetUnits(&nA);
        RVXZeroingProxyModel first, second;
        first.setSourceModel(&source);
        second.setSourceModel(&source);
        QVERIFY(first.zeros().isEmpty());
        source.append({{1, {4e-9, 5e-9}}});
        first.zeroNow();
        QCOMPARE(first.zeros(), QVector<double>({4e-9, 5e-9}));
        second.setZeros(first.zeros());
        source.SetUnits(&pA);
        source.append({{2, {6e-9, 5e-9}}});
        QCOMPARE(second.doubleData(2, 1), first.doubleData(2, 1));
        QVERIFY(second.isZeroed());
        second.setZeros({1e-9, 1e-9, 1e-9}); // one too many
        QCOMPARE(second.zeros().size(), 2);
        second.setZeros({1e-9}); // the other channel has none
        QCOMPARE(second.doubleData(2, 2), source.doubleData(2, 2));
        second.setZeros({});
        QVERIFY(!second.isZeroed());
        QCOMPARE(second.doubleData(2, 1), source.doubleData(2, 1));
    }

    void filesHoldWhatWasMeasured()
    {
        BufferModel source(1);
        RVXZeroingProxyModel proxy;
        proxy.setSourceModel(&source);
        QVERIFY(proxy.SaveDataToFile("accepted"));
        QVERIFY(!proxy.SaveDataToFile("refused"));
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXZeroingProxyModel)
#include "tst_RVXZeroingProxyModel.moc"
