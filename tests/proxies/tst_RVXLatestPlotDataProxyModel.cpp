// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXLatestPlotDataProxyModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/BufferModel.h"
#include "tests/support/ModelLog.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"

#include <QBrush>
#include <QIdentityProxyModel>
#include <QMimeData>
#include <QStandardItemModel>

#include <limits>
#include <sys/wait.h>
#include <unistd.h>

using namespace Corvale_Qt;

namespace {

QString cells(const RVXLatestPlotDataProxyModel &proxy)
{
    QStringList rows;
    for (int row = 0; row < proxy.rowCount(); ++row)
        rows << proxy.index(row, 0).data().toString() + '=' + proxy.index(row, 1).data().toString();
    return rows.join(' ');
}

// Makes indexes that index() would not return.
class Loose : public RVXLatestPlotDataProxyModel
{
public:
    using RVXLatestPlotDataProxyModel::createIndex;
};

//! Returns what a process that runs \a act writes on its error stream before it is killed.
template<typename Act>
QByteArray lastWords(Act act)
{
    int ends[2];
    if (pipe(ends) != 0)
        return "no pipe";
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDERR_FILENO);
        qInstallMessageHandler(nullptr);
        signal(SIGABRT, SIG_DFL);
        act();
        _exit(0);
    }
    close(ends[1]);
    QByteArray words;
    char buffer[256];
    for (ssize_t n = 0; (n = read(ends[0], buffer, sizeof buffer)) > 0;)
        words.append(buffer, int(n));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? words : "it lived on: " + words;
}

} // namespace

class tst_RVXLatestPlotDataProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noSourceAndNoSamples();
    void theNewestSample();
    void whatIsAnnounced();
    void aRowThatIsEdited();
    void headers();
    void theUnitBelowAChainOfProxies();
    void channelsInDifferentUnits();
    void aMergedChannelWithoutReadings();
    void checkStateOfAllChannels();
    void channelCells();
    void draggedNames();
    void indexesOfTheSource();
    void anIndexThatCannotBe();
    void sourcesThatAreNoPlotModels();
    void namesAreReadable_data();
    void namesAreReadable();
    void aSourceThatGoes();
    void connectionsOfAHostStay();
};

void tst_RVXLatestPlotDataProxyModel::noSourceAndNoSamples()
{
    RVXLatestPlotDataProxyModel proxy;
    const ModelWatch watch(&proxy);
    QCOMPARE(proxy.rowCount(), 0);
    QCOMPARE(proxy.columnCount(), 2);
    QCOMPARE(proxy.headerData(1, Qt::Horizontal).toString(), QString("Data"));
    QVERIFY(!proxy.headerData(0, Qt::Horizontal, Qt::CheckStateRole).isValid());

    BufferModel source(3);
    proxy.setSourceModel(&source);
    QCOMPARE(cells(proxy), QString("ch1=N/A ch2=N/A ch3=N/A"));
    const QModelIndex data = proxy.index(1, 1);
    QCOMPARE(data.data(Qt::EditRole), QVariant("0"));
    QCOMPARE(data.data(Qt::BackgroundRole).value<QBrush>(), QBrush(Qt::black));
    QCOMPARE(data.data(Qt::ForegroundRole).value<QBrush>(), QBrush(QColor(0, 255, 0)));
    QCOMPARE(data.data(RVXAbstractPlotDataModel::NumericValueRole), QVariant(0));
    QVERIFY(!data.data(Qt::CheckStateRole).isValid());
    QVERIFY(!data.data(Qt::ToolTipRole).isValid());
    QCOMPARE(watch.complaints(), QString());
}

void tst_RVXLatestPlotDataProxyModel::theNewestSample()
{
    BufferModel source(2, 3);
    RVXAveragingProxyModel averaging;
    averaging.setSourceModel(&source);
    averaging.setAveraging(2);
    RVXLatestPlotDataProxyModel proxy;
    proxy.setSourceModel(&averaging);
    const ModelWatch watch(&proxy);
    for (int i = 1; i <= 5; ++i) {
        source.append(i, i == 5 ? 0.0 : 8.0);
        QCOMPARE(proxy.index(1, 1).data(RVXAbstractPlotDataModel::NumericValueRole).toDouble(),
                 i == 5 ? 5.0 : 9.0);
    }
    QCOMPARE(proxy.index(0, 1).data(Qt::BackgroundRole),
             source.index(3, 1).data(Qt::BackgroundRole));
    source.Clear();
    QCOMPARE(cells(proxy), QString("ch1=N/A ch2=N/A"));
    QCOMPARE(watch.complaints(), QString());
}

void tst_RVXLatestPlotDataProxyModel::whatIsAnnounced()
{
    const Units::nA nA;
    BufferModel source(3);
    RVXLatestPlotDataProxyModel proxy;
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
    QCOMPARE(announced("clear"), QString("reset?, reset!"));
}

void tst_RVXLatestPlotDataProxyModel::aRowThatIsEdited()
{
    BufferModel source(3);
    source.append(1, 1);
    RVXLatestPlotDataProxyModel proxy;
    proxy.setSourceModel(&source);
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

void tst_RVXLatestPlotDataProxyModel::headers()
{
    const Units::nA nA;
    BufferModel source(1);
    RVXLatestPlotDataProxyModel proxy;
    proxy.setSourceModel(&source);
    QCOMPARE(proxy.headerData(0, Qt::Horizontal).toString(), QString("Channel"));
    QCOMPARE(proxy.headerData(1, Qt::Horizontal).toString(), QString("Data (A)"));
    source.SetUnits(&nA);
    QCOMPARE(proxy.headerData(1, Qt::Horizontal).toString(), QString("Data (nA)"));
    source.SetUnits(nullptr);
    QCOMPARE(proxy.headerData(1, Qt::Horizontal).toString(), QString("Data"));
    QVERIFY(!proxy.headerData(2, Qt::Horizontal).isValid());
    QVERIFY(!proxy.headerData(0, Qt::Vertical).isValid());
    QCOMPARE(proxy.headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
             int(Qt::AlignHCenter));
}

void tst_RVXLatestPlotDataProxyModel::theUnitBelowAChainOfProxies()
{
    const Units::nA nA;
    const Units::mA mA;
    BufferModel former(1), source(1);
    RVXAveragingProxyModel averaging;
    RVXAveragingProxyModel twice;
    QIdentityProxyModel ofAHost;
    RVXLatestPlotDataProxyModel proxy;
    averaging.setSourceModel(&former);
    twice.setSourceModel(&averaging);
    ofAHost.setSourceModel(&twice);
    proxy.setSourceModel(&ofAHost);
    averaging.setSourceModel(&source);
    ModelLog log(&proxy);
    source.SetUnits(&nA);
    QCOMPARE(log.take(), QString("header 0-1"));
    QCOMPARE(proxy.headerData(1, Qt::Horizontal).toString(), QString("Data (nA)"));
    former.SetUnits(&mA);
    QCOMPARE(log.take(), QString());

    // Without a signal for the unit, all samples still change with it.
    source.append(1, 1);
    source.append(2, 1);
    source.blockSignals(true);
    source.SetUnits(&mA);
    source.blockSignals(false);
    log.take();
    Q_EMIT source.dataChanged(source.index(1, 1), source.index(2, 1));
    QCOMPARE(log.take(), QString("changed (0,1)-(0,1), header 1-1"));
}

void tst_RVXLatestPlotDataProxyModel::channelsInDifferentUnits()
{
    const Units::nA nA;
    const Units::mV mV;
    const Units::mV another;
    const double gap = std::numeric_limits<double>::quiet_NaN();
    BufferModel source(3);
    source.channelUnits = {{2, &mV}, {3, nullptr}};
    source.SetUnits(&nA);
    RVXAveragingProxyModel averaging;
    averaging.setSourceModel(&source);
    RVXLatestPlotDataProxyModel proxy;
    proxy.setSourceModel(&averaging);
    const ModelWatch watch(&proxy);
    const auto title = [&proxy] {
        return proxy.headerData(1, Qt::Horizontal).toString();
    };
    QCOMPARE(title() + ": " + cells(proxy), QString("Data: ch1=N/A ch2=N/A ch3=N/A"));
    source.append({{1, {4e-9, 0.25, 2}}});
    QCOMPARE(cells(proxy), QString("ch1=4.0000 nA ch2=2.500e+02 mV ch3=2"));
    QCOMPARE(proxy.index(1, 1).data(Qt::EditRole).toString(), QString("2.500e+02"));
    source.append({{2, {4e-9, gap, 2}}});
    QCOMPARE(cells(proxy), QString("ch1=4.0000 nA ch2=nan ch3=2"));

    // With one unit for all channels, even by different objects, the title shows it.
    source.channelUnits = {{2, &mV}};
    ModelLog log(&proxy);
    source.SetUnits(&another);
    QCOMPARE(log.take(), QString("changed (0,1)-(2,1), header 0-1, changed (0,1)-(2,1)"));
    QCOMPARE(title(), QString("Data (mV)"));
    QCOMPARE(proxy.index(0, 1).data().toString(), QString("4.000e-06"));
    QCOMPARE(watch.complaints(), QString());
}

void tst_RVXLatestPlotDataProxyModel::aMergedChannelWithoutReadings()
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
    RVXLatestPlotDataProxyModel proxy;
    proxy.setSourceModel(&zeroing);
    current.AddData(1, 4e-9);
    QCOMPARE(cells(proxy), QString("1=4.0000 nA 1=N/A"));
    zeroing.zeroNow();
    QCOMPARE(cells(proxy), QString("1=0.0000 nA 1=N/A"));
    voltage.AddData(1, 0.5);
    QCOMPARE(cells(proxy), QString("1=0.0000 nA 1=5.000e+02 mV"));
}

void tst_RVXLatestPlotDataProxyModel::checkStateOfAllChannels()
{
    BufferModel source(3);
    RVXLatestPlotDataProxyModel proxy;
    proxy.setSourceModel(&source);
    const auto all = [&] {
        return proxy.headerData(0, Qt::Horizontal, Qt::CheckStateRole).toInt();
    };
    QCOMPARE(all(), int(Qt::Checked));
    QVERIFY(proxy.setData(proxy.index(1, 0), Qt::Unchecked, Qt::CheckStateRole));
    QCOMPARE(source.index(0, 2).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QCOMPARE(all(), int(Qt::PartiallyChecked));
    proxy.setData(proxy.index(0, 0), Qt::Unchecked, Qt::CheckStateRole);
    QCOMPARE(all(), int(Qt::PartiallyChecked));
    proxy.setData(proxy.index(2, 0), Qt::Unchecked, Qt::CheckStateRole);
    QCOMPARE(all(), int(Qt::Unchecked));
}

void tst_RVXLatestPlotDataProxyModel::channelCells()
{
    BufferModel source(2);
    RVXLatestPlotDataProxyModel proxy;
    proxy.setSourceModel(&source);
    const QColor colour = source.index(0, 2).data(Qt::BackgroundRole).value<QBrush>().color();
    QCOMPARE(proxy.index(1, 0).data(Qt::BackgroundRole).value<QBrush>(),
             QBrush(colour.lighter(140)));
    QCOMPARE(proxy.flags(proxy.index(0, 0)),
             Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsUserCheckable
                 | Qt::ItemIsEnabled);
    source.append(1, 1);
    QCOMPARE(proxy.flags(proxy.index(0, 1)), source.flags(source.index(1, 1)));
    QCOMPARE(proxy.flags(QModelIndex()), Qt::ItemIsEnabled);
    // A click on a reading must not toggle the check box of the channel.
    QCOMPARE(proxy.buddy(proxy.index(0, 1)), proxy.index(0, 1));
}

void tst_RVXLatestPlotDataProxyModel::draggedNames()
{
    BufferModel source(3);
    RVXLatestPlotDataProxyModel proxy;
    proxy.setSourceModel(&source);
    QCOMPARE(proxy.mimeTypes(), QStringList("application/vnd.text.list"));
    const std::unique_ptr<QMimeData> mime(
        proxy.mimeData({proxy.index(2, 0), QModelIndex(), proxy.index(0, 0)}));
    // Length in bytes, big endian, then UTF-16.
    QCOMPARE(mime->data("application/vnd.text.list").toHex(),
             QByteArray("00000006006300680033"
                        "00000006006300680031"));
}

void tst_RVXLatestPlotDataProxyModel::indexesOfTheSource()
{
    BufferModel source(3);
    for (int i = 1; i <= 3; ++i)
        source.append(i, i);
    RVXLatestPlotDataProxyModel proxy;
    proxy.setSourceModel(&source);
    QCOMPARE(proxy.mapToSource(proxy.index(1, 0)), source.index(0, 2));
    QCOMPARE(proxy.mapToSource(proxy.index(1, 1)), source.index(3, 2));
    QCOMPARE(proxy.mapFromSource(source.index(0, 2)), proxy.index(1, 0));
    QCOMPARE(proxy.mapFromSource(source.index(3, 2)), proxy.index(1, 1));
    QVERIFY(!proxy.mapFromSource(source.index(2, 2)).isValid());
    QVERIFY(!proxy.mapFromSource(source.index(0, 0)).isValid());
    const QItemSelection all(proxy.index(0, 0), proxy.index(2, 1));
    QCOMPARE(proxy.mapSelectionFromSource(proxy.mapSelectionToSource(all)), all);
    QVERIFY(!proxy.index(3, 0).isValid() && !proxy.index(0, 2).isValid());
}

void tst_RVXLatestPlotDataProxyModel::anIndexThatCannotBe()
{
    BufferModel source(1);
    Loose proxy;
    proxy.setSourceModel(&source);
    const QByteArray words = lastWords([&] {
        proxy.mapToSource(proxy.createIndex(0, 2));
    });
    QVERIFY2(
        words.startsWith("Invalid model index passed to RVXLatestPlotDataProxyModel::mapToSource"),
        words.constData());
}

void tst_RVXLatestPlotDataProxyModel::sourcesThatAreNoPlotModels()
{
    QStandardItemModel source(2, 3);
    source.setItem(0, 1, new QStandardItem("left"));
    source.setItem(1, 1, new QStandardItem("5"));
    source.item(0, 1)->setBackground(Qt::darkRed);
    RVXLatestPlotDataProxyModel proxy;
    const ModelWatch watch(&proxy);
    proxy.setSourceModel(&source);
    QCOMPARE(cells(proxy), QString("left=5 ="));
    QCOMPARE(proxy.headerData(1, Qt::Horizontal).toString(), QString("Data"));
    source.removeColumns(0, 3);
    QCOMPARE(proxy.rowCount(), 0);
    proxy.setSourceModel(nullptr);
    QCOMPARE(proxy.rowCount(), 0);
    QCOMPARE(watch.complaints(), QString());
}

void tst_RVXLatestPlotDataProxyModel::namesAreReadable_data()
{
    QTest::addColumn<QVariant>("background");
    QTest::addColumn<QVariant>("foreground");
    QTest::addColumn<QColor>("expected");
    const QVariant none;
    const QColor white(Qt::white);
    const QColor black(Qt::black);
    const auto brush = [](Qt::GlobalColor colour) {
        return QVariant(QBrush(colour));
    };
    QTest::newRow("no colours") << none << none << white;
    QTest::newRow("written for paper") << none << brush(Qt::black) << white;
    QTest::newRow("dark") << brush(Qt::darkBlue) << none << white;
    QTest::newRow("bright") << brush(Qt::yellow) << none << black;
    QTest::newRow("both are the source's")
        << brush(Qt::yellow) << brush(Qt::darkRed) << QColor(Qt::darkRed);
}

void tst_RVXLatestPlotDataProxyModel::namesAreReadable()
{
    QFETCH(QVariant, background);
    QFETCH(QVariant, foreground);
    QFETCH(QColor, expected);
    QStandardItemModel source(2, 2);
    source.setData(source.index(0, 1), background, Qt::BackgroundRole);
    source.setData(source.index(0, 1), foreground, Qt::ForegroundRole);
    RVXLatestPlotDataProxyModel proxy;
    proxy.setSourceModel(&source);
    QCOMPARE(proxy.index(0, 0).data(Qt::ForegroundRole).value<QBrush>().color(), expected);
}

void tst_RVXLatestPlotDataProxyModel::connectionsOfAHostStay()
{
    BufferModel former(1), another(1);
    RVXLatestPlotDataProxyModel proxy;
    proxy.setSourceModel(&former);
    int heard = 0;
    // The table is the receiver, as in the library's connections.
    connect(&former, &QAbstractItemModel::rowsInserted, &proxy, [&heard] {
        ++heard;
    });
    proxy.setSourceModel(&another);
    ModelLog log(&proxy);
    former.append(1, 1);
    former.SetUnits(nullptr);
    QCOMPARE(heard, 1);
    QCOMPARE(log.take(), QString());
}

void tst_RVXLatestPlotDataProxyModel::aSourceThatGoes()
{
    RVXLatestPlotDataProxyModel proxy;
    ModelLog log(&proxy);
    {
        BufferModel source(2);
        proxy.setSourceModel(&source);
        log.take();
    }
    QCOMPARE(log.take(), QString("reset?, reset!"));
    QCOMPARE(proxy.rowCount(), 0);
    BufferModel another(1);
    proxy.setSourceModel(&another);
    QCOMPARE(proxy.rowCount(), 1);
}

CORVALE_QT_TEST_MAIN(tst_RVXLatestPlotDataProxyModel)
#include "tst_RVXLatestPlotDataProxyModel.moc"
