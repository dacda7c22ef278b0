// SPDX-License-Identifier: LGPL-2.1-or-later
// What a host's own models and subclasses are read through, and what of them charts draw.
#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/units/UnitTraits_p.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/SeriesBounds.h"
#include "tests/support/TestMain.h"

#include <cstring>

using namespace Corvale_Qt;

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

//! A host's model with two samples for each column of a chart's pixels, which counts how it is read.
class Waveforms : public RVXAbstractDeviceDataModel, public RVXBulkPlotData
{
public:
    static constexpr int samples = 4000;
    static constexpr int channels = 64;

    Waveforms()
    {
        for (int c = 0; c <= channels; ++c) {
            for (int i = 0; i < samples; ++i)
                m_columns[c][i] = c == 0 ? 0.5 * i : c + std::sin(0.01 * i * c);
        }
    }

    const std::type_info &vouchedType() const override
    {
        return vouches ? typeid(Waveforms) : typeid(RVXAbstractDeviceDataModel);
    }
    void read(int column, int firstRow, int count, double *out) const override
    {
        for (int i = 0; i < count; ++i)
            out[i] = number(firstRow + i, column);
    }
    bool xRises() const override { return true; }
    bool spans(int column, int firstRow, int count, Spans &spans) const override
    {
        ++spansGiven;
        if (firstRow < 1 || firstRow + count - 1 > samples)
            return false;
        // In two pieces, as from a ring.
        spans.size[0] = count / 3;
        spans.size[1] = count - spans.size[0] - missingNumbers;
        spans.piece[0] = m_columns.at(column).constData() + firstRow - 1;
        spans.piece[1] = spans.piece[0] + spans.size[0];
        return true;
    }

    double doubleData(int row, int column) const override
    {
        ++cellsRead;
        return number(row, column);
    }
    int NumberOfChannels() const override { return channels; }
    int PlotWidthHintPoints() const override { return samples; }
    int rowCount(const QModelIndex &parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : samples + 1;
    }
    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override
    {
        return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
    }
    QVariant deviceSpecificData(const QModelIndex &, int) const override { return QVariant(); }
    bool isOverrange(int, int) const override { return false; }
    bool SaveDataToFile(const QString &) const override { return false; }
    void Clear() override { }

    bool vouches = true;
    int missingNumbers = 0;
    mutable int cellsRead = 0;
    mutable int spansGiven = 0;

private:
    double number(int row, int column) const
    {
        return row == 0 ? column : m_columns.value(column).value(row - 1);
    }

    QVector<QVector<double>> m_columns{channels + 1, QVector<double>(samples)};
};

QImage chartOf(QAbstractItemModel &model)
{
    RVXScopePlotView view;
    view.setModel(&model);
    view.SetRange(-70.0, 70.0);
    view.SetYScaleMode(RVXScopePlotView::FullRange);
    view.resize(700, 500);
    view.show();
    QCoreApplication::processEvents();
    return view.grab().toImage();
}

//! A host's subclass that changes the numbers, such as readings through a calibration.
template<typename Base>
class Shifted : public Base
{
public:
    double doubleData(int row, int column) const override
    {
        return Base::doubleData(row, column) + (row >= 1 && column >= 1 ? 1000.0 : 0.0);
    }
};

//! A host's subclass that leaves the numbers as they are.
template<typename Base>
class Vouched : public Base, public RVXBulkPlotVoucher
{
public:
    const std::type_info &vouchedType() const override { return typeid(Vouched); }
};

//! A subclass of that which nobody vouches for.
template<typename Base>
class Further : public Vouched<Base>
{
};

//! A property with the library's name for something else.
class Namesake : public RVXAbstractDeviceDataModel
{
    Q_OBJECT
    Q_PROPERTY(QString bulkPlotData MEMBER m_text)

public:
    int rowCount(const QModelIndex & = QModelIndex()) const override { return 1; }
    QModelIndex index(int, int, const QModelIndex & = QModelIndex()) const override { return {}; }
    double doubleData(int, int) const override { return 5.0; }
    QVariant deviceSpecificData(const QModelIndex &, int) const override { return QVariant(); }
    bool isOverrange(int, int) const override { return false; }
    bool SaveDataToFile(const QString &) const override { return false; }
    void Clear() override { }

private:
    QString m_text;
};

template<typename Model>
void compareSubclasses()
{
    const Model own;
    const Shifted<Model> shifted;
    const Vouched<Model> vouched;
    const Further<Model> further;
    QVERIFY(RVXBulkPlotData::of(&own));
    QVERIFY2(!RVXBulkPlotData::of(&shifted), "it changes the numbers");
    QVERIFY2(RVXBulkPlotData::of(&vouched), "the host says that it has none");
    QVERIFY2(!RVXBulkPlotData::of(&further), "nobody says it of this class");
    QVERIFY2(LibraryBulkData::of(&own) && !LibraryBulkData::of(&vouched),
             "its indexes and texts may be its own");
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
        Shifted<RVXSingleChannelDataModel> model;
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
        RVXSingleChannelDataModel model;
        const Units::MeasurementUnit unit(cell<double>("factor"), "unit", 1.0);
        model.SetUnits(&unit);
        for (int i = 1; i <= 2000; ++i)
            model.AddData(i, i == cell<int>("missing") ? -inf : 3.0 + 20.0 * std::sin(1.7 * i));
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

    void subclassesSpeakForThemselves()
    {
        compareSubclasses<RVXSingleChannelDataModel>();
        compareSubclasses<RVXMultichannelDeviceModel>();
        compareSubclasses<RVXAveragingProxyModel>();
        compareSubclasses<RVXZeroingProxyModel>();
        compareSubclasses<RVXMultichannelProxyModel>();
    }

    void numbersOfSubclasses()
    {
        Shifted<RVXMultichannelDeviceModel> shifted;
        Vouched<RVXMultichannelDeviceModel> vouched;
        shifted.appendRows({1.0, 2.0}, {5.0, 6.0});
        vouched.appendRows({1.0, 2.0}, {5.0, 6.0});
        double read[2];
        RingSpans spans;
        PlotDataReader(&shifted).read(1, 1, 2, read);
        QCOMPARE(read[1], 1006.0);
        QVERIFY(!PlotDataReader(&shifted).spans(1, 1, 2, spans));
        QVERIFY(PlotDataReader(&vouched).spans(1, 1, 2, spans));
        QCOMPARE(spans.value(1), 6.0);
        QVERIFY2(spans.blocks, "a subclass keeps the library's cached ranges");
    }

    void aHostsModelIsDrawnInPlace()
    {
        Waveforms inPlace;
        const QImage picture = chartOf(inPlace);
        QCOMPARE(inPlace.cellsRead, 0);
        QVERIFY(inPlace.spansGiven > 0);

        Waveforms byCells;
        byCells.vouches = false;
        QCOMPARE(chartOf(byCells), picture);
        QVERIFY(byCells.cellsRead >= Waveforms::samples * Waveforms::channels);
        QCOMPARE(byCells.spansGiven, 0);

        // Memory of another size than was asked for is not touched.
        Waveforms tooFew;
        tooFew.missingNumbers = 1;
        QCOMPARE(chartOf(tooFew), picture);
        QCOMPARE(tooFew.cellsRead, 0);
    }

    void aHostsModelUnderProxies()
    {
        Waveforms inPlace;
        Waveforms byCells;
        byCells.vouches = false;
        RVXAveragingProxyModel averaging[2];
        RVXZeroingProxyModel zeroing[2];
        for (int i : {0, 1}) {
            averaging[i].setAveraging(4);
            averaging[i].setSourceModel(i == 0 ? &inPlace : &byCells);
            zeroing[i].setSourceModel(&averaging[i]);
            zeroing[i].zeroNow();
        }
        const int cellsForZeros = inPlace.cellsRead;
        QCOMPARE(chartOf(zeroing[0]), chartOf(zeroing[1]));
        QCOMPARE(inPlace.cellsRead, cellsForZeros);
        for (int row : {1, 77, Waveforms::samples})
            QCOMPARE(zeroing[0].doubleData(row, 64), zeroing[1].doubleData(row, 64));
    }

    void modelsThatMayNotBeRead()
    {
        QVERIFY(!RVXBulkPlotData::of(nullptr));
        const Namesake namesake;
        QVERIFY(!RVXBulkPlotData::of(&namesake));

        // A reader of a host's model reads nothing once the model is gone.
        auto mortal = std::make_unique<Waveforms>();
        const PlotDataReader reader(mortal.get());
        QVERIFY(reader.xRises());
        QCOMPARE(mortal->layoutVersion(), int(RVXBulkPlotData::currentLayout));
        mortal.reset();
        double read = 1.0;
        reader.read(1, 1, 1, &read);
        QCOMPARE(read, 0.0);
        RingSpans spans;
        QVERIFY(!reader.xRises() && !reader.spans(1, 1, 1, spans) && reader.xVersion() == 0);
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXSeriesData)
#include "tst_RVXSeriesData.moc"
