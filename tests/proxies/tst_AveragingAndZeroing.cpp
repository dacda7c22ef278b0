// SPDX-License-Identifier: LGPL-2.1-or-later
// tst_ProxyStack compares averages and zeros with their definitions through long histories: samples, gaps, other units, other
// sources and resets.
#include "tests/proxies/Averages.h"
#include "tests/proxies/ProxyTest.h"

using namespace Corvale_Qt;

namespace {

//! Returns the first number that differs, or an empty text.
QString difference(const QVector<double> &actual, const QVector<double> &expected)
{
    if (actual.size() != expected.size())
        return QStringLiteral("%1 numbers, not %2").arg(actual.size()).arg(expected.size());
    for (int i = 0; i < actual.size(); ++i) {
        if (!same(actual[i], expected[i]))
            return QStringLiteral("%1: %2, not %3").arg(i).arg(actual[i]).arg(expected[i]);
    }
    return QString();
}

// Returns numbers that have no short binary fraction.
double awkward(int i)
{
    return std::sin(i * 0.7) * 1e-9 + i * 1e-12;
}

} // namespace

class tst_AveragingAndZeroing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resetsOfTheHost()
    {
        BufferModel source(1);
        source.act("append 1 4; append 2 8");
        RVXAveragingProxyModel proxy;
        proxy.setSourceModel(&source);
        RVXAveragingProxyModel onTop;
        onTop.setSourceModel(&proxy);
        ModelLog log(&onTop);
        proxy.setAveraging(0);
        proxy.setAveraging(-3);
        QCOMPARE(log.take(), QString());
        QCOMPARE(proxy.averaging(), 1);
        proxy.setAveraging(2);
        QCOMPARE(log.take(), QString("reset?, reset!"));
        QCOMPARE(rowsText(onTop), QString("1: 4; 2: 6"));
        onTop.Clear();
        QCOMPARE(log.take(), QString("reset?, reset!"));
        QCOMPARE(onTop.rowCount(), 1);
        source.append(2, 8);
        QCOMPARE(log.take(), QString("insert 1-1?, insert 1-1!"));
        QCOMPARE(rowsText(onTop), QString("2: 8"));
    }

    void rowsThatChange_data()
    {
        tableFrom(R"(
            | script | announced | rows
            a sample changes | change 2 1 17 | changed (2,1)-(3,1) | 8: 5 6; 8: 8 6.75; 16: 10 9.3125
            the newest sample changes
                | change 3 2 18 | changed (3,2)-(3,2) | 8: 5 6; 8: 5.75 6.75; 16: 8.3125 9.5625
            the header row and a sample change
                | signal 0 0 2 2 | changed (0,0)-(3,2) | 8: 8 9; 8: 8 9; 16: 10 11
            the header row changes
                | signal 0 0 0 2 | changed (0,0)-(0,2) | 8: 5 6; 8: 5.75 6.75; 16: 8.3125 9.3125
            a time changes
                | signal 2 0 2 0 | changed (2,0)-(2,0) | 8: 5 6; 8: 5.75 6.75; 16: 8.3125 9.3125
            a sample is removed
                | remove 2 2 | remove 2-2?, remove 2-2!, changed (2,1)-(2,2) | 8: 5 6; 16: 7.75 8.75
            the newest sample is removed
                | remove 3 3 | remove 3-3?, remove 3-3! | 8: 5 6; 8: 5.75 6.75
            a sample is inserted between others
                | insert 2 9 9 | insert 2-2?, insert 2-2!, changed (3,1)-(4,2)
                | 8: 5 6; 9: 6 7; 8: 6.5 7.5; 16: 8.875 9.875
            a sample moves | move 2 | move 2-2?, move 2-2!, changed (1,1)-(3,2) | 8: 8 9; 16: 10 11; 8: 9.5 10.5
            samples get another order | reverse | layout?, layout! | 16: 16 17; 8: 14 15; 8: 12.5 13.5
            a channel is inserted
                | prepend-channel 1 | insert column 1-1?, insert column 1-1!
                | 8: 1 5 6; 8: 1 5.75 6.75; 16: 1 8.3125 9.3125
            a channel is removed
                | remove-channel 1 | remove column 1-1?, remove column 1-1! | 8: 6; 8: 6.75; 16: 9.3125
        )");
    }
    //! The oldest row has been dropped, so that only averages that are not computed again know of it.
    void rowsThatChange()
    {
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
        source.act(cell("script"));
        QTEST(log.take(), "announced");
        QTEST(rowsText(proxy), "rows");
        QCOMPARE(mirror.error(), QString());

        // Without averaging, only what the source said.
        proxy.setAveraging(1);
        QCOMPARE(rowsText(proxy), rowsText(source));
        log.take();
        source.act("change 1 1 0; remove 2 2");
        QCOMPARE(log.take(), QString("changed (1,1)-(1,1), remove 2-2?, remove 2-2!"));
        QCOMPARE(rowsText(proxy), rowsText(source));
    }

    void rowsThatAreNotThere()
    {
        BufferModel source(1);
        RVXAveragingProxyModel proxy;
        QString early;
        // Connected before the proxy: the source has the row and the proxy has not heard of it.
        connect(&source, &QAbstractItemModel::rowsInserted, this,
                [&] { early = readingText(proxy.index(1, 1)); });
        proxy.setSourceModel(&source);
        source.append(1, 4);
        QCOMPARE(early, QString("/  /  /"));
        const QModelIndex gone = proxy.index(1, 1);
        source.dropOldest(1);
        QCOMPARE(readingText(gone), early);
        for (const QPoint &cell : {QPoint(2, 1), QPoint(-1, 1), QPoint(1, 9)})
            QCOMPARE(proxy.doubleData(cell.x(), cell.y()), 0.0);
    }

    //! A listener that hears of the deletion before the proxy gives it another length, or another source.
    void changedWhileItsSourceIsDeleted()
    {
        BufferModel next(1);
        next.append(1, 5);
        for (const bool hasNext : {false, true}) {
            RVXAveragingProxyModel proxy;
            QSignalSpy resets(&proxy, &QAbstractItemModel::modelReset);
            {
                BufferModel source(1);
                connect(&source, &QObject::destroyed, this, [&] {
                    QVERIFY(!proxy.headerData(1, Qt::Horizontal).isValid());
                    QCOMPARE(proxy.flags(QModelIndex()), Qt::NoItemFlags);
                    QVERIFY(!proxy.hasChildren() && !proxy.canFetchMore({}));
                    QVERIFY(!proxy.setHeaderData(1, Qt::Horizontal, 0) && proxy.submit());
                    QVERIFY(!proxy.mimeData({QModelIndex()}));
                    QVERIFY(!proxy.canDropMimeData(nullptr, Qt::CopyAction, 0, 0, {}));
                    QCOMPARE(proxy.supportedDragActions(), Qt::IgnoreAction);
                    proxy.fetchMore({});
                    proxy.sort(0);
                    proxy.revert();
                    proxy.setAveraging(3);
                    if (hasNext)
                        proxy.setSourceModel(&next);
                });
                proxy.setSourceModel(&source);
                source.append(1, 4);
                resets.clear();
            }
            QVERIFY(resets.count() > 0);
            QCOMPARE(proxy.averaging(), 3);
            QCOMPARE(proxy.rowCount(), hasNext ? 2 : 0);
            QVERIFY(proxy.sourceModel() == (hasNext ? &next : nullptr));
        }
    }

    void aSourceOfWhichLittleIsLeft()
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

    void whatIsNotAveragedIsTheSources()
    {
        const Units::nA nA;
        BufferModel source(2);
        source.act("append 1 4e-9; append 2 8e-9");
        RVXAveragingProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.setAveraging(2);
        source.SetUnits(&nA);
        for (const QModelIndex &index : {proxy.index(0, 0), proxy.index(0, 2), proxy.index(1, 0)}) {
            for (int role = 0; role <= Qt::UserRole; ++role)
                QCOMPARE(index.data(role), proxy.mapToSource(index).data(role));
        }
        const QModelIndex sample = proxy.index(2, 1);
        QCOMPARE(sample.data(Qt::UserRole), QVariant("of the device"));
        QCOMPARE(sample.data(Qt::BackgroundRole), source.index(2, 1).data(Qt::BackgroundRole));
        QCOMPARE(readingText(sample), QString("6.0000 / 6.0000 / 6.0000 nA / 6"));
        source.SetUnits(nullptr);
        QCOMPARE(proxy.units(), nullptr);
    }

    void chunksEqualTheRecurrence_data()
    {
        // One in this many readings is not finite, if gaps is not 0.
        tableFrom(R"(
            | int channels | int samples | int length | int gaps
            one channel                        |  1 | 1000 |   16 |   0
            fewer than are read side by side   |  7 |  300 |    3 |   0
            just as many                       |  8 |  257 |    3 |   0
            one more                           |  9 |  256 |    7 |   0
            many, long                         | 20 | 1500 | 1000 |   0
            no averaging                       |  9 |  600 |    1 |   0
            gaps in all channels               |  9 |  700 |    5 |   3
            few gaps                           |  9 |  700 |    5 | 601
            gaps, no averaging                 |  3 |  300 |    1 |   7
        )");
    }
    void chunksEqualTheRecurrence()
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
                sample.values << (gaps > 0 && (i + 5 * c) % gaps == 0 ? qQNaN() : awkward(i + c));
            source.append({sample});
        }
        const auto compare = [&] {
            QString found;
            for (int c = 1; c <= channels; ++c) {
                QVector<double> expected;
                average(columnOf(source, c), length, 0, expected);
                found += difference(columnOf(proxy, c), expected);
            }
            return found;
        };
        proxy.setAveraging(length);
        QCOMPARE(compare(), QString());
        // A change of all channels continues from a row in between.
        const int middle = samples / 2;
        Q_EMIT source.dataChanged(source.index(middle, 1), source.index(middle, channels));
        QCOMPARE(compare(), QString());
    }

    /*! Compares averages of models that are read in memory, whose rings wrap at different rows, with averages of the
        readings before they went through any model: in a unit, with a zero, and with a zero over a zero. */
    void memoryOfLibraryModels()
    {
        constexpr int capacity = 100000;
        constexpr int length = 16;
        const Units::mA mA;
        const auto reading = [](int channel, int i) { return channel + (i % 1000) * 1e-3; };
        RVXSingleChannelDataModel models[5];
        RVXMultichannelProxyModel merged;
        for (int c = 0; c < 5; ++c) {
            models[c].SetUnits(&mA);
            for (int i = 0; i < capacity + 700 + 37 * c; ++i)
                models[c].AddData(i + 1, reading(c, i));
            merged.addSourceModel(&models[c], 1);
        }
        RVXZeroingProxyModel lower;
        RVXZeroingProxyModel upper;
        RVXAveragingProxyModel proxy;
        lower.setSourceModel(&merged);
        upper.setSourceModel(&lower);
        proxy.setAveraging(length);
        proxy.setSourceModel(&upper);
        for (int zeros = 0; zeros <= 2; ++zeros) {
            // The upper one is zeroed first, so that each of them takes the reading as it is.
            if (zeros > 0)
                (zeros == 1 ? upper : lower).zeroNow();
            for (int c = 0; c < 5; ++c) {
                const int first = 700 + 37 * c;
                const double zero = zeros * 1e3 * reading(c, first + capacity - 1);
                double average = 1e3 * reading(c, first) - zero;
                for (int row = 1; row <= capacity; ++row) {
                    const double x = 1e3 * reading(c, first + row - 1) - zero;
                    average += (x - average) / length;
                    if (!(std::abs(proxy.doubleData(row, c + 1) - average) < 1e-6))
                        QFAIL(qPrintable(QString("zeros %1, row %2").arg(zeros).arg(row)));
                }
            }
        }
    }

    void onlyATimeColumn()
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

    void moreRowsThanTheBufferWasSaidToHold()
    {
        struct Modest : BufferModel
        {
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

    //! A listener that hears of the end of a change before the proxy computes averages of the rows and channels after it.
    void lengthIsSetBetweenAChangeAndItsAnnouncement()
    {
        using Model = QAbstractItemModel;
        for (const int change : {0, 1, 2, 3, 4, 5}) {
            BufferModel source(2, 4);
            source.rollOver = BufferModel::RollOver(change % 3);
            for (const double value : {8.0, 1.0, 5.0, 2.0})
                source.append(value, value);
            RVXAveragingProxyModel proxy, expected;
            for (const auto end :
                 {&Model::rowsRemoved, &Model::columnsInserted, &Model::columnsRemoved})
                connect(&source, end, &proxy, [&] { proxy.setAveraging(2); });
            proxy.setSourceModel(&source);
            proxy.setAveraging(3);
            if (change == 3)
                source.insertChannelInFront(4);
            else if (change == 4)
                source.removeChannel(1);
            else if (change == 5)
                source.dropOldest(2);
            else
                source.append(9, 9);
            expected.setAveraging(2);
            expected.setSourceModel(&source);
            QCOMPARE(rowsText(proxy), rowsText(expected));
        }
    }

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
        QFETCH(QString, rows);
        BufferModel other(2), source(2);
        source.append(1, 4);
        RVXZeroingProxyModel proxy;
        proxy.setSourceModel(&other); // whose later changes must not count
        proxy.setSourceModel(&source);
        const ModelWatch watch(&proxy);
        proxy.zeroNow();
        QString atLastReset;
        connect(&proxy, &QAbstractItemModel::modelReset, this,
                [&] { atLastReset = proxy.isZeroed() ? QString() : rowsText(proxy) + ", ended"; });
        other.insertChannelInFront(1);
        QVERIFY(proxy.isZeroed());
        source.act(cell("script"));
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

CORVALE_QT_TEST_MAIN(tst_AveragingAndZeroing)
#include "tst_AveragingAndZeroing.moc"
