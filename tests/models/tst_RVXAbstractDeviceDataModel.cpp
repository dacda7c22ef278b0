// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"

#include <type_traits>

// With this header alone, a host can connect unitsChanged() by its address, and delete what seriesData() returns.
static_assert(std::is_polymorphic_v<Corvale_Qt::Units::MeasurementUnit>);
static_assert(std::has_virtual_destructor_v<QwtSeriesData<QPointF>>);

#include "corvale_qt/units/Units.h"
#include "tests/support/ModelLog.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

// A fixed table of readings; what is above 101 is out of the instrument's range.
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
        return doubleData(sample + 1, channel + 1) > 101.0;
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
    void aNewModel()
    {
        TableModel model(3, 2);
        const ModelWatch watch(&model);
        QCOMPARE(model.units()->name() + ", " + model.xUnits()->description(),
                 QString("A, Time (seconds)"));
        QCOMPARE(int(model.units()->type()), 0);
        QCOMPARE(model.PlotWidthHint(), 0.0);
        QVERIFY(model.autoUpdate());
        QVector<int> flags{int(model.flags(QModelIndex()))};
        for (const QPoint &cell : {QPoint(0, 0), QPoint(1, 1), QPoint(0, 1)})
            flags << int(model.flags(model.index(cell.x(), cell.y())));
        QCOMPARE(flags, QVector<int>({32, 33, 33, 49}));
        QVERIFY(model.hasChildren());
        QVERIFY(!model.hasChildren(model.index(1, 1)));
    }

    void looksOfTheTable_data()
    {
        // All roles that a cell answers: fonts with size and weight, "own" for what the subclass answers.
        tableFrom(R"(
            | int row | int column | looks
            corner | 0 | 0 | 0=Time (s)
            header | 0 | 3
                | 0=own, 2=own, 3=own, 6=Arial 10 63, 7=130, 8=#ff00ff, 9=#000000, 10=2, 33=own, 256=own
            time | 1 | 0
                | 0=own, 2=own, 3=own, 6=Arial 13 50, 7=130, 8=#000000, 9=#00ff00, 33=own, 256=own
            good reading beside one over range | 2 | 1
                | 0=own, 2=own, 3=own, 6=Arial 13 50, 7=130, 8=#000000, 9=#00ff00, 33=own, 256=own
            over range | 2 | 2
                | 0=own, 2=own, 3=own, 6=Arial 13 50, 7=130, 8=#ff0000, 9=#ffffff, 33=own, 256=own
            time of a reading over range | 2 | 0
                | 0=own, 2=own, 3=own, 6=Arial 13 50, 7=130, 8=#000000, 9=#00ff00, 33=own, 256=own
        )");
    }
    void looksOfTheTable()
    {
        QFETCH(int, row);
        QFETCH(int, column);
        const TableModel model(3, 2);
        const auto text = [&](int role) {
            const QVariant value = model.data(model.index(row, column), role);
            if (value.canConvert<QBrush>())
                return value.value<QBrush>().color().name();
            const auto font = value.value<QFont>();
            if (value.type() == QVariant::Font)
                return QString("%1 %2 %3")
                    .arg(font.family())
                    .arg(font.pointSize())
                    .arg(font.weight());
            const QString own = QString("cell %1 %2 role %3").arg(row).arg(column).arg(role);
            const QString shown = value.canConvert<QString>() ? value.toString() : value.typeName();
            return shown == own ? QString("own") : shown;
        };
        QStringList looks;
        for (int role = 0; role <= Qt::UserRole; ++role) {
            if (!text(role).isEmpty())
                looks << QString("%1=%2").arg(role).arg(text(role));
        }
        QTEST(looks.join(", "), "looks");
    }

    void checkBoxesSwitchChannels()
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

    void setDataRefuses_data()
    {
        tableFrom(R"(
            | int row | int column | int role
            no index | -1 | -1 | 10
            the corner | 0 | 0 | 10
            a sample | 1 | 1 | 10
            another role | 0 | 1 | 2
        )");
    }
    void setDataRefuses()
    {
        QFETCH(int, column);
        QFETCH(int, role);
        TableModel model(3, 2);
        ModelLog log(&model);
        QVERIFY(!model.setData(model.index(cell<int>("row"), column), Qt::Unchecked, role));
        QCOMPARE(log.take(), QString());
    }

    void moreChannelsThanFlags()
    {
        TableModel model(300, 1);
        QVERIFY(model.setData(model.index(0, 256), Qt::Unchecked, Qt::CheckStateRole));
        QVERIFY(!model.setData(model.index(0, 257), Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(model.data(model.index(0, 257), Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    }

    void unitsAreAnnounced()
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

    void headers()
    {
        const TableModel model(3, 2);
        QCOMPARE(model.headerData(0, Qt::Horizontal), QVariant("Time (s)"));
        QCOMPARE(model.headerData(2, Qt::Horizontal), QVariant("cell 0 2 role 0"));
        QCOMPARE(model.headerData(2, Qt::Horizontal, Qt::TextAlignmentRole).toInt(), 4);
        QVERIFY(!model.headerData(2, Qt::Horizontal, Qt::BackgroundRole).isValid());
        QVERIFY(!model.headerData(2, Qt::Vertical).isValid());
        QVERIFY(!model.headerData(9, Qt::Horizontal).isValid());
    }

    void samplingPeriod()
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
};

CORVALE_QT_TEST_MAIN(tst_RVXAbstractDeviceDataModel)
#include "tst_RVXAbstractDeviceDataModel.moc"
