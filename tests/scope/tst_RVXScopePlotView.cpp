// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/RVXPositionPlot.h"
#include "corvale_qt/beam/RVXSpectrogram.h"
#include "corvale_qt/beam/RVXSplitPlot.h"
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"

#include <QIdentityProxyModel>
#include <QLabel>
#include <QScrollBar>

#include <cmath>
#include <memory>

using namespace Corvale_Qt;
using View = RVXScopePlotView;

namespace {

double channelNumber(int channel, double)
{
    return channel;
}

//! Counts how often the view takes the data of its curves.
class CountingModel : public ScopeTestModel
{
public:
    using ScopeTestModel::ScopeTestModel;
    QwtSeriesData<QPointF> *seriesData(int column, int startRow, int endRow) const override
    {
        ++series;
        return ScopeTestModel::seriesData(column, startRow, endRow);
    }
    mutable int series = 0;
};

} // namespace

class tst_RVXScopePlotView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manyRowsMakeOnePlot();
    void stripNeedsTwoSamples();
    void stripFollowsUntilItIsScrolledBack();
    void scrollingBeginsAnewWithTheModel();
    void stripKeepsItsLengthWhileBatchesVary();
    void stripBeginsAnewWhereTimeStepsBack_data();
    void stripBeginsAnewWhereTimeStepsBack();
    void changesWithoutNewRowsArePlotted();
    void scrollToEndsAtTheCentreForEveryHint();
    void sweepsAreDrawnWhenComplete();
    void sweepsGoOnWhileTheBufferDropsRows();
    void theSweepStaysUntilTheNext_data();
    void theSweepStaysUntilTheNext();
    void theSweepIsDrawnAgainWhenItsDataChange_data();
    void theSweepIsDrawnAgainWhenItsDataChange();
    void manyWaitingSweepsGiveWayToTheNewest();
    void changesOfScaleDrawTheLastSweepAgain();
    void yScales_data();
    void yScales();
    void rangeIsTakenOnce();
    void normalizedCurvesReachTheirOwnLargest();
    void hiddenChannelsAreNotDrawn();
    void channelsWithoutAColourGetOne();
    void curvesAreWhereTheSamplesAre();
    void modesShowTheirWidgetAlone();
    void bufferSizeIsTold();
    void channelsComeAndGo();
    void atMost256Channels();
    void modelsGoAway();
    void modelsLeaveNoSelectionModels();
    void focusIsVisible();
    void keysThatNobodyHandles_data();
    void keysThatNobodyHandles();
    void modelsThatCannotBePlotted();
    void hostileNumbers_data();
    void hostileNumbers();
    void longAfterTheStartTicksCanBeToldApart();
};

void tst_RVXScopePlotView::manyRowsMakeOnePlot()
{
    CountingModel model(3);
    const ModelWatch watch(&model);
    ScopeTestView view(&model);
    model.appendRows(500, 0.1, channelNumber);
    view.settle();
    model.series = 0;
    for (int i = 0; i < 1000; ++i)
        model.appendRows(1, 0.1, channelNumber);
    QCOMPARE(model.series, 0);
    view.settle();
    // A second time, if labels that got longer moved the canvas.
    QVERIFY2(model.series >= 3 && model.series <= 6, qPrintable(QString::number(model.series)));
    QCOMPARE(watch.complaints(), QString());

    view.hide();
    model.series = 0;
    model.appendRows(1, 0.1, channelNumber);
    view.settle();
    QCOMPARE(model.series, 0);
}

void tst_RVXScopePlotView::stripNeedsTwoSamples()
{
    ScopeTestModel model(2);
    ScopeTestView view(&model);
    model.appendRows(1, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.curves().size(), 0);
    QVERIFY(!view.horizontalScrollBar()->isVisible());
    model.appendRows(2, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.curves().size(), 2);
    // Three of 256 samples: the trace begins close to the right border.
    QCOMPARE(view.x().maxValue(), 2.0);
    QCOMPARE(view.x().minValue(), -2.0 / 3.0 * 253.0);
}

void tst_RVXScopePlotView::stripFollowsUntilItIsScrolledBack()
{
    ScopeTestModel model(1);
    model.pointsHint = 100;
    ScopeTestView view(&model);
    model.appendRows(400, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.xText(), QString("300..399"));
    QScrollBar *bar = view.horizontalScrollBar();
    QCOMPARE(bar->maximum(), 30000000);
    QCOMPARE(bar->value(), bar->maximum());
    QCOMPARE(view.horizontalOffset(), bar->value());

    bar->setValue(10000000);
    view.settle();
    QCOMPARE(view.x().minValue(), 100.0);
    model.appendRows(50, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.x().minValue(), 100.0);
    QCOMPARE(bar->value(), 10000000);

    bar->setValue(bar->maximum());
    view.settle();
    model.appendRows(1, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.x().maxValue(), 450.0);

    model.Clear();
    model.appendRows(2, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.x().maxValue(), 452.0);
}

void tst_RVXScopePlotView::scrollingBeginsAnewWithTheModel()
{
    ScopeTestModel first(1);
    ScopeTestModel second(1);
    first.appendRows(1000, 1.0, channelNumber);
    second.appendRows(1000, 1.0, channelNumber);
    ScopeTestView view(&first);
    QScrollBar *bar = view.horizontalScrollBar();
    bar->setValue(0);
    view.settle();
    view.setModel(&second);
    view.settle();
    QCOMPARE(view.x().maxValue(), 999.0);

    // An empty model takes the place that was scrolled to along.
    bar->setValue(0);
    view.settle();
    second.remove(1, 1000);
    view.settle();
    QCOMPARE(bar->maximum(), 0);
    second.appendRows(1000, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.x().maxValue(), 1999.0);
}

void tst_RVXScopePlotView::stripKeepsItsLengthWhileBatchesVary()
{
    ScopeTestModel model(1);
    model.pointsHint = 0;
    ScopeTestView view(&model);
    model.appendRows(5, 0.01, channelNumber); // no batch
    model.appendRows(300, 0.01, channelNumber);
    for (const int rows : {300, 11, 300, 1, 300}) {
        model.appendRows(rows, 0.01, channelNumber);
        view.settle();
        QVERIFY2(qAbs(view.x().width() - 2.99) < 1e-6, qPrintable(view.xText()));
    }
    // Most of the last batches are short ones.
    for (int i = 0; i < 9; ++i)
        model.appendRows(i < 8 ? 20 : 40, 0.01, channelNumber);
    for (int i = 0; i < 4; ++i)
        model.appendRows(20, 0.01, channelNumber);
    view.settle();
    QVERIFY2(qAbs(view.x().width() - 0.19) < 1e-6, qPrintable(view.xText()));

    ScopeTestModel single(1);
    single.pointsHint = 0;
    single.appendRows(600, 1.0, channelNumber);
    view.setModel(&single); // knows nothing of the batches of another
    view.settle();
    QCOMPARE(view.x().width(), 255.0);
}

void tst_RVXScopePlotView::stripBeginsAnewWhereTimeStepsBack_data()
{
    QTest::addColumn<double>("width"); // wished by the model
    QTest::addColumn<QVector<double>>("stamps"); // after 1000 rows from 0 to 999
    QTest::addColumn<double>("oldest");
    QTest::addColumn<double>("right");
    QTest::addColumn<int>("drawn");
    const QVector<double> anew{0, 1, 2};
    const QVector<double> outlier{1e12, 1000, 1001};
    const QVector<double> jitter{1003,
                                 1001,
                                 1002}; // what follows the first beyond the border is not drawn
    QTest::newRow("time begins anew") << 0.0 << anew << 0.0 << 2.0 << 3;
    QTest::newRow("time begins anew, width given") << 100.0 << anew << 0.0 << 2.0 << 3;
    QTest::newRow("only one sample since") << 0.0 << QVector<double>{5} << 5.0 << 5.0 << 1;
    QTest::newRow("a single stamp far ahead") << 0.0 << outlier << 1000.0 << 1001.0 << 2;
    QTest::newRow("far ahead, width given") << 100.0 << outlier << 1000.0 << 1001.0 << 2;
    QTest::newRow("far ahead beside missing ones")
        << 0.0 << QVector<double>{1e12, qQNaN(), 1000, 1001} << 1000.0 << 1001.0 << 2;
    QTest::newRow("small disorder") << 0.0 << jitter << 746.0 << 1002.0 << 255;
    QTest::newRow("small disorder, width given") << 100.0 << jitter << 901.0 << 1002.0 << 100;
}

void tst_RVXScopePlotView::stripBeginsAnewWhereTimeStepsBack()
{
    QFETCH(double, width);
    QFETCH(QVector<double>, stamps);
    QFETCH(double, oldest);
    ScopeTestModel model(1);
    model.widthHint = width;
    model.appendRows(1000, 1.0, channelNumber);
    ScopeTestView view(&model);
    for (const double stamp : stamps) {
        model.append({{stamp, 1.0}});
        view.settle();
        QVERIFY2(view.x().width() > 0.0, qPrintable(view.xText())); // never runs backwards
    }
    QTEST(view.x().maxValue(), "right");
    const QRectF drawn = view.curves().value(0)->boundingRect();
    QCOMPARE(drawn.left(), oldest);
    QTEST(int(view.curves().value(0)->dataSize()), "drawn");
    // The same for somebody who looks now for the first time.
    ScopeTestView late(&model);
    QCOMPARE(late.curves().value(0)->boundingRect(), drawn);
}

void tst_RVXScopePlotView::changesWithoutNewRowsArePlotted()
{
    ScopeTestModel model(1);
    model.pointsHint = 100;
    model.appendRows(300, 1.0, channelNumber);
    ScopeTestView view(&model);
    model.remove(291, 300);
    view.settle();
    QCOMPARE(view.xText(), QString("190..289"));
    for (const int mode : {View::StripMode, View::ScopeMode}) {
        view.SetPlotMode(mode);
        view.settle();
        model.pointsHint = 50; // acts when something is painted
        view.qwtPlot()->canvas()->update();
        view.settle();
        QCOMPARE(view.x().width(), 49.0);
        model.pointsHint = 100;
    }
}

void tst_RVXScopePlotView::scrollToEndsAtTheCentreForEveryHint()
{
    ScopeTestModel model(1);
    model.pointsHint = 100;
    ScopeTestView view(&model);
    model.appendRows(400, 1.0, channelNumber);
    view.settle();
    QScrollBar *bar = view.horizontalScrollBar();
    view.scrollTo(model.index(350, 1), View::EnsureVisible);
    QCOMPARE(bar->value(), bar->maximum());
    for (View::ScrollHint hint : {View::EnsureVisible,
                                  View::PositionAtTop,
                                  View::PositionAtBottom,
                                  View::PositionAtCenter}) {
        bar->setValue(bar->maximum());
        view.settle();
        const double half = view.x().width() / 2;
        view.scrollTo(model.index(21, 1), hint);
        QCOMPARE(bar->value(), int(half + 20.0));
    }
    bar->setValue(bar->maximum());
    view.scrollTo(model.index(0, 1), View::PositionAtCenter); // the header is no sample
    QCOMPARE(bar->value(), bar->maximum());
}

void tst_RVXScopePlotView::sweepsAreDrawnWhenComplete()
{
    ScopeTestModel model(1);
    ScopeTestView view(&model);
    view.SetPlotMode(View::ScopeMode);
    model.appendRows(255, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.curves().size(), 0);
    model.appendRows(45, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.xText(), QString("0..255"));
    QCOMPARE(int(view.curves().value(0)->dataSize()), 256);
    model.appendRows(211, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.xText(), QString("0..255"));
    model.appendRows(1, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.xText(), QString("256..511"));

    model.Clear();
    model.appendRows(1, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.curves().size(), 0);
}

void tst_RVXScopePlotView::sweepsGoOnWhileTheBufferDropsRows()
{
    ScopeTestModel model(1, 300);
    model.pointsHint = 100;
    ScopeTestView view(&model);
    view.SetPlotMode(View::ScopeMode);
    QStringList shown;
    for (int i = 0; i < 100; ++i) {
        model.appendRows(10, 1.0, channelNumber);
        view.settle();
        if (!view.curves().isEmpty() && shown.value(shown.size() - 1) != view.xText())
            shown << view.xText();
    }
    QCOMPARE(shown.join(' '),
             QString("0..99 100..199 200..299 300..399 400..499 500..599 600..699 700..799 "
                     "800..899 900..999"));
}

void tst_RVXScopePlotView::theSweepStaysUntilTheNext_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("rows come") << "append";
    QTest::newRow("half of the sweep leaves the buffer") << "roll";
    QTest::newRow("all but one sample leave the buffer") << "roll far";
    QTest::newRow("rows go") << "remove";
    QTest::newRow("all is cleared and rows come") << "clear";
    QTest::newRow("a look at the strip chart") << "strip";
}

//! Sweeps of 100 in a buffer of 150: what is drawn is the same to the last pixel.
void tst_RVXScopePlotView::theSweepStaysUntilTheNext()
{
    QFETCH(QString, change);
    ScopeTestModel model(2, 150);
    model.pointsHint = 100;
    ScopeTestView view(&model);
    view.SetPlotMode(View::ScopeMode);
    const auto wave = [](int channel, double time) {
        return std::sin(time / 7.0) * channel;
    };
    model.appendRows(100, 1.0, wave);
    view.settle();
    const QImage before = view.canvas();
    if (change == "append") {
        model.appendRows(50, 1.0, wave);
    } else if (change == "roll" || change == "roll far") {
        for (int i = 0; i < (change == "roll" ? 90 : 99); ++i) {
            model.appendRows(1, 1.0, wave);
            view.settle();
        }
    } else if (change == "remove") {
        model.remove(1, 30);
    } else if (change == "clear") {
        model.Clear();
        model.appendRows(40, 1.0, wave);
    } else {
        model.appendRows(99, 1.0, wave);
        view.SetPlotMode(View::StripMode);
        view.settle();
        view.SetPlotMode(View::ScopeMode);
    }
    view.settle();
    QCOMPARE(view.canvas(), before);
    // A larger canvas shows the same samples, and so does another scale.
    view.resize(1000, 600);
    view.SetYScaleMode(View::Normalized);
    view.settle();
    QCOMPARE(view.xText(), QString("0..99"));
    const QwtPlotCurve *curve = view.curves().value(1);
    QCOMPARE(int(curve->dataSize()), 100);
    QCOMPARE(curve->sample(99).x(), 99.0);
    const QRectF bounds = curve->boundingRect();
    QCOMPARE(qMax(std::abs(bounds.top()), std::abs(bounds.bottom())), 1.0);
}

void tst_RVXScopePlotView::theSweepIsDrawnAgainWhenItsDataChange_data()
{
    QTest::addColumn<int>("rolled"); // rows that came after the sweep of 100, in a buffer of 150
    QTest::addColumn<QString>("axis");
    QTest::newRow("acquisition stands") << 0 << "0..99";
    QTest::newRow("rows were added") << 50 << "0..99";
    QTest::newRow("a part has left the buffer") << 80 << "30..99";
}

void tst_RVXScopePlotView::theSweepIsDrawnAgainWhenItsDataChange()
{
    QFETCH(int, rolled);
    ScopeTestModel model(2, 150);
    model.pointsHint = 100;
    const Units::nA nA;
    const Units::uA uA;
    model.isInBaseUnit = true;
    model.SetUnits(&nA);
    ScopeTestView view(&model);
    view.SetPlotMode(View::ScopeMode);
    model.appendRows(100, 1.0, [](int, double) {
        return 5e-6;
    });
    view.settle();
    QCOMPARE(view.curves().value(0)->sample(99).y(), 5000.0);
    if (rolled > 0)
        model.appendRows(rolled, 1.0, channelNumber);
    view.settle();

    model.setData(model.index(0, 2), Qt::Unchecked, Qt::CheckStateRole);
    view.settle();
    QCOMPARE(view.curves().size(), 1);
    QCOMPARE(view.xText(), QString("0..99")); // all of the sweep is still right
    model.SetUnits(&uA);
    view.settle();
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::yLeft).text(), uA.name());
    QTEST(view.xText(), "axis");
    QCOMPARE(view.curves().value(0)->sample(0).y(), 5.0);
    model.setData(model.index(0, 2), Qt::Checked, Qt::CheckStateRole);
    view.settle();
    QCOMPARE(view.curves().size(), 2);

    // Of a sweep that is gone altogether nothing can be said in another unit.
    model.Clear();
    model.appendRows(40, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.curves().size(), 2);
    model.SetUnits(&nA);
    view.settle();
    QCOMPARE(view.curves().size(), 0);
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::yLeft).text(), nA.name());
}

void tst_RVXScopePlotView::manyWaitingSweepsGiveWayToTheNewest()
{
    CountingModel model(1);
    model.pointsHint = 100;
    model.appendRows(39050, 1.0, channelNumber);
    ScopeTestView view(&model);
    model.series = 0;
    view.SetPlotMode(View::ScopeMode);
    view.settle();
    QCOMPARE(view.xText(), QString("38900..38999"));
    QVERIFY2(model.series <= 2, qPrintable(QString::number(model.series)));
    // A few are shown one after the other.
    model.appendRows(300, 1.0, channelNumber);
    model.series = 0;
    view.settle();
    QCOMPARE(view.xText(), QString("39200..39299"));
    QVERIFY2(model.series >= 3, qPrintable(QString::number(model.series)));
}

void tst_RVXScopePlotView::changesOfScaleDrawTheLastSweepAgain()
{
    CountingModel model(1);
    ScopeTestView view(&model);
    view.SetPlotMode(View::ScopeMode);
    model.appendRows(300, 1.0, channelNumber);
    view.settle();
    model.series = 0;
    view.SetYScaleMode(View::FullRange);
    view.settle();
    QVERIFY(model.series > 0);
    QCOMPARE(view.xText(), QString("0..255"));
    QCOMPARE(view.yText(), QString("-1..1"));

    // The same while rows are coming in that make no sweep yet.
    model.appendRows(1, 1.0, channelNumber);
    view.SetYScaleMode(View::Percent50);
    model.series = 0;
    view.settle();
    QCOMPARE(view.yText(), QString("-0.5..0.5"));
    model.appendRows(211, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.xText(), QString("256..511"));
}

void tst_RVXScopePlotView::yScales_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("positiveOnly");
    QTest::addColumn<QString>("axis");
    QTest::newRow("normalized") << 1 << false << "-1..1";
    QTest::newRow("normalized, positive") << 1 << true << "-0.1..1";
    QTest::newRow("full") << 2 << false << "-20..50";
    QTest::newRow("full, positive") << 2 << true << "-2..50";
    QTest::newRow("half") << 3 << false << "-10..25";
    QTest::newRow("2 %") << 7 << false << "-0.4..1";
    QTest::newRow("smallest") << 14 << false << "-0.002..0.005";
    QTest::newRow("smallest, positive") << 14 << true << "-0.0002..0.005";
    QTest::newRow("automatic") << 0 << false << "0..4";
    QTest::newRow("unknown is automatic") << 15 << true << "0..4";
    QTest::newRow("negative is automatic") << -1 << false << "0..4";
}

void tst_RVXScopePlotView::yScales()
{
    QFETCH(int, mode);
    QFETCH(bool, positiveOnly);
    ScopeTestModel model(1);
    ScopeTestView view(&model);
    model.appendRows(10, 1.0, [](int, double time) {
        return time > 4 ? 4.0 : 0.0;
    });
    view.SetRange(-20.0, 50.0);
    view.SetPositiveOnly(positiveOnly);
    view.SetYScaleMode(mode);
    view.settle();
    QTEST(view.yText(), "axis");
    QCOMPARE(int(view.yScaleMode()), mode);
}

void tst_RVXScopePlotView::rangeIsTakenOnce()
{
    ScopeTestView view;
    QVERIFY(!view.SetRange(-1.0, 1.0));
    QVERIFY(view.SetRange(-1.0, 2.0));
    QVERIFY(!view.SetRange(-1.0, 2.0));
    QVERIFY(!view.SetRange(qQNaN(), 2.0));
    QVERIFY(!view.SetRange(0.0, qInf()));
}

void tst_RVXScopePlotView::normalizedCurvesReachTheirOwnLargest()
{
    ScopeTestModel model(2);
    const Units::nA nA;
    model.SetUnits(&nA);
    ScopeTestView view(&model);
    model.appendRows(100, 0.1, [](int channel, double time) {
        return channel == 1 ? 5e-9 * std::sin(time) : -3000.0;
    });
    view.settle();
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::yLeft).text(), QString("nA"));
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::xBottom).text(), QString("s"));
    view.SetYScaleMode(View::Normalized);
    view.settle();
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::yLeft).text(), QString("Relative Value"));
    const QRectF bounds = view.curves().value(0)->boundingRect();
    QCOMPARE(qMax(std::abs(bounds.top()), std::abs(bounds.bottom())), 1.0);
    QCOMPARE(view.curves().value(1)->sample(0).y(), -1.0);

    model.SetUnits(nullptr);
    view.SetYScaleMode(View::AutoScale);
    view.settle();
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::yLeft).text(), QString("Number"));
}

void tst_RVXScopePlotView::hiddenChannelsAreNotDrawn()
{
    ScopeTestModel model(3);
    ScopeTestView view(&model);
    model.appendRows(10, 1.0, channelNumber);
    model.setData(model.index(0, 2), Qt::Unchecked, Qt::CheckStateRole);
    view.settle();
    QCOMPARE(view.curves().size(), 2);
    model.setData(model.index(0, 2), Qt::Checked, Qt::CheckStateRole);
    view.settle();
    QCOMPARE(view.curves().size(), 3);
    // In the order of the channels again, each in its colour.
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(view.curves()[i]->sample(0).y(), i + 1.0);
        const QBrush colour = model.index(0, i + 1).data(Qt::BackgroundRole).value<QBrush>();
        QCOMPARE(view.curves()[i]->pen().color(), colour.color());
    }
}

void tst_RVXScopePlotView::channelsWithoutAColourGetOne()
{
    ScopeTestModel model(2);
    model.hasColours = false;
    ScopeTestView view(&model);
    model.appendRows(10, 1.0, channelNumber);
    view.settle();
    for (int i = 0; i < 2; ++i)
        QCOMPARE(view.curves()[i]->pen().color(), RVXPlotColors::color(i));
}

void tst_RVXScopePlotView::curvesAreWhereTheSamplesAre()
{
    ScopeTestModel model(2);
    ScopeTestView view(&model);
    view.SetRange(-10.0, 10.0);
    view.SetYScaleMode(View::FullRange);
    model.pointsHint = 100;
    model.appendRows(200, 1.0, [](int channel, double) {
        return channel == 1 ? 5.0 : -7.0;
    });
    view.settle();
    const QImage picture = view.canvas();
    QCOMPARE(view.colourIn(picture, 150.5, 5.0), QColor(Qt::cyan));
    QCOMPARE(view.colourIn(picture, 150.5, -7.0), QColor(Qt::green));
    // To the very borders of the axis.
    QCOMPARE(view.colourIn(picture, view.x().minValue(), 5.0, {1, 0}), QColor(Qt::cyan));
    QCOMPARE(view.colourIn(picture, view.x().maxValue(), 5.0, {-1, 0}), QColor(Qt::cyan));
    QCOMPARE(view.colourIn(picture, 150.5, 5.0, {0, 2}), QColor(Qt::black));
    // Around the canvas lies the window's colour, not that of a list.
    const QColor corner = view.viewport()->grab().toImage().pixelColor(2, 2);
    QCOMPARE(corner, view.palette().color(view.backgroundRole()));
}

void tst_RVXScopePlotView::modesShowTheirWidgetAlone()
{
    ScopeTestModel model(2);
    model.appendRows(10, 1.0, channelNumber);
    ScopeTestView view(&model);
    const auto shown = [&view] {
        QStringList names;
        if (view.qwtPlot()->isVisible())
            names << "plot";
        if (view.spectrogram()->isVisible())
            names << "spectrogram";
        if (view.positionPlot()->isVisible())
            names << "position";
        if (view.splitPlot()->isVisible())
            names << "split";
        if (view.horizontalScrollBar()->isVisible())
            names << "scroll bar";
        return names.join(' ');
    };
    QStringList modes;
    for (int mode = 0; mode <= 5; ++mode) {
        view.SetPlotMode(mode);
        view.settle();
        modes << shown();
    }
    QCOMPARE(modes,
             QStringList({"plot scroll bar", "plot", "plot", "spectrogram", "position", "split"}));
    view.SetPlotMode(6);
    view.SetPlotMode(-1);
    view.settle();
    QCOMPARE(shown(), QString("split"));
    view.SetPlotMode(View::StripMode);
    view.settle();
    QCOMPARE(shown(), QString("plot scroll bar"));
    QCOMPARE(view.curves().size(), 2);

    ScopeTestView empty;
    empty.SetPlotMode(View::SplitMode); // no model, no modes
    QVERIFY(empty.qwtPlot()->isVisible());
}

void tst_RVXScopePlotView::bufferSizeIsTold()
{
    QLabel label;
    RVXSingleChannelDataModel model;
    QIdentityProxyModel proxy;
    proxy.setSourceModel(&model);
    ScopeTestView view(&proxy); // no plot model, but the label tells of what is below it
    view.SetBufferSizeLabel(&label);
    QCOMPARE(label.text(), QString("0 Samples"));
    for (int i = 1; i <= 12; ++i)
        model.AddData(i, 0.0);
    view.settle();
    QCOMPARE(label.text(), QString("12 Samples"));
    view.SetPlotMode(View::PositionMode);
    model.AddData(13, 0.0);
    QCOMPARE(label.text(), QString("13 Samples"));
    view.setModel(nullptr);
    QCOMPARE(label.text(), QString("0 Samples"));
}

void tst_RVXScopePlotView::channelsComeAndGo()
{
    ScopeTestModel model(2);
    model.appendRows(10, 1.0, channelNumber);
    ScopeTestView view(&model);
    QCOMPARE(view.curves().size(), 2);
    model.setChannels(5);
    view.settle();
    QCOMPARE(view.curves().size(), 5);
    view.SetPlotMode(View::HistogramMode);
    view.settle();
    QCOMPARE(view.xText(), QString("0.5..5.5"));
    model.setChannels(12);
    view.settle();
    QCOMPARE(view.xText(), QString("0.5..12.5"));

    // A sweep of the channels that were is none of those that are.
    view.SetPlotMode(View::ScopeMode);
    model.appendRows(290, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.curves().size(), 12);
    model.Clear();
    model.setChannels(3);
    model.appendRows(100, 1.0, channelNumber);
    view.settle();
    QCOMPARE(view.curves().size(), 0);
}

void tst_RVXScopePlotView::atMost256Channels()
{
    ScopeTestModel model(257);
    model.appendRows(4, 1.0, channelNumber);
    QTest::ignoreMessage(QtDebugMsg, "RVXScopePlotView: the first 256 of 257 channels are shown");
    ScopeTestView view(&model);
    QCOMPARE(view.curves().size(), 256);
    view.SetPlotMode(View::HistogramMode);
    view.settle();
    QCOMPARE(view.xText(), QString("0.5..256.5"));
}

void tst_RVXScopePlotView::modelsGoAway()
{
    for (int mode = 0; mode <= 5; ++mode) {
        auto model = std::make_unique<ScopeTestModel>(2);
        ScopeTestModel other(1);
        other.appendRows(10, 1.0, channelNumber);
        ScopeTestView view(model.get());
        view.SetPlotMode(mode);
        model->appendRows(300, 1.0, channelNumber);
        view.settle();
        model.reset();
        view.grab();
        view.settle();
        QCOMPARE(view.curves().size(), 0);
        view.setModel(&other);
        view.SetPlotMode(View::StripMode);
        view.settle();
        QCOMPARE(view.curves().size(), 1);
        view.setModel(nullptr);
        view.settle();
        QCOMPARE(view.curves().size(), 0);
    }
}

void tst_RVXScopePlotView::modelsLeaveNoSelectionModels()
{
    ScopeTestModel models[2]{ScopeTestModel(1), ScopeTestModel(1)};
    ScopeTestView view;
    for (int i = 0; i < 20; ++i) {
        view.setModel(&models[i % 2]);
        QVERIFY(view.findChildren<QItemSelectionModel *>().size() <= 2);
    }
    // One that another view uses stays, and so does a host's own.
    QItemSelectionModel *const shared = view.selectionModel();
    RVXScopePlotView other;
    other.setModel(&models[1]);
    other.setSelectionModel(shared);
    view.setModel(&models[0]);
    auto *const own = new QItemSelectionModel(&models[0], &view);
    const QPointer<QItemSelectionModel> kept(own);
    view.setSelectionModel(own);
    view.setModel(&models[0]);
    view.setModel(&models[1]);
    view.setModel(&models[0]);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(other.selectionModel(), shared);
    QVERIFY(kept);
}

void tst_RVXScopePlotView::focusIsVisible()
{
    ScopeTestModel model(1);
    model.appendRows(300, 1.0, channelNumber);
    ScopeTestView view(&model);
    view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    const QColor mark = view.palette().color(QPalette::Highlight);
    const auto edge = [&view] {
        view.settle();
        return view.canvas().pixelColor(1, 40);
    };
    view.setFocus();
    QTRY_VERIFY(view.hasFocus());
    const QImage focused = view.canvas();
    QCOMPARE(edge(), mark);
    view.clearFocus();
    QVERIFY(edge() != mark);
    // Nothing of the plot is covered.
    const QRect inside = view.qwtPlot()->canvas()->contentsRect();
    const auto plot = [&](const QImage &canvas) {
        const double ratio = canvas.devicePixelRatio();
        return canvas.copy(QRect(inside.topLeft() * ratio, inside.size() * ratio));
    };
    QCOMPARE(plot(view.canvas()), plot(focused));
}

void tst_RVXScopePlotView::keysThatNobodyHandles_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("a digit, with which times begin") << int(Qt::Key_1) << "1";
    QTest::newRow("a letter") << int(Qt::Key_A) << "a";
    QTest::newRow("space") << int(Qt::Key_Space) << " ";
    QTest::newRow("left, without a marker") << int(Qt::Key_Left) << "";
    QTest::newRow("delete, without a marker") << int(Qt::Key_Delete) << "";
}

//! They are left to the window, and change nothing.
void tst_RVXScopePlotView::keysThatNobodyHandles()
{
    QFETCH(int, key);
    QFETCH(QString, text);
    ScopeTestModel model(1);
    model.appendRows(1000, 1.0, channelNumber);
    ScopeTestView view(&model);
    view.enablePlotMarker(true);
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&view, &event);
    view.keyboardSearch(text);
    view.settle();
    QVERIFY(!event.isAccepted());
    QVERIFY(!view.selectionModel()->hasSelection());
    QVERIFY(!view.hasMarker(0) && !view.hasMarker(1));
    QCOMPARE(view.x().maxValue(), 999.0);
}

void tst_RVXScopePlotView::modelsThatCannotBePlotted()
{
    ScopeTestModel source(2);
    source.appendRows(300, 1.0, channelNumber);
    QIdentityProxyModel plain;
    plain.setSourceModel(&source);
    ScopeTestView view(&plain);
    for (int mode = 0; mode <= 2; ++mode) {
        view.SetPlotMode(mode);
        view.settle();
        QCOMPARE(view.curves().size(), 0);
    }
}

void tst_RVXScopePlotView::hostileNumbers_data()
{
    QTest::addColumn<double>("number");
    QTest::newRow("not a number") << qQNaN();
    QTest::newRow("infinity") << qInf();
    QTest::newRow("minus infinity") << -qInf();
    QTest::newRow("1e300") << 1e300;
    QTest::newRow("the largest") << std::numeric_limits<double>::max();
    QTest::newRow("the smallest") << std::numeric_limits<double>::denorm_min();
}

//! The test is that it comes to an end, and that the good samples are still there.
void tst_RVXScopePlotView::hostileNumbers()
{
    QFETCH(double, number);
    ScopeTestModel model(2);
    model.pointsHint = 20;
    ScopeTestView view(&model);
    for (int mode = 0; mode <= 2; ++mode) {
        view.SetPlotMode(mode);
        for (int scale : {0, 1, 2}) {
            view.SetYScaleMode(scale);
            model.append({{1.0, 1.0, number}, {2.0, number, 1.0}, {number, 1.0, -number}});
            model.append({{1.0, number, number}, {number, number, number}});
            view.settle();
            view.grab();
        }
        QVERIFY(std::isfinite(view.x().width()));
        QVERIFY(std::isfinite(view.y().width()));
    }
    view.SetRange(-1e308, 1e308);
    view.SetYScaleMode(View::FullRange);
    view.settle();
    model.Clear();
    view.SetPlotMode(View::StripMode);
    view.SetYScaleMode(View::AutoScale);
    model.appendRows(30, 1.0, [](int channel, double) {
        return 0.5 * channel;
    });
    view.settle();
    QCOMPARE(view.xText(), QString("10..29"));
    QVERIFY(view.y().maxValue() <= 2.0);
}

void tst_RVXScopePlotView::longAfterTheStartTicksCanBeToldApart()
{
    ScopeTestModel model(1);
    const double week = 604800.0;
    QVector<ScopeTestModel::Row> rows;
    for (int i = 0; i < 300; ++i)
        rows.append({week + i * 0.01, 1.0});
    model.append(rows);
    ScopeTestView view(&model);
    const QwtScaleDraw *draw = view.qwtPlot()->axisScaleDraw(QwtPlot::xBottom);
    QStringList labels;
    for (double tick : view.qwtPlot()->axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick))
        labels << draw->label(tick).text();
    QVERIFY(labels.size() > 2);
    QCOMPARE(labels.removeDuplicates(), 0);
}

CORVALE_QT_TEST_MAIN(tst_RVXScopePlotView)
#include "tst_RVXScopePlotView.moc"
