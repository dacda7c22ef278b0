// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryProperty_p.h"
#include "corvale_qt/models/RVXBulkPlotData.h"
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/models/RVXPlotHistory.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/scope/CanvasNote_p.h"
#include "corvale_qt/scope/ScopeHistory_p.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

//! A host's model with a history of its own, which counts the blocks that are read.
class CountedModel : public RVXMultichannelDeviceModel,
                     public RVXBulkPlotVoucher,
                     public RVXPlotHistory
{
public:
    using RVXMultichannelDeviceModel::RVXMultichannelDeviceModel;
    const std::type_info &vouchedType() const override { return typeid(CountedModel); }
    int levels() const override { return inner()->levels(); }
    qint64 firstBlock(int level) const override { return inner()->firstBlock(level); }
    qint64 endBlock(int level) const override { return inner()->endBlock(level); }
    Interval interval(int level, qint64 block) const override
    {
        return inner()->interval(level, block);
    }
    bool read(int level, int column, qint64 first, int count, Block *out) const override
    {
        blocksRead += count;
        return inner()->read(level, column, first, count, out);
    }

    mutable qint64 blocksRead = 0;

private:
    const RVXPlotHistory *inner() const
    {
        return interfaceByProperty<RVXPlotHistory>(*this, "plotHistory",
                                                   "const Corvale_Qt::RVXPlotHistory*");
    }
};

//! A host's model with rows at seconds 50 to 59, and older readings in five blocks of ten seconds.
class RememberingModel : public ScopeTestModel, public RVXBulkPlotData, public RVXPlotHistory
{
public:
    RememberingModel()
        : ScopeTestModel(1)
    {
        QVector<Row> rows;
        for (int second = 50; second < 60; ++second)
            rows.append({double(second), 1.0});
        append(rows);
    }
    const std::type_info &vouchedType() const override { return typeid(RememberingModel); }
    void read(int column, int firstRow, int count, double *out) const override
    {
        for (int i = 0; i < count; ++i)
            out[i] = doubleData(firstRow + i, column);
    }
    bool xRises() const override { return true; }
    int levels() const override { return 1; }
    qint64 firstBlock(int) const override { return 0; }
    qint64 endBlock(int) const override { return 5; }
    Interval interval(int, qint64 block) const override
    {
        return {10.0 * block, 10.0 * block + 9.0, 10 * block, 10, 1.0F};
    }
    bool read(int, int, qint64, int count, Block *out) const override
    {
        std::fill_n(out, count, Block{0.0, 2.0, 1.0, 10});
        return true;
    }
};

//! Appends a slow wave with noise, at 1 kHz; every 1000th reading is a spike.
void appendWave(RVXMultichannelDeviceModel &model, int rows, double from = 1.0)
{
    std::mt19937 random(7);
    QVector<double> times;
    QVector<double> values;
    for (int i = 0; i < rows; ++i) {
        times << from + 0.001 * i;
        const double noise = double(random() % 1000) / 2000.0;
        values << std::sin(6.28 * i / 40000.0) + noise + (i % 1000 == 500 ? 1.5 : 0.0);
    }
    model.appendRows(times, values);
}

int litPixels(const QImage &picture, const QImage &other, int reach)
{
    const auto isLit = [](const QImage &image, int x, int y) {
        return image.rect().contains(x, y) && qGreen(image.pixel(x, y)) > 200;
    };
    int alone = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            bool isNear = false;
            for (int dx = -reach; dx <= reach && !isNear; ++dx)
                isNear = isLit(other, x + dx, y) || isLit(other, x + dx, y - 1)
                    || isLit(other, x + dx, y + 1);
            alone += isLit(picture, x, y) && !isNear ? 1 : 0;
        }
    }
    return alone;
}

} // namespace

//! How a strip chart draws readings that its model remembers as blocks only, and how markers walk through them.
class tst_ScopeHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chartGoesOnFromBlocksToRows()
    {
        // The same readings, all of them as rows and most of them as blocks.
        RVXMultichannelDeviceModel rows(1);
        RVXMultichannelDeviceModel blocks(1);
        blocks.setCapacity(20000);
        blocks.setHistorySpan(1000.0);
        appendWave(rows, 80000);
        appendWave(blocks, 80000);
        QImage pictures[2];
        RVXMultichannelDeviceModel *const models[] = {&rows, &blocks};
        for (int i = 0; i < 2; ++i) {
            ScopeTestView view(models[i]);
            view.setTimeSpan(60.0);
            view.SetRange(-2.0, 4.0);
            view.SetYScaleMode(RVXScopePlotView::FullRange);
            QCOMPARE(view.xText(), QString("20.999..80.999"));
            pictures[i] = view.canvas();
        }
        QVERIFY(pictures[0] != pictures[1]);
        // No reading is hidden, and none is more than a block away from where it was.
        QCOMPARE(litPixels(pictures[0], pictures[1], 0), 0);
        QVERIFY(litPixels(pictures[1], pictures[0], 2)
                <= 2); // where the newest block is joined to the rows
    }

    // What a logarithmic axis cannot show may have left the model.
    void aLogarithmicAxisNamesWhatBlocksHold()
    {
        RVXMultichannelDeviceModel model(1);
        model.setCapacity(1000);
        model.setHistorySpan(1000.0);
        std::vector<double> times;
        std::vector<double> readings;
        for (int i = 0; i < 4000; ++i) {
            times.push_back(0.01 * i);
            readings.push_back(i < 2000 ? -1.0 : 1.0);
        }
        model.appendRows(times.data(), readings.data(), int(times.size()));
        ScopeTestView view(&model);
        view.setTimeSpan(100.0);
        view.setLogarithmic(true);
        const auto hasNote = [&view] {
            view.settle();
            const QwtPlotItemList items = view.qwtPlot()->itemList();
            return std::any_of(items.begin(), items.end(), [](const QwtPlotItem *item) {
                return dynamic_cast<const CanvasNote *>(item);
            });
        };
        QVERIFY(hasNote());
        view.setTimeSpan(5.0);
        QVERIFY(!hasNote());
    }

    // The axes may be asked for before the next picture, as by a resize or a print.
    void whatIsDrawnMayEnd()
    {
        auto model = std::make_unique<RVXMultichannelDeviceModel>(1);
        model->setCapacity(1000);
        model->setHistorySpan(1000.0);
        appendWave(*model, 10000);
        RVXZeroingProxyModel proxy;
        proxy.setSourceModel(model.get());
        ScopeTestView view(&proxy);
        view.setTimeSpan(100.0);
        view.settle();
        model->setHistorySpan(0.0);
        view.qwtPlot()->updateAxes();
        model->setHistorySpan(1000.0);
        appendWave(*model, 10000);
        view.settle();
        model.reset();
        view.qwtPlot()->updateAxes();
        QVERIFY(view.curves().isEmpty());
    }

    void noBlocksAreJoinedAcrossAnOutage()
    {
        RVXMultichannelDeviceModel model(1);
        model.setCapacity(2000);
        model.setHistorySpan(1000.0);
        appendWave(model, 20000);
        appendWave(model, 20000, 61.0);
        ScopeTestView view(&model);
        view.setTimeSpan(80.0);
        view.SetRange(-2.0, 4.0);
        view.SetYScaleMode(RVXScopePlotView::FullRange);
        const auto litBetween = [&view](double left, double right) {
            const QImage picture = view.canvas();
            int lit = 0;
            for (int x = view.at(left, 0.0).x(); x < view.at(right, 0.0).x(); ++x) {
                for (int y = 0; y < view.qwtPlot()->canvas()->height(); ++y) {
                    const QPoint place = QPoint(x, y) * picture.devicePixelRatio();
                    lit += qGreen(picture.pixel(place)) > 200 ? 1 : 0;
                }
            }
            return lit;
        };
        QVERIFY(litBetween(5.0, 15.0) > 0 && litBetween(65.0, 75.0) > 0);
        QVERIFY(litBetween(30.0, 55.0) > 0);
        view.setGapIntervals(3.0);
        QCOMPARE(litBetween(30.0, 55.0), 0);
    }

    void chartIsScrolledThroughIt()
    {
        RVXMultichannelDeviceModel model(1);
        model.setCapacity(1000);
        model.setHistorySpan(1000.0);
        appendWave(model, 50000);
        ScopeTestView view(&model);
        view.setTimeSpan(10.0);
        QCOMPARE(view.xText(), QString("40.999..50.999"));
        view.horizontalScrollBar()->setValue(0);
        QCOMPARE(view.xText(), QString("1..11"));
        QVERIFY(view.y().maxValue() > 2.0); // the y axis follows the blocks
        view.setTimeSpan(std::numeric_limits<double>::infinity());
        QCOMPARE(view.xText(), QString("1..50.999"));
        view.SetYScaleMode(RVXScopePlotView::Normalized);
        QVERIFY(view.y().maxValue() >= 1.0);
        // A marker that is put on blocks stays where it is, and tells of a block instead of a sample.
        view.enablePlotMarker(true);
        view.SelectPoint1(QPointF(20.0, 0.0));
        view.settle();
        QCOMPARE(view.plotMarker(0)->xValue(), 20.0);
        const auto marked = view.markerStatistics().first;
        QVERIFY(marked.isSet && marked.row < 1);
        model.Clear();
        appendWave(model, 500);
        view.settle();
        QCOMPARE(view.x().minValue() < 1.5, true);
    }

    void frameCostsWhatIsVisible()
    {
        CountedModel model(2);
        model.setCapacity(1000);
        model.setHistorySpan(1e9);
        QVector<double> times(100000);
        const QVector<double> values(200000, 1.0);
        for (int part = 0; part < 20; ++part) {
            for (int i = 0; i < times.size(); ++i)
                times[i] = 1.0 + part * 100.0 + 0.001 * i;
            model.appendRows(times, values);
        }
        ScopeTestView view(&model);
        view.SetYScaleMode(RVXScopePlotView::FullRange);
        for (double span : {3.0, 30.0, 300.0, 3000.0}) {
            view.setTimeSpan(span);
            view.settle();
            model.blocksRead = 0;
            view.qwtPlot()->replot();
            view.canvas();
            // The picture of the canvas and the replot are two frames of two channels.
            const qint64 columns = view.qwtPlot()->canvas()->width();
            QVERIFY(model.blocksRead > 0);
            QVERIFY2(model.blocksRead <= columns * ScopeHistory::blocksOfColumn * 4,
                     qPrintable(QString::number(model.blocksRead)));
        }
    }

    //! Arrow keys take a marker through the blocks of older readings and back to the rows, and leave out no reading.
    void arrowsWalkThroughBlocks()
    {
        RVXMultichannelDeviceModel model(1);
        model.setCapacity(100);
        model.setHistorySpan(1e9);
        model.setHistoryMemory(1); // few blocks of each level, so that all levels are visited
        constexpr int rows = 30000;
        for (int row = 0; row < rows; ++row) // with an outage in the middle
            model.appendRows({row < rows / 2 ? row : row + 5000.0}, {double(row)});
        ScopeTestView view(&model);
        view.setTimeSpan(qInf());
        view.enablePlotMarker(true);
        view.SelectPoint1(QPointF(model.doubleData(3, 0), 0.0));
        view.settle();
        const auto press = [&view](Qt::Key key) {
            QTest::keyClick(&view, key);
            // The first and the last reading that the marker stands on.
            static const QRegularExpression block("\n(\\d+) to (\\d+)\nreadings: \\d+");
            const auto found = block.match(view.markerText(0));
            const int row = int(view.markerStatistics().first.reading);
            return found.hasMatch()
                ? qMakePair(found.captured(1).toInt(), found.captured(2).toInt())
                : qMakePair(row, row);
        };
        QPair<int, int> at(rows - 98, rows - 98); // row 3 of the model
        int presses = 0;
        for (; at.first > 0 && presses < 2000; ++presses) {
            const auto next = press(Qt::Key_Left);
            QVERIFY2(next.first < at.first && next.second >= at.first - 1,
                     qPrintable(view.markerText(0)));
            at = next;
        }
        QCOMPARE(at.first, 0);
        QCOMPARE(press(Qt::Key_Left), at); // there is nothing older
        for (; at.second < rows - 98 && presses < 4000; ++presses) {
            const auto next = press(Qt::Key_Right);
            QVERIFY2(next.second > at.second && next.first <= at.second + 1,
                     qPrintable(view.markerText(0)));
            at = next;
        }
        QCOMPARE(view.markerStatistics().first.row, 3);
        QTest::keyClick(&view, Qt::Key_Left, Qt::ShiftModifier); // 2 rows and 8 blocks
        QCOMPARE(view.markerStatistics().first.row, 0);
        QTest::keyClick(&view, Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(view.markerStatistics().first.row, 3);
    }

    //! All rows of a host's model may leave while its blocks stay; there is nothing behind the newest block then.
    void arrowsEndWithTheBlocksWithoutRows()
    {
        RememberingModel model;
        ScopeTestView view(&model);
        view.setTimeSpan(qInf());
        view.enablePlotMarker(true);
        view.SelectPoint1(QPointF(35.0, 0.0));
        view.settle();
        QCOMPARE(view.markerX(0), 35.0);
        model.remove(1, model.rowCount() - 1);
        for (int presses = 0; presses < 3; ++presses)
            QTest::keyClick(&view, Qt::Key_Right);
        QCOMPARE(view.plotMarker(0)->xValue(), 40.0); // where the newest block begins
        view.settle();
        QTest::keyClick(&view, Qt::Key_Right, Qt::ShiftModifier);
        QVERIFY(!view.hasMarker(0));
    }
};

CORVALE_QT_TEST_MAIN(tst_ScopeHistory)
#include "tst_ScopeHistory.moc"
