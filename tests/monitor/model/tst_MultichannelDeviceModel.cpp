// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CsvReader.h"
#include "monitor/model/MultichannelDeviceModel.h"
#include "tests/monitor/support/TextSink.h"
#include "tests/support/Files.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/proxies/RVXAveragingProxyModel.h>
#include <corvale_qt/proxies/RVXZeroingProxyModel.h>
#include <corvale_qt/units/Units.h>

using namespace Monitor;

namespace {

StreamHeader headerOf(int channels, const QString &unit = QString())
{
    StreamHeader header;
    header.channels = StreamHeader::defaultChannels(StreamKind::Channels, channels);
    for (Channel &channel : header.channels)
        channel.unit = unit;
    return header;
}

//! Readings whose values can be told apart: reading i of channel c is i + c / 1000. Two have the same time each.
ReadingBlock numbered(int channels, int first, int count)
{
    ReadingBlock block(channels);
    std::vector<double> values(static_cast<std::size_t>(channels));
    for (int i = first; i < first + count; ++i) {
        for (int c = 0; c < channels; ++c)
            values[std::size_t(c)] = i + c / 1000.0;
        block.append(0.5 * (i - i % 2), values.data());
    }
    return block;
}

QString rowText(const MultichannelDeviceModel &model, int row)
{
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column)
        cells.append(QString::number(model.doubleData(row, column), 'g', 12));
    return cells.join(QLatin1Char(' '));
}

} // namespace

class tst_MultichannelDeviceModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    //! During a pause nothing that is shown moves; after it, all readings come in one insertion.
    void aPauseIsOneInsertion()
    {
        MultichannelDeviceModel paused;
        paused.startStream(headerOf(1));
        paused.addReadings(numbered(1, 0, 99000));
        paused.setPaused(true);
        QSignalSpy inserted(&paused, &QAbstractItemModel::rowsInserted);
        QSignalSpy removed(&paused, &QAbstractItemModel::rowsRemoved);
        for (int i = 0; i < 30; ++i)
            paused.addReadings(numbered(1, 99000 + 100 * i, 100));
        QCOMPARE(paused.waitingReadings(), qint64(3000));
        QCOMPARE(inserted.count() + removed.count(), 0);
        QCOMPARE(rowText(paused, paused.rowCount() - 1), QStringLiteral("49499 98999"));

        paused.setPaused(false);
        QCOMPARE(paused.waitingReadings(), qint64(0));
        QCOMPARE(inserted.count(), 1);
        QCOMPARE(removed.count(), 1);
        QCOMPARE(rowText(paused, 1), QStringLiteral("1000 2000"));
        QCOMPARE(rowText(paused, 100000), QStringLiteral("50999 101999"));
        // Of a long pause the newest are kept.
        paused.setPaused(true);
        for (int i = 0; i < 5; ++i)
            paused.addReadings(numbered(1, 102000 + 60000 * i, 60000));
        paused.setPaused(false);
        QCOMPARE(rowText(paused, 1), QStringLiteral("151000 302000"));
        // Readings of other channels than the header's are not taken.
        paused.addReadings(numbered(3, 0, 5));
        QCOMPARE(rowText(paused, 100000), QStringLiteral("200999 401999"));
    }

    void headerShowsNamesAndUnits()
    {
        MultichannelDeviceModel model;
        StreamHeader header;
        header.channels = {{"left", "nA"}, {"right", "nA"}};
        model.startStream(header);
        QCOMPARE(model.index(0, 1).data().toString(), QStringLiteral("left"));
        QCOMPARE(model.units()->name(), QStringLiteral("nA"));
        QCOMPARE(model.headerData(2, Qt::Horizontal).toString(), QStringLiteral("right"));

        // Mixed units belong to the channels, and there is no common unit.
        header.channels = {{"left", "nA"}, {"<b>x</b>", "mm"}, {"plain", ""}};
        QSignalSpy unitsChanged(&model, &MultichannelDeviceModel::unitsChanged);
        model.startStream(header);
        QCOMPARE(unitsChanged.count(), 1);
        QCOMPARE(model.units(), nullptr);
        QCOMPARE(model.index(0, 1).data().toString(), QStringLiteral("left"));
        QCOMPARE(model.index(0, 3).data().toString(), QStringLiteral("plain"));
        QVERIFY(!model.index(0, 2).data(Qt::ToolTipRole).toString().contains(QLatin1String("<b>")));

        const double nan = std::nan("");
        const double values[] = {1.5, nan, 3.0};
        model.addReading(1.0, values);
        QCOMPARE(model.index(1, 1).data().toString(), QStringLiteral("1.5000"));
        const auto ownUnit = [&](int column) {
            const QVariant unit =
                model.index(0, column).data(MultichannelDeviceModel::ChannelUnitRole);
            return unit.isValid() ? unit.value<const Corvale_Qt::Units::MeasurementUnit *>()->name()
                                  : QString();
        };
        QCOMPARE(ownUnit(1) + ownUnit(2) + ownUnit(3), QStringLiteral("nAmm"));
        QCOMPARE(model.index(1, 2).data().toString(), QString());
        QVERIFY(std::isnan(model.index(1, 2).data(33).toDouble()));
    }

    void marksWhatIsOverRange()
    {
        MultichannelDeviceModel model;
        StreamHeader header = headerOf(3);
        header.rangeLow = -1.0;
        header.rangeHigh = 1.0;
        model.startStream(header);
        const double values[] = {1.0, 1.0000001, -2.0};
        model.addReading(0.0, values);
        const auto background = [&](int column) {
            return model.index(1, column).data(Qt::BackgroundRole).value<QBrush>().color();
        };
        QCOMPARE(background(1), QColor(Qt::black));
        QCOMPARE(background(2), QColor(Qt::red));
        QCOMPARE(background(3), QColor(Qt::red));
    }

    void takesOneReadingAPeriod()
    {
        MultichannelDeviceModel model;
        model.startStream(headerOf(1));
        model.setPeriod(1);
        model.addReadings(numbered(1, 0, 10));
        QCOMPARE(model.rowCount(), 1); // none is due before the first period is over
        QTRY_VERIFY([&] {
            model.addReadings(numbered(1, 0, 10));
            return model.rowCount() > 1;
        }());
        QCOMPARE(model.rowCount(), 2); // and then one
        model.setPeriod(0);
        model.addReadings(numbered(1, 10, 10));
        QCOMPARE(model.rowCount(), 12);
    }

    void savesWhatReadsBackTheSame()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("saved.csv"));
        MultichannelDeviceModel model;
        model.startStream(headerOf(2, QStringLiteral("nA")));
        const double values[] = {0.1, std::nan("")};
        model.addReading(1.0 / 3.0, values);
        QVERIFY(model.SaveDataToFile(path));
        QVERIFY(!model.SaveDataToFile(QString()));
        QVERIFY(!model.SaveDataToFile(dir.filePath(QStringLiteral("no/such/folder.csv"))));
        if (hasFullDevice())
            QVERIFY(!model.SaveDataToFile(QStringLiteral("/dev/full")));

        TextSink sink;
        CsvReader reader(sink);
        QVERIFY(reader.open(path));
        while (reader.read(1000)) { }
        QCOMPARE(sink.text(), QStringLiteral("start channels ch1:nA ch2:nA | 0.333333: 0.1 -"));
    }

    //! With mixed units, missing values, a pause and another stream below them.
    void worksUnderTheProxiesOfAScope()
    {
        MultichannelDeviceModel model;
        Corvale_Qt::RVXAveragingProxyModel averaging;
        Corvale_Qt::RVXZeroingProxyModel zeroing;
        averaging.setSourceModel(&model);
        zeroing.setSourceModel(&averaging);
        ModelWatch watch(&zeroing);
        QVERIFY2(Corvale_Qt::RVXBulkPlotData::of(&model), "the chart reads the model in place");
        StreamHeader header;
        header.channels = {{"a", "nA"}, {"b", "mm"}};
        model.startStream(header);
        model.addReadings(numbered(2, 0, 600));
        model.setPaused(true);
        model.addReadings(numbered(2, 600, 600));
        model.setPaused(false);
        QCOMPARE(zeroing.rowCount(), model.rowCount());
        QCOMPARE(zeroing.doubleData(1200, 1), 1199.0);
        const double missing[] = {std::nan(""), 1.0};
        model.addReading(1e6, missing);
        QVERIFY(zeroing.index(1201, 1).data().isValid());
        model.startStream(headerOf(5));
        QCOMPARE(zeroing.columnCount(), 6);
        model.addReadings(numbered(5, 0, 3));
        QCOMPARE(zeroing.doubleData(3, 5), 2.004);
        QCOMPARE(watch.complaints(), QString());
    }
};

CORVALE_QT_TEST_MAIN(tst_MultichannelDeviceModel)
#include "tst_MultichannelDeviceModel.moc"
