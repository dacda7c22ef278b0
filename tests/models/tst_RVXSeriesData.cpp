// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/units/UnitTraits_p.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/SeriesBounds.h"
#include "tests/support/TestMain.h"

#include <cstring>

using namespace Corvale_Qt;

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// What a host may do: readings through a calibration of its own.
class Calibrated : public RVXSingleChannelDataModel
{
public:
    double doubleData(int row, int column) const override
    {
        const double value = RVXSingleChannelDataModel::doubleData(row, column);
        return row >= 1 && column >= 1 ? value + 1000.0 : value;
    }
};

bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

} // namespace

class tst_RVXSeriesData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rangesOfRows_data()
    {
        tableFrom(R"(
            | int start | int end | int size
            the whole buffer | 1 | -1 | 10
            part of it | 3 | 5 | 3
            to the last row by its number | 1 | 10 | 10
            past the last row | 1 | 11 | 10
            end before start | 6 | 5 | 5
            starts where nothing is | 12 | -1 | 0
        )");
    }
    void rangesOfRows()
    {
        QFETCH(int, start);
        QFETCH(int, end);
        QFETCH(int, size);
        RVXSingleChannelDataModel model;
        for (int i = 1; i <= 10; ++i)
            model.AddData(i, i);
        const std::unique_ptr<QwtSeriesData<QPointF>> series(model.seriesData(1, start, end));
        QCOMPARE(int(series->size()), size);
    }

    void pointsAndTheirScale()
    {
        RVXSingleChannelDataModel model;
        const Units::mA mA;
        model.SetUnits(&mA);
        model.AddData(0.5, 0.002);
        model.AddData(1.5, 0.004);
        RVXSeriesData series(model, 1, 2, -1);
        QCOMPARE(series.sample(0), QPointF(1.5, 4.0));
        for (double refused : {0.0, -2.0, notANumber}) {
            series.setScale(refused);
            QCOMPARE(series.sample(0).y(), 4.0);
        }
        series.setScale(1000.0);
        QCOMPARE(series.sample(0), QPointF(1.5, 0.004));
        QCOMPARE(RVXSeriesData(series).sample(0), QPointF(1.5, 0.004));
    }

    void boundsSkipWhatIsNotFinite()
    {
        RVXSingleChannelDataModel model;
        for (int i = 1; i <= 2000; ++i) {
            const double value = std::sin(1.7 * i) * i;
            model.AddData(i % 97 == 0 ? notANumber : i,
                          i % 5 == 0       ? notANumber
                              : i % 7 == 0 ? -inf
                                           : value);
        }
        for (int start : {1, 35, 1999}) {
            const RVXSeriesData series(model, 1, start, -1);
            QCOMPARE(series.boundingRect(), boundsByHand(series));
        }
        RVXSingleChannelDataModel nothing;
        QVERIFY(!RVXSeriesData(nothing, 1, 1, -1).boundingRect().isValid());
        nothing.AddData(notANumber, inf);
        QCOMPARE(RVXSeriesData(nothing, 1, 1, -1).boundingRect(), QRectF(0.0, 0.0, 0.0, 0.0));
    }

    void boundsAreKept()
    {
        RVXSingleChannelDataModel model;
        model.AddData(1.0, 5.0);
        model.AddData(2.0, 5.0);
        RVXSeriesData series(model, 1, 1, -1);
        // No height: looked at again each time, and right once it has one.
        QCOMPARE(series.boundingRect(), QRectF(1.0, 5.0, 1.0, 0.0));
        model.AddData(3.0, 7.0);
        QCOMPARE(series.boundingRect(), QRectF(1.0, 5.0, 2.0, 2.0));
        model.AddData(4.0, 100.0);
        QCOMPARE(series.boundingRect(), QRectF(1.0, 5.0, 2.0, 2.0));
        series.setScale(10.0);
        QCOMPARE(series.boundingRect(), QRectF(1.0, 0.5, 3.0, 9.5));
    }

    void aHostsOwnNumbersAreDrawn()
    {
        Calibrated model;
        model.AddData(1.0, 5.0);
        model.AddData(2.0, 6.0);
        QVERIFY(!LibraryBulkData::of(&model));
        const RVXSeriesData series(model, 1, 1, -1);
        QCOMPARE(series.boundingRect(), QRectF(1.0, 1005.0, 1.0, 1.0));
        double read[2];
        PlotDataReader(&model).read(1, 1, 2, read);
        QCOMPARE(read[1], 1006.0);
    }

    void chunksEqualCells()
    {
        const int capacity = 100000;
        RVXSingleChannelDataModel model;
        const Units::nA nA;
        Units::MeasurementUnit odd(1.0 / 3.0, "odd", 7.7);
        const Units::MeasurementUnit *const units[] = {&nA, &odd, nullptr};
        const LibraryBulkData *columns = LibraryBulkData::of(&model);
        // None, a few, and more than the ring holds.
        for (const int samples : {0, 5, capacity + 1234}) {
            for (int i = model.rowCount(); i <= samples; ++i)
                model.AddData(0.1 * i, i % 1000 == 0 ? notANumber : 1e-9 / i);
            const int stored = std::min(samples, capacity);
            for (const auto *unit : units) {
                model.SetUnits(unit);
                for (int first : {-3, 0, 1, stored - 2, capacity - 1234 - 3, stored + 5}) {
                    for (int column : {0, 1}) {
                        double chunk[9];
                        columns->read(column, first, 9, chunk);
                        for (int i = 0; i < 9; ++i)
                            QVERIFY2(sameBits(chunk[i], model.doubleData(first + i, column)),
                                     qPrintable(QString("row %1").arg(first + i)));
                    }
                }
            }
        }
    }

    void memoryEqualsCells()
    {
        struct Fahrenheit : Units::MeasurementUnit
        {
            Fahrenheit()
                : MeasurementUnit(1.8, "degF", 1.0)
            {
            }
            double scale(double value) const override
            {
                return MeasurementUnit::scale(value) + 32.0;
            }
        };
        RVXSingleChannelDataModel model;
        for (int i = 1; i <= 100000 + 321; ++i)
            model.AddData(0.1 * i, i % 7 == 0 ? notANumber : 1.0 / i);
        const LibraryBulkData *columns = LibraryBulkData::of(&model);
        Units::MeasurementUnit odd(1.0 / 3.0, "odd", -7.7);
        model.SetUnits(&odd);
        RingSpans spans;
        for (int column : {0, 1}) {
            QVERIFY(columns->spans(column, 99000, 1001, spans));
            QCOMPARE(spans.count(), 1001);
            QVERIFY2(spans.size[0] > 0 && spans.size[1] > 0, "the rows lie around the ring's edge");
            for (int i = 0; i < 1001; ++i)
                QVERIFY(sameBits(spans.value(i), model.doubleData(99000 + i, column)));
        }
        QVERIFY(!columns->spans(1, 0, 10, spans));
        QVERIFY(!columns->spans(1, 99991, 11, spans));
        const Fahrenheit hosts;
        model.SetUnits(&hosts);
        QVERIFY2(!columns->spans(1, 1, 10, spans), "who knows what a host's unit does");
        const quint64 version = columns->xVersion();
        model.AddData(1e9, 0.0);
        QVERIFY(columns->xVersion() != version);
    }

    void boundsFromMemory_data()
    {
        // Of 2000 readings in a unit with the factor, one is missing, or none.
        tableFrom(R"(
            | double factor | int missing
            plain | 1e9 | 0
            turned over | -2.5 | 0
            nothing is left | 0 | 0
            too large to show | 1e308 | 0
            a unit that is no number | nan | 0
            the first is missing | 1e9 | 1
            the last is missing | 1e9 | 2000
        )");
    }
    void boundsFromMemory()
    {
        QFETCH(int, missing);
        RVXSingleChannelDataModel model;
        const Units::MeasurementUnit unit(cell<double>("factor"), "unit", 1.0);
        model.SetUnits(&unit);
        for (int i = 1; i <= 2000; ++i)
            model.AddData(i, i == missing ? -inf : 3.0 + 20.0 * std::sin(1.7 * i));
        for (int start : {1, 2, 1000}) {
            RVXSeriesData series(model, 1, start, -1);
            series.setScale(3.0);
            QCOMPARE(series.boundingRect(), boundsByHand(series));
        }
    }

    void readersOfColumnsWithoutAModel()
    {
        RVXSingleChannelDataModel model;
        model.AddData(1.0, 5.0);
        model.AddData(2.0, 6.0);
        const PlotDataReader reader = PlotDataReader::ofBulk(LibraryBulkData::of(&model));
        double read[2];
        reader.read(1, 1, 2, read);
        QCOMPARE(read[1], 6.0);
        RingSpans spans;
        QVERIFY(reader.xRises() && reader.spans(0, 1, 2, spans));
        QCOMPARE(reader.xVersion(), PlotDataReader(&model).xVersion());

        // A reader of a model reads nothing as soon as the model's deletion has begun.
        auto mortal = std::make_unique<RVXSingleChannelDataModel>();
        mortal->AddData(1.0, 5.0);
        const PlotDataReader orphan(mortal.get());
        mortal.reset();
        orphan.read(1, 1, 1, read);
        QCOMPARE(read[0], 0.0);
        QVERIFY(!orphan.spans(1, 1, 1, spans) && !orphan.xRises());
    }

    void valuesInADebugger()
    {
        const auto text = [](const auto &value) {
            QString string;
            QDebug(&string) << value << 1;
            return string;
        };
        RVXSingleChannelDataModel model;
        model.AddData(1.0, -5.0);
        model.AddData(2.0, inf);
        RingSpans spans;
        QVERIFY(LibraryBulkData::of(&model)->columnSpans(1, 1, 2, spans));
        QCOMPARE(text(spans), "RingSpans(2 + 0 of 100000 numbers, value = 1 * number - 0) 1 ");
        QCOMPARE(text(storedRange(spans, 0, 2)), "NumberRange(-5 to -5, some not finite) 1 ");
        QCOMPARE(text(storedRange(spans, 0, 1)), "NumberRange(-5 to -5) 1 ");
        QCOMPARE(text(model.xUnits()), "MeasurementUnit(\"s\", type 96) 1 ");
        model.SetUnits(nullptr);
        QCOMPARE(text(model.units()), "MeasurementUnit(none) 1 ");
    }

    void whetherTimeRises()
    {
        RVXSingleChannelDataModel model;
        const PlotDataReader reader(&model);
        model.AddData(5.0, 0.0);
        model.AddData(6.0, 0.0);
        QVERIFY(reader.xRises());
        model.AddData(5.5, 0.0);
        QVERIFY(!reader.xRises());
        model.AddData(notANumber, 0.0);
        model.AddData(7.0, 0.0);
        for (int i = 0; i < 99997; ++i)
            model.AddData(8.0 + i, 0.0);
        // 5.5, NaN, 7, 8, ...: it rises again when the last bad step has left the buffer.
        QVERIFY(!reader.xRises());
        model.AddData(2e6, 0.0);
        QVERIFY(!reader.xRises());
        model.AddData(2e6 + 1, 0.0);
        QVERIFY(reader.xRises());
        model.AddData(1.0, 0.0);
        QVERIFY(!reader.xRises());
        model.Clear();
        QVERIFY(reader.xRises());
        QVERIFY(!PlotDataReader().xRises());
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXSeriesData)
#include "tst_RVXSeriesData.moc"
