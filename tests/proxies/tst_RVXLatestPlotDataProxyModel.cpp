// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "tests/proxies/ProxyTest.h"

#include <QBrush>
#include <QIdentityProxyModel>
#include <QMimeData>

#include <sys/wait.h>
#include <unistd.h>

using namespace Corvale_Qt;

namespace {

//! A table of latest values that reads as text, such as "Data (A): ch1=1 ch2=2".
class Latest : public RVXLatestPlotDataProxyModel
{
public:
    explicit Latest(QAbstractItemModel *source = nullptr) { setSourceModel(source); }
    using RVXLatestPlotDataProxyModel::createIndex;

    QString title() const { return headerData(1, Qt::Horizontal).toString(); }
    QString text() const
    {
        QStringList rows;
        for (int row = 0; row < rowCount(); ++row)
            rows << index(row, 0).data().toString() + '=' + index(row, 1).data().toString();
        return title() + ": " + rows.join(' ');
    }
};

//! Returns whether \a act ends the process with a message that begins with \a words.
template<typename Act>
bool isFatal(const char *words, Act act)
{
    static const char *expected = nullptr;
    expected = words;
    const pid_t child = fork();
    if (child == 0) {
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
            _exit(type == QtFatalMsg && text.startsWith(expected) ? 7 : 1);
        });
        act();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WEXITSTATUS(status) == 7;
}

} // namespace

class tst_RVXLatestPlotDataProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noSourceAndNoSamples()
    {
        Latest proxy;
        const ModelWatch watch(&proxy);
        QCOMPARE(proxy.text(), QString("Data: "));
        QCOMPARE(proxy.columnCount(), 2);
        QVERIFY(!proxy.headerData(0, Qt::Horizontal, Qt::CheckStateRole).isValid());

        BufferModel source(3);
        proxy.setSourceModel(&source);
        QCOMPARE(proxy.text(), QString("Data (A): ch1=N/A ch2=N/A ch3=N/A"));
        const QModelIndex data = proxy.index(1, 1);
        QCOMPARE(readingText(data), QString("N/A / 0 /  / 0"));
        QCOMPARE(data.data(Qt::BackgroundRole).value<QBrush>(), QBrush(Qt::black));
        QCOMPARE(data.data(Qt::ForegroundRole).value<QBrush>(), QBrush(QColor(0, 255, 0)));
        QVERIFY(!data.data(Qt::CheckStateRole).isValid());
    }

    void theNewestSample()
    {
        BufferModel source(2, 3);
        RVXAveragingProxyModel averaging;
        averaging.setSourceModel(&source);
        averaging.setAveraging(2);
        const Latest proxy(&averaging);
        for (int i = 1; i <= 5; ++i) {
            source.append(i, i == 5 ? 0.0 : 8.0);
            QCOMPARE(proxy.index(1, 1).data(RVXAbstractPlotDataModel::NumericValueRole).toDouble(),
                     i == 5 ? 5.0 : 9.0);
        }
        QCOMPARE(proxy.index(0, 1).data(Qt::BackgroundRole),
                 source.index(3, 1).data(Qt::BackgroundRole));
    }

    void whatIsAnnounced()
    {
        const Units::nA nA;
        BufferModel source(3);
        Latest proxy;
        const ModelWatch watch(&proxy);
        ModelLog log(&proxy);
        proxy.setSourceModel(&source);
        proxy.setSourceModel(&source);
        QCOMPARE(log.take(), QString("reset?, reset!"));
        const auto announced = [&](const char *script) {
            source.act(script);
            return log.take();
        };
        QCOMPARE(announced("append 1 1"), QString("changed (0,1)-(2,1)"));
        source.append(2, 2);
        log.take();
        QCOMPARE(announced("change 1 2 5"), QString());
        QCOMPARE(announced("change 2 2 5"), QString("changed (1,1)-(1,1)"));
        QCOMPARE(announced("check 3 0"), QString("changed (2,0)-(2,0), header 0-0"));
        // The range begins with older rows, which are not shown.
        source.SetUnits(&nA);
        QCOMPARE(log.take(), QString("header 0-1, changed (0,1)-(2,1)"));
        QCOMPARE(announced("signal 0 0 2 3"), QString("changed (0,0)-(2,1), header 0-0"));
        QCOMPARE(announced("remove 2 2"), QString("changed (0,1)-(2,1)"));
        QCOMPARE(announced("append 3 3"), QString("changed (0,1)-(2,1)"));
        QCOMPARE(announced("move 1"), QString("changed (0,1)-(2,1)"));
        QCOMPARE(announced("reverse"), QString("changed (0,0)-(2,1)"));
        QCOMPARE(announced("prepend-channel 1"), QString("reset?, reset!"));
        QCOMPARE(proxy.rowCount(), 4);
        QCOMPARE(announced("remove-channel 1"), QString("reset?, reset!"));
        QCOMPARE(announced("clear"), QString("reset?, reset!"));
    }

    void aRowThatIsEdited()
    {
        BufferModel source(3);
        source.append(1, 1);
        Latest proxy(&source);
        ModelLog log(&proxy);
        proxy.edit(proxy.index(1, 1));
        source.append(2, 1);
        QCOMPARE(log.take(), QString("changed (0,1)-(0,1), changed (2,1)-(2,1)"));
        source.change(2, 2, 5);
        QCOMPARE(log.take(), QString());
        proxy.editingFinished();
        QCOMPARE(log.take(), QString("changed (1,0)-(1,1)"));
        proxy.edit(proxy.index(0, 0));
        proxy.editingFinished();
        QCOMPARE(log.take(), QString());
        proxy.edit(proxy.index(2, 1));
        source.Clear();
        log.take();
        source.append(1, 1);
        QCOMPARE(log.take(), QString("changed (0,1)-(2,1)"));
    }

    void headers()
    {
        const Units::nA nA;
        BufferModel source(1);
        const Latest proxy(&source);
        QCOMPARE(proxy.headerData(0, Qt::Horizontal).toString(), QString("Channel"));
        source.SetUnits(&nA);
        QCOMPARE(proxy.title(), QString("Data (nA)"));
        source.SetUnits(nullptr);
        QCOMPARE(proxy.title(), QString("Data"));
        QVERIFY(!proxy.headerData(2, Qt::Horizontal).isValid());
        QVERIFY(!proxy.headerData(0, Qt::Vertical).isValid());
        QCOMPARE(proxy.headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
                 int(Qt::AlignHCenter));
    }

    void theUnitBelowAChainOfProxies()
    {
        const Units::nA nA;
        const Units::mA mA;
        BufferModel former(1), source(1);
        RVXAveragingProxyModel averaging;
        RVXAveragingProxyModel twice;
        QIdentityProxyModel ofAHost;
        averaging.setSourceModel(&former);
        twice.setSourceModel(&averaging);
        ofAHost.setSourceModel(&twice);
        Latest proxy(&ofAHost);
        averaging.setSourceModel(&source);
        ModelLog log(&proxy);
        source.SetUnits(&nA);
        QCOMPARE(log.take(), QString("header 0-1"));
        QCOMPARE(proxy.title(), QString("Data (nA)"));
        former.SetUnits(&mA);
        QCOMPARE(log.take(), QString());

        // Without a signal for the unit, all samples still change with it.
        source.act("append 1 1; append 2 1");
        source.blockSignals(true);
        source.SetUnits(&mA);
        source.blockSignals(false);
        log.take();
        source.act("signal 1 1 2 1");
        QCOMPARE(log.take(), QString("changed (0,1)-(0,1), header 1-1"));
    }

    void channelsInDifferentUnits()
    {
        const Units::nA nA;
        const Units::mV mV;
        const Units::mV another;
        BufferModel source(3);
        source.channelUnits = {{2, &mV}, {3, nullptr}};
        source.SetUnits(&nA);
        RVXAveragingProxyModel averaging;
        averaging.setSourceModel(&source);
        Latest proxy(&averaging);
        const ModelWatch watch(&proxy);
        QCOMPARE(proxy.text(), QString("Data: ch1=N/A ch2=N/A ch3=N/A"));
        source.append({{1, {4e-9, 0.25, 2}}});
        QCOMPARE(proxy.text(), QString("Data: ch1=4.0000 nA ch2=2.500e+02 mV ch3=2"));
        QCOMPARE(proxy.index(1, 1).data(Qt::EditRole).toString(), QString("2.500e+02"));
        source.append({{2, {4e-9, qQNaN(), 2}}});
        QCOMPARE(proxy.text(), QString("Data: ch1=4.0000 nA ch2=nan ch3=2"));

        // With one unit for all channels, even by different objects, the title shows it.
        source.channelUnits = {{2, &mV}};
        ModelLog log(&proxy);
        source.SetUnits(&another);
        QCOMPARE(log.take(), QString("changed (0,1)-(2,1), header 0-1, changed (0,1)-(2,1)"));
        QCOMPARE(proxy.title(), QString("Data (mV)"));
        QCOMPARE(proxy.index(0, 1).data().toString(), QString("4.000e-06"));
    }

    //! Each channel has a prefix of its own, which depends on the readings before.
    void readingsWithPrefixes()
    {
        const Units::mV mV;
        BufferModel source(3);
        source.channelUnits = {{2, &mV}};
        Latest proxy(&source);
        const ModelWatch watch(&proxy);
        proxy.setSiPrefix(true);
        QCOMPARE(proxy.text(), QString("Data: ch1=N/A ch2=N/A ch3=N/A"));
        source.append({{1, {1.863e-7, 2, -1.05e-6}}});
        QCOMPARE(proxy.text(), QString::fromUtf8("Data: ch1=186.3 nA ch2=2.000 V ch3=-1.050 µA"));
        source.append({{2, {qQNaN(), 0.02, -0.95e-6}}});
        QCOMPARE(proxy.text(), QString::fromUtf8("Data: ch1=nan ch2=20.00 mV ch3=-0.950 µA"));
        proxy.setSiPrefix(false);
        QVERIFY(!proxy.text().contains("nA"));
    }

    void aMergedChannelWithoutReadings()
    {
        const Units::nA nA;
        const Units::mV mV;
        RVXSingleChannelDataModel current, voltage;
        current.SetUnits(&nA);
        voltage.SetUnits(&mV);
        RVXMultichannelProxyModel merged;
        merged.addSourceModel(&current, 1);
        merged.addSourceModel(&voltage, 1);
        RVXAveragingProxyModel averaging;
        averaging.setSourceModel(&merged);
        averaging.setAveraging(2);
        RVXZeroingProxyModel zeroing;
        zeroing.setSourceModel(&averaging);
        const Latest proxy(&zeroing);
        current.AddData(1, 4e-9);
        QCOMPARE(proxy.text(), QString("Data: 1=4.0000 nA 1=N/A"));
        zeroing.zeroNow();
        QCOMPARE(proxy.text(), QString("Data: 1=0.0000 nA 1=N/A"));
        voltage.AddData(1, 0.5);
        QCOMPARE(proxy.text(), QString("Data: 1=0.0000 nA 1=5.000e+02 mV"));
    }

    void checkStateOfAllChannels()
    {
        BufferModel source(3);
        Latest proxy(&source);
        QVector<int> states;
        for (const int row : {-1, 1, 0, 2}) {
            proxy.setData(proxy.index(row, 0), Qt::Unchecked, Qt::CheckStateRole);
            states << proxy.headerData(0, Qt::Horizontal, Qt::CheckStateRole).toInt();
        }
        QCOMPARE(
            states,
            QVector<int>({Qt::Checked, Qt::PartiallyChecked, Qt::PartiallyChecked, Qt::Unchecked}));
    }

    void channelCells()
    {
        BufferModel source(3);
        source.act("append 1 1; append 2 2; append 3 3");
        const Latest proxy(&source);
        const QColor color = source.index(0, 2).data(Qt::BackgroundRole).value<QBrush>().color();
        QCOMPARE(proxy.index(1, 0).data(Qt::BackgroundRole).value<QBrush>(),
                 QBrush(color.lighter(140)));
        QCOMPARE(proxy.flags(proxy.index(0, 0)),
                 Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsUserCheckable
                     | Qt::ItemIsEnabled);
        QCOMPARE(proxy.flags(proxy.index(0, 1)), source.flags(source.index(1, 1)));
        QCOMPARE(proxy.flags(QModelIndex()), Qt::ItemIsEnabled);
        // A click on a reading must not toggle the check box of the channel.
        QCOMPARE(proxy.buddy(proxy.index(0, 1)), proxy.index(0, 1));

        QCOMPARE(proxy.mapToSource(proxy.index(1, 0)), source.index(0, 2));
        QCOMPARE(proxy.mapToSource(proxy.index(1, 1)), source.index(3, 2));
        QVERIFY(!proxy.mapFromSource(source.index(2, 2)).isValid());
        QVERIFY(!proxy.mapFromSource(source.index(0, 0)).isValid());
        const QItemSelection all(proxy.index(0, 0), proxy.index(2, 1));
        QCOMPARE(proxy.mapSelectionFromSource(proxy.mapSelectionToSource(all)), all);
        QVERIFY(!proxy.index(3, 0).isValid() && !proxy.index(0, 2).isValid());
        QVERIFY(isFatal("Invalid model index passed to RVXLatestPlotDataProxyModel::mapToSource",
                        [&proxy] { proxy.mapToSource(proxy.createIndex(0, 2)); }));
    }

    void draggedNames()
    {
        BufferModel source(3);
        const Latest proxy(&source);
        QCOMPARE(proxy.mimeTypes(), QStringList("application/vnd.text.list"));
        const std::unique_ptr<QMimeData> mime(
            proxy.mimeData({proxy.index(2, 0), QModelIndex(), proxy.index(0, 0)}));
        // Length in bytes, big endian, then UTF-16.
        QCOMPARE(mime->data("application/vnd.text.list").toHex(),
                 QByteArray("00000006006300680033"
                            "00000006006300680031"));
    }

    void sourcesThatAreNoPlotModels()
    {
        QStandardItemModel source(2, 3);
        source.setItem(0, 1, new QStandardItem("left"));
        source.setItem(1, 1, new QStandardItem("5"));
        Latest proxy;
        const ModelWatch watch(&proxy);
        proxy.setSourceModel(&source);
        QCOMPARE(proxy.text(), QString("Data: left=5 ="));
        source.removeColumns(0, 3);
        QCOMPARE(proxy.rowCount(), 0);
        proxy.setSourceModel(nullptr);
        QCOMPARE(proxy.rowCount(), 0);
    }

    //! Two tables that showed each other would look for their units for ever.
    void aSourceThatStandsOnTheTable()
    {
        RVXLatestPlotDataProxyModel one, other, third;
        other.setSourceModel(&one);
        third.setSourceModel(&other);
        for (QAbstractItemModel *refused : {&one, &other, &third})
            one.setSourceModel(refused);
        QVERIFY(!one.sourceModel());
        BufferModel source(2);
        one.setSourceModel(&source);
        QCOMPARE(one.rowCount(), 2);
    }

    void namesAreReadable_data()
    {
        tableFrom(R"(
            | background | foreground | expected
            no colours | | | white
            written for paper | | black | white
            dark | darkblue | | white
            bright | yellow | | black
            both are the source's | yellow | darkred | darkred
        )");
    }
    void namesAreReadable()
    {
        const auto brush = [](const QString &color) {
            return color.isEmpty() ? QVariant() : QBrush(QColor(color));
        };
        QStandardItemModel source(2, 2);
        source.setData(source.index(0, 1), brush(cell("background")), Qt::BackgroundRole);
        source.setData(source.index(0, 1), brush(cell("foreground")), Qt::ForegroundRole);
        const Latest proxy(&source);
        const auto shown = proxy.index(0, 0).data(Qt::ForegroundRole).value<QBrush>();
        QCOMPARE(shown.color(), QColor(cell("expected")));
    }

    void connectionsOfAHostStay()
    {
        BufferModel former(1), another(1);
        Latest proxy(&former);
        int heard = 0;
        // The table is the receiver, as in the library's connections.
        connect(&former, &QAbstractItemModel::rowsInserted, &proxy, [&heard] { ++heard; });
        proxy.setSourceModel(&another);
        ModelLog log(&proxy);
        former.append(1, 1);
        former.SetUnits(nullptr);
        QCOMPARE(heard, 1);
        QCOMPARE(log.take(), QString());
    }

    void aSourceThatGoes()
    {
        auto source = std::make_unique<BufferModel>(2);
        Latest proxy;
        bool wasAsked = false;
        // Connected before the table, which has not heard of the deletion yet.
        connect(source.get(), &QObject::destroyed, this, [&] {
            wasAsked = true;
            QVERIFY(!proxy.setData(proxy.createIndex(0, 0), 0, Qt::CheckStateRole));
            QVERIFY(!proxy.setHeaderData(1, Qt::Horizontal, 0) && proxy.submit());
            QVERIFY(!proxy.canFetchMore({})
                    && !proxy.dropMimeData(nullptr, Qt::CopyAction, 0, 0, {}));
            QVERIFY(!proxy.canDropMimeData(nullptr, Qt::CopyAction, 0, 0, {}));
            QCOMPARE(proxy.supportedDragActions() | proxy.supportedDropActions(), Qt::IgnoreAction);
            QCOMPARE(proxy.span(proxy.createIndex(0, 1)), QSize(1, 1));
            QVERIFY(!proxy.createIndex(0, 1).data().isValid());
            QCOMPARE(proxy.title(), QString("Data"));
            proxy.fetchMore({});
            proxy.sort(0);
            proxy.revert();
        });
        proxy.setSourceModel(source.get());
        ModelLog log(&proxy);
        source.reset();
        QVERIFY(wasAsked);
        QCOMPARE(log.take(), QString("reset?, reset!"));
        proxy.sort(1);
        proxy.fetchMore({});
        QVERIFY(proxy.submit());
        QCOMPARE(proxy.rowCount(), 0);
        BufferModel another(1);
        proxy.setSourceModel(&another);
        QCOMPARE(proxy.rowCount(), 1);
    }

    //! What was cleared and brought back has the digits that it had; another acquisition chooses them anew.
    void digitsOutlastAClear()
    {
        RVXMultichannelDeviceModel model(1);
        model.setChannels({{}});
        const Units::A ampere;
        model.SetUnits(&ampere);
        Latest table(&model);
        table.setSiPrefix(true);
        int row = 0;
        const auto textAfter = [&](int readings, double noise) {
            for (int i = 0; i < readings; ++i, ++row)
                model.appendRows({double(row)}, {5.0 + (row % 2 ? noise : -noise)});
            return table.index(0, 1).data().toString();
        };
        QCOMPARE(textAfter(64, 0.003), QString("5.003 A")); // a standard deviation of 0.007
        const QString before = textAfter(64, 0.005); // of 0.012
        QCOMPARE(before, QString("5.005 A"));
        const auto taken = model.takeReadings();
        QCOMPARE(textAfter(2, 0.005), before); // two readings have no noise
        model.putReadingsBefore(taken);
        QCOMPARE(textAfter(0, 0.005), before);
        model.setChannels({{}});
        QCOMPARE(textAfter(64, 0.005), QString("5.00 A"));
    }

    //! Rounding errors of readings without noise are not taken for noise, also where a zero was subtracted.
    void roundingErrorsAreNoNoise_data()
    {
        columns<double, double, QString>("step", "zero", "text");
        row("a straight line", 0.1, 0.0, "6.300 A");
        row("a straight line less a zero", 0.1, 0.3, "6.000 A");
        row("a constant", 0.0, 0.0, "0 A");
    }
    void roundingErrorsAreNoNoise()
    {
        RVXMultichannelDeviceModel model(1);
        const Units::A ampere;
        model.SetUnits(&ampere);
        for (int i = 0; i < 64; ++i)
            model.appendRows({double(i)}, {cell<double>("step") * i});
        RVXZeroingProxyModel zeroed;
        zeroed.setSourceModel(&model);
        zeroed.setZeros({cell<double>("zero")});
        Latest table(&zeroed);
        table.setSiPrefix(true);
        QTEST(table.index(0, 1).data().toString(), "text");
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXLatestPlotDataProxyModel)
#include "tst_RVXLatestPlotDataProxyModel.moc"
