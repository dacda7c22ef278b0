// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"
#include "tests/proxies/Merged.h"
#include "tests/proxies/ProxyTest.h"
#include "tests/support/Files.h"

#include <QBrush>

#include <utility>

using namespace Corvale_Qt;

class tst_RVXMultichannelProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewProxy()
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
        QVERIFY(!proxy.headerData(1, Qt::Horizontal).isValid());
        QVERIFY(!proxy.SaveDataToFile("unused"));
        proxy.Clear();
    }

    void whatIsNoChannel()
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

    void sourcesOfDifferentLength()
    {
        Merged m;
        m.one.act("append 1.5 100; append 2.5 200; append 3.5 300");
        m.two.act("append 1 10; append 2 20; append 3 30; append 4 40; append 5 50");
        const ModelWatch watch(&m.proxy);
        QCOMPARE(rowsText(m.proxy),
                 QString("1.5: 100 10; 2.5: 200 20; 3.5: 300 30; 4: 300 40; 5: 300 50"));
        QCOMPARE(m.proxy.doubleData(9, 0), 5.0);
        QCOMPARE(m.proxy.doubleData(9, 1), 300.0);
        QCOMPARE(m.proxy.index(5, 1).data(), m.one.index(3, 1).data());
        QCOMPARE(m.proxy.mapToSource(m.proxy.index(5, 1)), m.one.index(3, 1));
        QCOMPARE(m.proxy.mapToSource(m.proxy.index(4, 0)), m.two.index(4, 0));
        QCOMPARE(m.proxy.mapFromSource(m.two.index(2, 1)), m.proxy.index(2, 2));
        QVERIFY(!m.proxy.index(6, 0).isValid() && !m.proxy.index(0, 3).isValid());
    }

    void oneModelForTwoChannels()
    {
        Merged m(2, 1);
        m.proxy.addSourceModel(&m.one, 1);
        m.log.take();
        QCOMPARE(m.announced("append 1 10; change 1 1 20"),
                 QString("insert 1-1?, insert 1-1!, changed (1,1)-(1,1), changed (1,3)-(1,3)"));
        QCOMPARE(m.proxy.mapFromSource(m.one.index(1, 1)), m.proxy.index(1, 1));
    }

    void channelsWithoutReadings()
    {
        Merged m;
        m.proxy.addSourceModel(&m.one, 2); // a column that the model does not have
        RVXAveragingProxyModel average;
        average.setAveraging(2);
        average.setSourceModel(&m.proxy);
        RVXLatestPlotDataProxyModel latest;
        latest.setSourceModel(&m.proxy);
        m.one.act("append 1 10; append 2 20");
        QCOMPARE(rowsText(m.proxy), QString("1: 10 nan nan; 2: 20 nan nan"));
        QCOMPARE(rowsText(average), QString("1: 10 nan nan; 2: 15 nan nan"));
        for (const QModelIndex &cell :
             {m.proxy.index(2, 2), m.proxy.index(2, 3), latest.index(1, 1)}) {
            QCOMPARE(readingText(cell), QString("N/A / N/A / N/A / nan"));
            QCOMPARE(cell.data(Qt::BackgroundRole).value<QBrush>(), QBrush(Qt::black));
        }
        QCOMPARE(m.proxy.doubleData(0, 2), 2.0);
        QVERIFY(!m.proxy.mapToSource(m.proxy.index(1, 2)).isValid());
        m.two.append(1, 7);
        QCOMPARE(rowsText(average), QString("1: 10 7 nan; 2: 15 7 nan"));
        m.two.dropOldest(1);
        QCOMPARE(rowsText(m.proxy), QString("1: 10 nan nan; 2: 20 nan nan"));
    }

    void sourcesWhoseColumnsChange()
    {
        Merged m(2, 1);
        m.announced("append 1 10 / append 1 50");
        m.proxy.insertSourceModel(0, &m.one, 1);
        m.log.take();
        const ModelWatch watch(&m.proxy);
        const auto shownAfter = [&](const char *script) {
            const QString announced = m.announced(script);
            return announced + ": " + rowsText(m.proxy);
        };
        QCOMPARE(shownAfter("move-channel"), QString("reset?, reset!: 1: 11 10 50"));
        QCOMPARE(shownAfter("remove-channel 1"), QString("reset?, reset!: 1: 10 nan 50"));
        QVERIFY(!m.proxy.headerData(2, Qt::Horizontal).isValid());
        QVERIFY(!m.proxy.index(0, 2).data().isValid());
        QCOMPARE(shownAfter("prepend-channel 4"), QString("reset?, reset!: 1: 4 10 50"));
    }

    void headersAndTitles()
    {
        Merged m(1, 3);
        const QModelIndex header = m.proxy.index(0, 2);
        QCOMPARE(header.data(Qt::BackgroundRole).value<QBrush>(), QBrush(RVXPlotColors::color(1)));
        QCOMPARE(m.proxy.flags(m.proxy.index(0, 0)), Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        QVERIFY(header.flags() & Qt::ItemIsUserCheckable);
        QVERIFY(m.proxy.setData(header, Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(m.log.take(), QString("changed (0,2)-(0,2)"));
        QCOMPARE(m.two.index(0, 3).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        QCOMPARE(m.proxy.index(0, 1).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));

        m.proxy.addSourceModel(&m.two, 2);
        m.log.take();
        QCOMPARE(header.data().toString(), QString("ch3"));
        QCOMPARE(m.proxy.headerData(0, Qt::Horizontal).toString(), QString("Time (s)"));
        QCOMPARE(m.proxy.headerData(2, Qt::Horizontal).toString(), QString("ch3"));
        for (const int section : {-1, 4, 99}) {
            QVERIFY(!m.proxy.headerData(section, Qt::Horizontal).isValid());
            QVERIFY(!m.proxy.headerData(section, Qt::Vertical).isValid());
        }
        QCOMPARE(m.announced("/ header 2 2"), QString("header 3-3"));
        QCOMPARE(m.announced("/ header 0 3"), QString("header 2-2, header 3-3"));
        QCOMPARE(m.announced("header 0 1"), QString("header 0-0, header 1-1"));
        QCOMPARE(m.announced("/ header 1 1"), QString());
    }

    void insertionAndRemoval()
    {
        Merged m;
        m.announced("append 1 1");
        auto front = std::make_unique<BufferModel>(1);
        front->act("append 1 2 3");
        m.proxy.insertSourceModel(-5, front.get(), 1);
        m.proxy.insertSourceModel(99, &m.two, 1);
        QCOMPARE(m.log.take(), QString("reset?, reset!, reset?, reset!"));
        QCOMPARE(rowsText(m.proxy), QString("1: 2 1 nan nan; 2: 3 1 nan nan; 3: 4 1 nan nan"));
        m.proxy.removeSourceModel(&m.one);
        QCOMPARE(m.log.take(), QString("reset?, reset!"));
        QCOMPARE(m.proxy.columnCount(), 4);
        QCOMPARE(m.announced("append 2 1"), QString());
        m.proxy.addSourceModel(&m.one, 1);
        m.log.take();
        QCOMPARE(m.announced("append 3 7"), QString("changed (3,4)-(3,4)"));
        front.reset();
        QCOMPARE(m.log.take(), QString("reset?, reset!"));
        QCOMPARE(rowsText(m.proxy), QString("1: nan nan 1; 2: nan nan 1; 3: nan nan 7"));
        m.proxy.Clear();
        QCOMPARE(m.log.take(), QString("reset?, reset!"));
        QCOMPARE(m.one.rowCount() + m.two.rowCount() + m.proxy.rowCount(), 3);
    }

    void removalKeepsTheFirst()
    {
        Merged m;
        m.one.append(1, 1);
        m.proxy.addSourceModel(&m.one, 1);
        m.log.take();
        m.proxy.removeSourceModel(&m.one);
        QCOMPARE(m.log.take(), QString("reset?, reset!"));
        QCOMPARE(m.proxy.columnCount(), 4);
        QCOMPARE(m.announced("append 2 2"), QString());
        // The model is shown without being heard; the next reset counts it.
        QCOMPARE(m.proxy.rowCount(), 2);
        m.two.Clear();
        QCOMPARE(m.proxy.rowCount(), 3);
        m.proxy.addSourceModel(&m.one, 1);
        m.log.take();
        QCOMPARE(m.announced("append 3 3"), QString("insert 3-3?, insert 3-3!"));
    }

    void unitsAreRelayed()
    {
        const Units::nA nA;
        Merged m;
        int heard = 0;
        connect(&m.proxy, &RVXMultichannelProxyModel::unitsChanged, this,
                [&](const auto *unit) { heard += unit == &nA ? 1 : 100; });
        // A model is passed on once, a removed one twice, however often it is inserted and removed.
        for (int i = 0; i < 100; ++i) {
            if (i > 0)
                m.proxy.addSourceModel(&m.two, 1);
            m.two.SetUnits(&nA);
            QCOMPARE(std::exchange(heard, 0), 1);
            m.proxy.removeSourceModel(&m.two);
            m.two.SetUnits(&nA);
            QCOMPARE(std::exchange(heard, 0), 2);
        }
        // A proxy has no such signal, and no warning says so.
        RVXAveragingProxyModel averaging;
        averaging.setSourceModel(&m.one);
        m.proxy.addSourceModel(&averaging, 1);
        m.one.SetUnits(&nA);
        QCOMPARE(heard, 1);
        QCOMPARE(m.proxy.units(), &nA);
    }

    void everyChannelHasItsUnit()
    {
        const Units::nA nA;
        const Units::V V;
        const Units::Celcius celsius;
        BufferModel current(1), both(2);
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
        current.append(1, 2e-9);
        both.append(1, 20);
        const auto shown = [](const QAbstractItemModel &model, int row) {
            QStringList names;
            for (int column = 0; column < model.columnCount(); ++column) {
                const auto *unit = model.index(row, column)
                                       .data(RVXAbstractPlotDataModel::ChannelUnitRole)
                                       .value<const Units::MeasurementUnit *>();
                names << (unit ? unit->name() : "-");
            }
            return names.join(' ');
        };
        for (const QAbstractItemModel *const model :
             {static_cast<QAbstractItemModel *>(&merged), static_cast<QAbstractItemModel *>(&zero),
              static_cast<QAbstractItemModel *>(&top)}) {
            QCOMPARE(shown(*model, 0), "- nA V " + celsius.name());
            QCOMPARE(shown(*model, 1), QString("- - - -"));
        }
        QStringList tips;
        for (int column = 1; column <= 3; ++column)
            tips << top.index(1, column).data(Qt::ToolTipRole).toString();
        QCOMPARE(tips.join(", "), "2.0000 nA, 20.000 V, " + celsius.formatSuffix(21));
        // A channel without a unit does not get the unit of another channel.
        both.SetUnits(nullptr);
        QVERIFY(merged.index(0, 2).data(RVXAbstractPlotDataModel::ChannelUnitRole).isValid());
        QCOMPARE(shown(top, 0), "- nA - " + celsius.name());
    }

    void fileBytes()
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
        QCOMPARE(fileContents(name),
                 QByteArray("hannel__timestamp(s),hannel_,annel__timestamp(s),annel_,"
                            "nnel__timestamp(s),nnel_,\n"
                            "1.000e+00,1.000e+00,,,1.125e+00,1.000e+03,\n"
                            "2.500e+00,-2.500e+02,,,,,\n"));

        for (int i = 0; i < 6; ++i)
            proxy.addSourceModel(&models[0], 1);
        QVERIFY(proxy.SaveDataToFile(name));
        QVERIFY(fileContents(name).contains(",l__timestamp(s),l_,__timestamp(s),_,_timestamp(s),,"
                                            "_timestamp(s),,\n"));
    }

    void filesThatCannotBeWritten()
    {
        const Merged m;
        const QTemporaryDir folder;
        QVERIFY(!m.proxy.SaveDataToFile(QString()));
        QVERIFY(!m.proxy.SaveDataToFile(folder.path()));
        if (!hasFullDevice())
            QSKIP("no device here that is always full");
        QVERIFY(!m.proxy.SaveDataToFile("/dev/full"));
    }

    void indexesOverALayoutChange()
    {
        Merged m;
        RVXMultichannelProxyModel &proxy = m.proxy;
        m.announced("append 1 1 4 / append 1 1 3");
        using Indexes = QVector<QPersistentModelIndex>;
        const auto places = [](const Indexes &indexes) {
            QStringList texts;
            for (const QPersistentModelIndex &index : indexes)
                texts << QString("%1,%2").arg(index.row()).arg(index.column());
            return texts.join(' ');
        };
        // A sample that moves, one that is repeated, and one of another source.
        const Indexes alone{proxy.index(1, 2), proxy.index(4, 2), proxy.index(1, 1)};
        m.two.reverse();
        QCOMPARE(places(alone), QString("3,2 4,2 1,1"));

        // The cells of all channels that show the model follow it, and no others.
        proxy.addSourceModel(&m.two, 1);
        const Indexes twice{proxy.index(2, 2), proxy.index(1, 3), proxy.index(1, 0),
                            proxy.index(1, 1)};
        QCOMPARE(proxy.match(proxy.index(1, 3), Qt::DisplayRole, 1.0, 1, Qt::MatchExactly),
                 QModelIndexList{proxy.index(3, 3)});
        m.log.take();
        QCOMPARE(m.announced("/ move 1"), QString("layout?, layout!"));
        QCOMPARE(places(twice), QString("1,2 3,3 1,0 1,1"));
        // With a single source rows of the table move.
        RVXMultichannelProxyModel single;
        single.addSourceModel(&m.two, 1);
        ModelLog singleLog(&single);
        const Indexes rows{single.index(1, 0)};
        m.two.moveToEnd(1);
        QCOMPARE(singleLog.take(), QString("move 1-1?, move 1-1!"));
        QCOMPARE(places(rows), QString("3,0"));
    }

    void proxiesInACircle()
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

    void aSourceTakenOutByAListener()
    {
        Merged m;
        const auto takeOut = connect(&m.proxy, &QAbstractItemModel::rowsInserted, this,
                                     [&] { m.proxy.removeSourceModel(&m.two); });
        m.two.append(1, 1);
        QCOMPARE(m.proxy.columnCount(), 2);
        disconnect(takeOut);
        m.one.append(1, 1);
        QCOMPARE(rowsText(m.proxy), QString("1: 1"));

        // Removed while its change is open: the proxy does not wait for the end of the change.
        m.proxy.addSourceModel(&m.two, 1);
        const auto early = connect(&m.proxy, &QAbstractItemModel::rowsAboutToBeInserted, this,
                                   [&] { m.proxy.removeSourceModel(&m.two); });
        m.two.append(2, 2);
        disconnect(early);
        m.one.append(2, 2);
        QCOMPARE(rowsText(m.proxy), QString("1: 1; 2: 2"));
    }

    //! A proxy that has not heard yet that its source is deleted has no readings any more.
    void aSourceThatGoes()
    {
        auto device = std::make_unique<BufferModel>(1);
        BufferModel other(1);
        RVXAveragingProxyModel average;
        RVXMultichannelProxyModel proxy;
        proxy.addSourceModel(device.get(), 1); // hears of the deletion first
        average.setSourceModel(device.get());
        proxy.addSourceModel(&average, 1);
        proxy.addSourceModel(&other, 1);
        device->append(1, 5);
        other.append(1, 7);
        QStringList shown;
        connect(&proxy, &QAbstractItemModel::modelAboutToBeReset, this,
                [&] { shown << QString::number(proxy.doubleData(1, 1)); });
        device.reset();
        QCOMPARE(shown.value(0), QString("nan"));
        QCOMPARE(rowsText(proxy), QString("1: nan 7"));
    }

    //! A pointer that a dying source has cleared names no source.
    void noSourceIsRemovedWhileOneDies()
    {
        RVXMultichannelProxyModel proxy;
        BufferModel other(1);
        auto *dying = new BufferModel(1);
        connect(dying, &QObject::destroyed, &proxy, [&proxy] { proxy.removeSourceModel(nullptr); });
        proxy.addSourceModel(dying, 1);
        proxy.addSourceModel(&other, 1);
        delete dying;
        other.append(1, 5);
        QCOMPARE(proxy.columnCount(), 2);
        QCOMPARE(proxy.doubleData(1, 1), 5.0);
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXMultichannelProxyModel)
#include "tst_RVXMultichannelProxyModel.moc"
