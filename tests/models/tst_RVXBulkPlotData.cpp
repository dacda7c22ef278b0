// SPDX-License-Identifier: LGPL-2.1-or-later
// What a host's own models and subclasses are read through, and what of them charts draw.
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

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

//! A host's subclass with numbers of its own.
template<typename Base>
class Shifted : public Base
{
public:
    double doubleData(int row, int column) const override
    {
        return Base::doubleData(row, column) + (row >= 1 && column >= 1 ? 1000.0 : 0.0);
    }
};

//! A host's subclass without numbers of its own.
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
    QVERIFY2(!RVXBulkPlotData::of(&shifted), "it has numbers of its own");
    QVERIFY2(RVXBulkPlotData::of(&vouched), "the host says that it has none");
    QVERIFY2(!RVXBulkPlotData::of(&further), "nobody says it of this class");
    QVERIFY2(LibraryBulkData::of(&own) && !LibraryBulkData::of(&vouched),
             "its indexes and texts may be its own");
}

} // namespace

class tst_RVXBulkPlotData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

CORVALE_QT_TEST_MAIN(tst_RVXBulkPlotData)
#include "tst_RVXBulkPlotData.moc"
