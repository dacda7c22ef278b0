// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"

// With this header alone, a host can connect unitsChanged() by its address, and delete what seriesData() returns.
static_assert(sizeof(Corvale_Qt::Units::MeasurementUnit) > 0);
static_assert(sizeof(QwtSeriesData<QPointF>) > 0);

#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/ModelLog.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"

#include <QBrush>

using namespace Corvale_Qt;

namespace {

// A fixed table of readings; what is above 100 is out of the instrument's range.
class TableModel : public RVXAbstractDeviceDataModel
{
public:
    explicit TableModel(int channels, int samples)
        : m_channels(channels)
        , m_samples(samples)
    {
    }

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override
    {
        return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
    }
    int rowCount(const QModelIndex &parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : m_samples + 1;
    }
    int NumberOfChannels() const override { return m_channels; }
    double doubleData(int row, int column) const override { return row * 50.0 + column; }
    QVariant deviceSpecificData(const QModelIndex &index, int role) const override
    {
        return QStringLiteral("cell %1 %2 role %3").arg(index.row()).arg(index.column()).arg(role);
    }
    bool isOverrange(int channel, int sample) const override
    {
        Q_ASSERT(channel >= 0);
        return doubleData(sample + 1, channel + 1) > 100.0;
    }
    bool SaveDataToFile(const QString &) const override { return false; }
    void Clear() override { }

    using RVXAbstractDeviceDataModel::sampleDue;
    using RVXAbstractDeviceDataModel::sampleTaken;

private:
    int m_channels;
    int m_samples;
};

} // namespace

class tst_RVXAbstractDeviceDataModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewModel();
    void looksOfTheTable_data();
    void looksOfTheTable();
    void checkBoxesSwitchChannels();
    void setDataRefuses_data();
    void setDataRefuses();
    void moreChannelsThanFlags();
    void unitsAreAnnounced();
    void headers();
    void samplingPeriod();
};

void tst_RVXAbstractDeviceDataModel::aNewModel()
{
    TableModel model(3, 2);
    const ModelWatch watch(&model);
    QCOMPARE(watch.complaints(), QString());
    QCOMPARE(model.units()->name(), QString("A"));
    QCOMPARE(model.units()->description(), QString("A"));
    QCOMPARE(int(model.units()->type()), 0);
    QCOMPARE(model.xUnits()->description(), QString("Time (seconds)"));
    QCOMPARE(model.MaxBufferSize(), 100000);
    QCOMPARE(model.PlotWidthHintPoints(), 256);
    QCOMPARE(model.PlotWidthHint(), 0.0);
    QVERIFY(model.autoUpdate());
    QCOMPARE(int(model.flags(QModelIndex())), 32);
    QCOMPARE(int(model.flags(model.index(0, 0))), 33);
    QCOMPARE(int(model.flags(model.index(1, 1))), 33);
    QCOMPARE(int(model.flags(model.index(0, 1))), 49);
    QVERIFY(model.hasChildren());
    QVERIFY(!model.hasChildren(model.index(1, 1)));
}

void tst_RVXAbstractDeviceDataModel::looksOfTheTable_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("expected");

    const QVariant none;
    const auto brush = [](const QColor &colour) {
        return QVariant(QBrush(colour));
    };
    QTest::newRow("corner's text") << 0 << 0 << int(Qt::DisplayRole) << QVariant("Time (s)");
    QTest::newRow("corner has no other looks") << 0 << 0 << int(Qt::BackgroundRole) << none;
    QTest::newRow("subclass: text") << 1 << 2 << 0 << QVariant("cell 1 2 role 0");
    QTest::newRow("subclass: edit") << 1 << 2 << 2 << QVariant("cell 1 2 role 2");
    QTest::newRow("subclass: tool tip") << 0 << 2 << 3 << QVariant("cell 0 2 role 3");
    QTest::newRow("subclass: number") << 1 << 0 << 33 << QVariant("cell 1 0 role 33");
    QTest::newRow("subclass: user's") << 1 << 2 << 256 << QVariant("cell 1 2 role 256");
    QTest::newRow("no icon where nothing is edited") << 1 << 1 << int(Qt::DecorationRole) << none;
    QTest::newRow("header's font")
        << 0 << 1 << int(Qt::FontRole) << QVariant(QFont("Arial", 10, QFont::DemiBold));
    QTest::newRow("samples' font") << 1 << 0 << int(Qt::FontRole) << QVariant(QFont("Arial", 13));
    QTest::newRow("alignment") << 1 << 1 << int(Qt::TextAlignmentRole) << QVariant(130);
    QTest::newRow("channel's colour")
        << 0 << 3 << int(Qt::BackgroundRole) << brush(RVXPlotColors::color(2));
    QTest::newRow("good reading") << 1 << 1 << int(Qt::BackgroundRole) << brush(Qt::black);
    QTest::newRow("good reading's text") << 1 << 1 << int(Qt::ForegroundRole) << brush(Qt::green);
    QTest::newRow("over range") << 2 << 1 << int(Qt::BackgroundRole) << brush(Qt::red);
    QTest::newRow("over range's text") << 2 << 1 << int(Qt::ForegroundRole) << brush(Qt::white);
    QTest::newRow("time is never over range")
        << 2 << 0 << int(Qt::BackgroundRole) << brush(Qt::black);
    QTest::newRow("time's text") << 2 << 0 << int(Qt::ForegroundRole) << brush(Qt::green);
    QTest::newRow("samples have no box") << 1 << 1 << int(Qt::CheckStateRole) << none;
    QTest::newRow("channels are on at first") << 0 << 2 << int(Qt::CheckStateRole) << QVariant(2);
    QTest::newRow("a role of nobody's") << 1 << 1 << 35 << none;
}

void tst_RVXAbstractDeviceDataModel::looksOfTheTable()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(int, role);
    QFETCH(QVariant, expected);
    const TableModel model(3, 2);
    QCOMPARE(model.data(model.index(row, column), role), expected);
}

void tst_RVXAbstractDeviceDataModel::checkBoxesSwitchChannels()
{
    TableModel model(3, 2);
    ModelLog log(&model);
    const QModelIndex box = model.index(0, 3);
    QVERIFY(model.setData(box, Qt::Unchecked, Qt::CheckStateRole));
    QCOMPARE(log.take(), QString("changed (0,3)-(0,3)"));
    QCOMPARE(model.data(box, Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QCOMPARE(model.data(model.index(0, 2), Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QVERIFY(model.setData(box, Qt::Unchecked, Qt::CheckStateRole));
    QCOMPARE(log.take(), QString());
    QVERIFY(model.setData(box, Qt::PartiallyChecked, Qt::CheckStateRole));
    QCOMPARE(model.data(box, Qt::CheckStateRole).toInt(), int(Qt::Checked));
}

void tst_RVXAbstractDeviceDataModel::setDataRefuses_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");
    QTest::newRow("no index") << -1 << -1 << int(Qt::CheckStateRole);
    QTest::newRow("the corner") << 0 << 0 << int(Qt::CheckStateRole);
    QTest::newRow("a sample") << 1 << 1 << int(Qt::CheckStateRole);
    QTest::newRow("another role") << 0 << 1 << int(Qt::EditRole);
}

void tst_RVXAbstractDeviceDataModel::setDataRefuses()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(int, role);
    TableModel model(3, 2);
    ModelLog log(&model);
    QVERIFY(!model.setData(model.index(row, column), Qt::Unchecked, role));
    QCOMPARE(log.take(), QString());
}

void tst_RVXAbstractDeviceDataModel::moreChannelsThanFlags()
{
    TableModel model(300, 1);
    QVERIFY(model.setData(model.index(0, 256), Qt::Unchecked, Qt::CheckStateRole));
    QVERIFY(!model.setData(model.index(0, 257), Qt::Unchecked, Qt::CheckStateRole));
    QCOMPARE(model.data(model.index(0, 257), Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
}

void tst_RVXAbstractDeviceDataModel::unitsAreAnnounced()
{
    TableModel empty(3, 0);
    TableModel model(3, 2);
    const Units::nA nA;
    for (TableModel *each : {&empty, &model}) {
        ModelLog log(each);
        QSignalSpy spy(each, SIGNAL(unitsChanged(const Corvale_Qt::Units::MeasurementUnit *)));
        each->SetUnits(&nA);
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.at(0).at(0).value<const Units::MeasurementUnit *>(), &nA);
        QCOMPARE(log.take(), each == &empty ? QString() : QString("changed (1,1)-(2,3)"));
        QCOMPARE(each->units(), &nA);
    }
}

void tst_RVXAbstractDeviceDataModel::headers()
{
    const TableModel model(3, 2);
    QCOMPARE(model.headerData(0, Qt::Horizontal), QVariant("Time (s)"));
    QCOMPARE(model.headerData(2, Qt::Horizontal), QVariant("cell 0 2 role 0"));
    QCOMPARE(model.headerData(2, Qt::Horizontal, Qt::TextAlignmentRole).toInt(), 4);
    QVERIFY(!model.headerData(2, Qt::Horizontal, Qt::BackgroundRole).isValid());
    QVERIFY(!model.headerData(2, Qt::Vertical).isValid());
    QVERIFY(!model.headerData(9, Qt::Horizontal).isValid());
}

void tst_RVXAbstractDeviceDataModel::samplingPeriod()
{
    TableModel model(1, 0);
    QVERIFY(model.sampleDue());
    model.sampleTaken();
    QVERIFY2(model.sampleDue(), "running free, every reading counts");
    model.setPeriod(1);
    QVERIFY(!model.sampleDue());
    QTRY_VERIFY(model.sampleDue());
    model.sampleTaken();
    QVERIFY(!model.sampleDue());
    QTRY_VERIFY(model.sampleDue());
    model.setPeriod(100000);
    QVERIFY(!model.sampleDue());
    model.setPeriod(-3);
    QVERIFY(model.sampleDue());
}

CORVALE_QT_TEST_MAIN(tst_RVXAbstractDeviceDataModel)
#include "tst_RVXAbstractDeviceDataModel.moc"
