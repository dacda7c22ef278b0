// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/models/StyleSheetColors.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/Files.h"
#include "tests/support/ModelLog.h"
#include "tests/support/ModelText.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"

#include <type_traits>

using namespace Corvale_Qt;

// With this header alone, a host can connect unitsChanged() by its address, and delete what seriesData() returns.
static_assert(std::is_polymorphic_v<Corvale_Qt::Units::MeasurementUnit>);
static_assert(std::has_virtual_destructor_v<QwtSeriesData<QPointF>>);

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

constexpr int capacity = 100000;

// Times 1, 2, 3, ... with the value 10 times as large.
void fill(RVXSingleChannelDataModel &model, int from, int to)
{
    for (int i = from; i <= to; ++i)
        model.AddData(i, 10.0 * i);
}

} // namespace

class tst_DeviceModels : public QObject
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

    void repeatedAndZeroTimes()
    {
        RVXSingleChannelDataModel model;
        fill(model, 1, 2);
        ModelLog log(&model);
        model.AddData(2.0, 7.0);
        QCOMPARE(log.take(), QString());
        model.AddData(1.5, 8.0);
        const double nan = std::numeric_limits<double>::quiet_NaN();
        model.AddData(nan, 9.0);
        model.AddData(nan, 10.0);
        QCOMPARE(rowsText(model), QString("1: 10; 2: 20; 1.5: 8; nan: 9; nan: 10"));
        log.take();
        model.AddData(-0.0, 3.0);
        QCOMPARE(log.take(), QString("reset?, reset!, insert 1-1?, insert 1-1!"));
        QCOMPARE(rowsText(model), QString("0: 3"));
        model.AddData(0.0, 4.0);
        QCOMPARE(rowsText(model), QString("0: 4"));
    }

    void announcements_data()
    {
        // "view" calls UpdateView(), "auto" and "defer" switch automatic updates on and off, a number is how many
        // samples are added.
        tableFrom(R"(
            | before | steps | announced | rows
            one by one | | 2 | insert 1-1?, insert 1-1!, insert 2-2?, insert 2-2! | 1-2
            deferred | 2 defer | 3 | | 1-2
            deferred, then seen | 2 defer | 3 view view | insert 3-5?, insert 3-5! | 1-5
            cleared while deferred | 2 defer 3 | clear | reset?, reset! | none
            full, nothing was seen | defer | 100003 | | none
            full, then seen | defer 100003 | view | insert 1-100000?, insert 1-100000! | 4-100003
            full and seen, one more | defer 100003 view | 1 | remove 1-1?, remove 1-1! | 5-100003
            full and seen, one more seen | defer 100003 view 1 | view
                | insert 100000-100000?, insert 100000-100000! | 5-100004
            full, one row was seen | 1 defer 99999 | 3 | remove 1-1?, remove 1-1! | none
            full, then seen after one row | 1 defer 99999 3 | view
                | insert 1-100000?, insert 1-100000! | 4-100003
            full, no longer deferred | defer 100000 auto | 1
                | insert 1-100000?, insert 1-100000!, insert 100000-100000?, remove 1-1?, remove 1-1!,
                  insert 100000-100000! | 2-100001
        )");
    }
    void announcements()
    {
        RVXSingleChannelDataModel model;
        int time = 0;
        const auto act = [&](const QString &steps) {
            for (const QString &step : steps.split(' ', Qt::SkipEmptyParts)) {
                if (step == "auto" || step == "defer")
                    model.setAutoUpdate(step == "auto");
                else if (step == "view")
                    model.UpdateView();
                else if (step == "clear")
                    model.Clear();
                else
                    fill(model, time + 1, time + step.toInt());
                time += step.toInt();
            }
        };
        QFETCH(QString, steps);
        act(cell("before"));
        ModelLog log(&model);
        act(steps);
        QTEST(log.take(), "announced");
        const int last = model.rowCount() - 1;
        const QString rows =
            QString("%1-%2").arg(model.doubleData(1, 0)).arg(int(model.doubleData(last, 0)));
        QTEST(last > 0 ? rows : "none", "rows");
    }

    void aFullBufferRollsOver()
    {
        RVXSingleChannelDataModel model;
        fill(model, 1, capacity);
        const QPersistentModelIndex oldest = model.index(1, 1);
        const QPersistentModelIndex second = model.index(2, 1);
        const QPersistentModelIndex newest = model.index(capacity, 1);
        ModelLog log(&model);
        fill(model, capacity + 1, capacity + 1);
        QCOMPARE(log.take(),
                 QString("insert 100000-100000?, remove 1-1?, remove 1-1!, insert 100000-100000!"));
        QCOMPARE(model.rowCount(), capacity + 1);
        QCOMPARE(model.doubleData(1, 1), 20.0);
        QCOMPARE(model.doubleData(capacity, 0), capacity + 1.0);
        QVERIFY(!oldest.isValid());
        QCOMPARE(second.row(), 1);
        QCOMPARE(newest.row(), capacity);
    }

    void cellsThatHoldNothing()
    {
        RVXSingleChannelDataModel model;
        model.setAutoUpdate(false);
        fill(model, 1, 1);
        QCOMPARE(model.doubleData(0, 0), 0.0);
        QCOMPARE(model.doubleData(0, 1), 1.0);
        for (int row : {-1, 2, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
            QCOMPARE(model.doubleData(row, 0), 0.0);
            QCOMPARE(model.doubleData(row, 1), 0.0);
        }
        // Asked for while the row is announced and not yet stored.
        model.setAutoUpdate(true);
        QVector<double> seen;
        connect(&model, &QAbstractItemModel::rowsAboutToBeInserted, this, [&] {
            seen << model.doubleData(2, 0) << model.data(model.index(2, 1), 33).toDouble();
        });
        model.UpdateView();
        fill(model, 2, 2);
        QCOMPARE(seen, QVector<double>({0.0, 0.0, 0.0, 0.0}));

        QVERIFY(!model.index(0, 2).isValid());
        QVERIFY(!model.index(3, 0).isValid());
        QVERIFY(!model.index(0, 0, model.index(0, 0)).isValid());
    }

    void textsOfCells()
    {
        RVXSingleChannelDataModel model;
        const Units::mA mA;
        model.SetUnits(&mA);
        model.setChannelName("Faraday cup");
        model.AddData(12.5, 0.002);
        const QModelIndex time = model.index(1, 0);
        const QModelIndex value = model.index(1, 1);
        QCOMPARE(readingText(time), QString("1.250e+01 / 1.250e+01 / 1.250e+01 / 12.5"));
        QCOMPARE(readingText(value), QString("2.000e+00 / 2.000e+00 / 2.000e+00 mA / 2"));
        QCOMPARE(readingText(model.index(0, 1)), QString("1 / 1 /  / 1"));
        QVERIFY(!value.data(Qt::UserRole).isValid());
        model.Clear();
        for (int role : {int(Qt::DisplayRole), int(Qt::EditRole), int(Qt::ToolTipRole), 33})
            QVERIFY(!model.deviceSpecificData(value, role).isValid());
    }

    void noUnit()
    {
        RVXSingleChannelDataModel model;
        model.AddData(1.0, 0.25);
        ModelLog log(&model);
        QSignalSpy units(&model, SIGNAL(unitsChanged(const Corvale_Qt::Units::MeasurementUnit *)));
        model.SetUnits(nullptr);
        QCOMPARE(units.size(), 1);
        QCOMPARE(log.take(), QString("changed (1,1)-(1,1)"));
        QCOMPARE(readingText(model.index(1, 1)), QString("0.25 / 0.25 / 0.25 / 0.25"));
    }

    void fileBytes()
    {
        QTemporaryDir folder;
        const QString name = folder.filePath("samples.csv");
        RVXSingleChannelDataModel model;
        const Units::nA nA;
        model.SetUnits(&nA);
        model.AddData(12.5, 0.000123);
        model.AddData(1e9 + 0.125, -1.23456789e-9);
        model.AddData(1e9 + 0.25, std::numeric_limits<double>::infinity());
        model.AddData(1e9 + 0.5, 1234567.0);
        model.setAutoUpdate(false);
        model.AddData(1e9 + 1.0, 99.0);
        QVERIFY(model.SaveDataToFile(name));
        QCOMPARE(fileContents(name),
                 QByteArray("timestamp(s),channel_1,\n"
                            "12.500000000,0.000123,\n"
                            "1000000000.125000000,-1.23457e-09,\n"
                            "1000000000.250000000,inf,\n"
                            "1000000000.500000000,1.23457e+06,\n"));
        model.Clear();
        QVERIFY(model.SaveDataToFile(name));
        QCOMPARE(fileContents(name), QByteArray("timestamp(s),channel_1,\n"));
    }

    void filesThatCannotBeWritten()
    {
        QTemporaryDir folder;
        RVXSingleChannelDataModel model;
        fill(model, 1, 1000);
        QVERIFY(!model.SaveDataToFile(QString()));
        QVERIFY(!model.SaveDataToFile(folder.path()));
        if (!hasFullDevice())
            QSKIP("no device here that is always full");
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression("Data file /dev/full is not complete: .*space.*"));
        QVERIFY(model.SaveDataToFile("/dev/full"));
    }

    void widthHint()
    {
        RVXSingleChannelDataModel model;
        QCOMPARE(model.PlotWidthHintPoints(), 256);
        model.setPlotWidthHintPoints(-500);
        QCOMPARE(model.PlotWidthHintPoints(), -500);
        model.setPlotWidthHintPoints(0);
        QCOMPARE(model.PlotWidthHintPoints(), 256);
    }

    void theTesterWatchesTheDeferredRoad()
    {
        // Auto update raises the row count before it announces, which the tester cannot accept.
        RVXSingleChannelDataModel model;
        model.setAutoUpdate(false);
        ModelWatch watch(&model);
        fill(model, 1, 5);
        model.UpdateView();
        model.setData(model.index(0, 1), Qt::Unchecked, Qt::CheckStateRole);
        fill(model, 6, capacity + 2);
        model.UpdateView();
        fill(model, capacity + 3, capacity + 5);
        model.UpdateView();
        model.Clear();
    }

    void anyIndexHasAColour()
    {
        QCOMPARE(RVXPlotColors::color(9), RVXPlotColors::color(1));
        QCOMPARE(RVXPlotColors::color(-1), QColor(179, 102, 255));
        QCOMPARE(RVXPlotColors::color(std::numeric_limits<int>::min()), QColor(Qt::cyan));
    }

    //! No two of 64 channels have the same colour and dashes, and each can be seen on black.
    void channelsCanBeToldApart()
    {
        for (const auto palette : {RVXPlotColors::ManyColors, RVXPlotColors::ColorBlindSafe}) {
            QSet<QString> looks;
            for (int i = 0; i < 64; ++i) {
                QString look = RVXPlotColors::color(i, palette).name();
                for (const qreal dash : RVXPlotColors::dashes(i, palette))
                    look += ' ' + QString::number(dash);
                looks << look;
                QVERIFY(RVXPlotColors::color(i, palette).lightnessF() > 0.29);
            }
            QCOMPARE(looks.size(), 64);
            QVERIFY(RVXPlotColors::dashes(0, palette).isEmpty());
            QCOMPARE(RVXPlotColors::color(-1, palette), RVXPlotColors::color(1023, palette));
        }
        QVERIFY(RVXPlotColors::dashes(63, RVXPlotColors::EightColors).isEmpty());
    }

    void styleSheetsTakeThem()
    {
        QCOMPARE(resource::rgbStyleSheetFromColor(Qt::black), QString("rgb( 0,0,0)"));
        QCOMPARE(resource::colorRgbStyleSheetFromColor(QColor(255, 128, 0)),
                 QString("color: rgb( 255,128,0);"));
    }
};

CORVALE_QT_TEST_MAIN(tst_DeviceModels)
#include "tst_DeviceModels.moc"
