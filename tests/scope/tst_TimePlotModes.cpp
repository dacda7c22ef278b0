// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/Units.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/TestMain.h"

#include <QScrollBar>

#include <cmath>

using namespace Corvale_Qt;
using View = RVXScopePlotView;

class tst_TimePlotModes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
    void longAfterTheStartTicksCanBeToldApart();
};

void tst_TimePlotModes::stripNeedsTwoSamples()
{
    ScopeTestModel model(2);
    ScopeTestView view(&model);
    model.appendRows(1, 1.0, level);
    view.settle();
    QCOMPARE(view.curves().size(), 0);
    QVERIFY(!view.horizontalScrollBar()->isVisible());
    model.appendRows(2, 1.0, level);
    view.settle();
    QCOMPARE(view.curves().size(), 2);
    // With three of 256 samples, the trace begins close to the right border.
    QCOMPARE(view.x().maxValue(), 2.0);
    QCOMPARE(view.x().minValue(), -2.0 / 3.0 * 253.0);
}

void tst_TimePlotModes::stripFollowsUntilItIsScrolledBack()
{
    ScopeTestModel model(1);
    model.pointsHint = 100;
    ScopeTestView view(&model);
    model.appendRows(400, 1.0, level);
    view.settle();
    QCOMPARE(view.xText(), QString("300..399"));
    QScrollBar *bar = view.horizontalScrollBar();
    QCOMPARE(bar->maximum(), 30000000);
    QCOMPARE(bar->value(), bar->maximum());
    QCOMPARE(view.horizontalOffset(), bar->value());

    bar->setValue(10000000);
    view.settle();
    QCOMPARE(view.x().minValue(), 100.0);
    model.appendRows(50, 1.0, level);
    view.settle();
    QCOMPARE(view.x().minValue(), 100.0);
    QCOMPARE(bar->value(), 10000000);

    bar->setValue(bar->maximum());
    view.settle();
    model.appendRows(1, 1.0, level);
    view.settle();
    QCOMPARE(view.x().maxValue(), 450.0);

    model.Clear();
    model.appendRows(2, 1.0, level);
    view.settle();
    QCOMPARE(view.x().maxValue(), 452.0);
}

void tst_TimePlotModes::scrollingBeginsAnewWithTheModel()
{
    ScopeTestModel first(1);
    ScopeTestModel second(1);
    first.appendRows(1000, 1.0, level);
    second.appendRows(1000, 1.0, level);
    ScopeTestView view(&first);
    QScrollBar *bar = view.horizontalScrollBar();
    bar->setValue(0);
    view.settle();
    view.setModel(&second);
    view.settle();
    QCOMPARE(view.x().maxValue(), 999.0);

    // When the model is emptied, the view follows the newest sample again.
    bar->setValue(0);
    view.settle();
    second.remove(1, 1000);
    view.settle();
    QCOMPARE(bar->maximum(), 0);
    second.appendRows(1000, 1.0, level);
    view.settle();
    QCOMPARE(view.x().maxValue(), 1999.0);
}

void tst_TimePlotModes::stripKeepsItsLengthWhileBatchesVary()
{
    ScopeTestModel model(1);
    model.pointsHint = 0;
    ScopeTestView view(&model);
    model.appendRows(5, 0.01, level); // too few for a batch
    model.appendRows(300, 0.01, level);
    for (const int rows : {300, 11, 300, 1, 300}) {
        model.appendRows(rows, 0.01, level);
        view.settle();
        QVERIFY2(qAbs(view.x().width() - 2.99) < 1e-6, qPrintable(view.xText()));
    }
    // Now most of the last batches are short.
    for (int i = 0; i < 9; ++i)
        model.appendRows(i < 8 ? 20 : 40, 0.01, level);
    for (int i = 0; i < 4; ++i)
        model.appendRows(20, 0.01, level);
    view.settle();
    QVERIFY2(qAbs(view.x().width() - 0.19) < 1e-6, qPrintable(view.xText()));

    ScopeTestModel single(1);
    single.pointsHint = 0;
    single.appendRows(600, 1.0, level);
    view.setModel(&single); // the batches of the former model do not count
    view.settle();
    QCOMPARE(view.x().width(), 255.0);
}

void tst_TimePlotModes::stripBeginsAnewWhereTimeStepsBack_data()
{
    QTest::addColumn<double>("width"); // that the model asks for
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

void tst_TimePlotModes::stripBeginsAnewWhereTimeStepsBack()
{
    QFETCH(double, width);
    QFETCH(QVector<double>, stamps);
    QFETCH(double, oldest);
    ScopeTestModel model(1);
    model.widthHint = width;
    model.appendRows(1000, 1.0, level);
    ScopeTestView view(&model);
    for (const double stamp : stamps) {
        model.append({{stamp, 1.0}});
        view.settle();
        QVERIFY2(view.x().width() > 0.0, qPrintable(view.xText())); // the axis never runs backwards
    }
    QTEST(view.x().maxValue(), "right");
    const QRectF drawn = view.curves().value(0)->boundingRect();
    QCOMPARE(drawn.left(), oldest);
    QTEST(int(view.curves().value(0)->dataSize()), "drawn");
    // A view that is opened now shows the same.
    ScopeTestView late(&model);
    QCOMPARE(late.curves().value(0)->boundingRect(), drawn);
}

void tst_TimePlotModes::changesWithoutNewRowsArePlotted()
{
    ScopeTestModel model(1);
    model.pointsHint = 100;
    model.appendRows(300, 1.0, level);
    ScopeTestView view(&model);
    model.remove(291, 300);
    view.settle();
    QCOMPARE(view.xText(), QString("190..289"));
    for (const int mode : {View::StripMode, View::ScopeMode}) {
        view.SetPlotMode(mode);
        view.settle();
        model.pointsHint = 50; // takes effect at the next repaint
        view.qwtPlot()->canvas()->update();
        view.settle();
        QCOMPARE(view.x().width(), 49.0);
        model.pointsHint = 100;
    }
}

void tst_TimePlotModes::scrollToEndsAtTheCentreForEveryHint()
{
    ScopeTestModel model(1);
    model.pointsHint = 100;
    ScopeTestView view(&model);
    model.appendRows(400, 1.0, level);
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
    view.scrollTo(model.index(0, 1), View::PositionAtCenter); // row 0 is not a sample
    QCOMPARE(bar->value(), bar->maximum());
}

void tst_TimePlotModes::sweepsAreDrawnWhenComplete()
{
    ScopeTestModel model(1);
    ScopeTestView view(&model);
    view.SetPlotMode(View::ScopeMode);
    model.appendRows(255, 1.0, level);
    view.settle();
    QCOMPARE(view.curves().size(), 0);
    model.appendRows(45, 1.0, level);
    view.settle();
    QCOMPARE(view.xText(), QString("0..255"));
    QCOMPARE(int(view.curves().value(0)->dataSize()), 256);
    model.appendRows(211, 1.0, level);
    view.settle();
    QCOMPARE(view.xText(), QString("0..255"));
    model.appendRows(1, 1.0, level);
    view.settle();
    QCOMPARE(view.xText(), QString("256..511"));

    model.Clear();
    model.appendRows(1, 1.0, level);
    view.settle();
    QCOMPARE(view.curves().size(), 0);
}

void tst_TimePlotModes::sweepsGoOnWhileTheBufferDropsRows()
{
    ScopeTestModel model(1, 300);
    model.pointsHint = 100;
    ScopeTestView view(&model);
    view.SetPlotMode(View::ScopeMode);
    QStringList shown;
    for (int i = 0; i < 100; ++i) {
        model.appendRows(10, 1.0, level);
        view.settle();
        if (!view.curves().isEmpty() && shown.value(shown.size() - 1) != view.xText())
            shown << view.xText();
    }
    QCOMPARE(shown.join(' '),
             QString("0..99 100..199 200..299 300..399 400..499 500..599 600..699 700..799 "
                     "800..899 900..999"));
}

void tst_TimePlotModes::theSweepStaysUntilTheNext_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("rows come") << "append";
    QTest::newRow("half of the sweep leaves the buffer") << "roll";
    QTest::newRow("all but one sample leave the buffer") << "roll far";
    QTest::newRow("rows go") << "remove";
    QTest::newRow("all is cleared and rows come") << "clear";
    QTest::newRow("a look at the strip chart") << "strip";
}

//! Sweeps of 100 in a buffer of 150: the picture must stay the same to the pixel.
void tst_TimePlotModes::theSweepStaysUntilTheNext()
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
    // A larger canvas and another scale show the same samples.
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

void tst_TimePlotModes::theSweepIsDrawnAgainWhenItsDataChange_data()
{
    QTest::addColumn<int>("rolled"); // rows that came after the sweep of 100, in a buffer of 150
    QTest::addColumn<QString>("axis");
    QTest::newRow("acquisition stands") << 0 << "0..99";
    QTest::newRow("rows were added") << 50 << "0..99";
    QTest::newRow("a part has left the buffer") << 80 << "30..99";
}

void tst_TimePlotModes::theSweepIsDrawnAgainWhenItsDataChange()
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
        model.appendRows(rolled, 1.0, level);
    view.settle();

    model.setData(model.index(0, 2), Qt::Unchecked, Qt::CheckStateRole);
    view.settle();
    QCOMPARE(view.curves().size(), 1);
    QCOMPARE(view.xText(), QString("0..99")); // all samples of the sweep are still valid
    model.SetUnits(&uA);
    view.settle();
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::yLeft).text(), uA.name());
    QTEST(view.xText(), "axis");
    QCOMPARE(view.curves().value(0)->sample(0).y(), 5.0);
    model.setData(model.index(0, 2), Qt::Checked, Qt::CheckStateRole);
    view.settle();
    QCOMPARE(view.curves().size(), 2);

    // A sweep whose samples have all gone cannot be shown in another unit.
    model.Clear();
    model.appendRows(40, 1.0, level);
    view.settle();
    QCOMPARE(view.curves().size(), 2);
    model.SetUnits(&nA);
    view.settle();
    QCOMPARE(view.curves().size(), 0);
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::yLeft).text(), nA.name());
}

void tst_TimePlotModes::manyWaitingSweepsGiveWayToTheNewest()
{
    ScopeTestModel model(1);
    model.pointsHint = 100;
    model.appendRows(39050, 1.0, level);
    ScopeTestView view(&model);
    model.seriesTaken = 0;
    view.SetPlotMode(View::ScopeMode);
    view.settle();
    QCOMPARE(view.xText(), QString("38900..38999"));
    QVERIFY2(model.seriesTaken <= 2, qPrintable(QString::number(model.seriesTaken)));
    // A few sweeps are shown one after the other.
    model.appendRows(300, 1.0, level);
    model.seriesTaken = 0;
    view.settle();
    QCOMPARE(view.xText(), QString("39200..39299"));
    QVERIFY2(model.seriesTaken >= 3, qPrintable(QString::number(model.seriesTaken)));
}

void tst_TimePlotModes::changesOfScaleDrawTheLastSweepAgain()
{
    ScopeTestModel model(1);
    ScopeTestView view(&model);
    view.SetPlotMode(View::ScopeMode);
    model.appendRows(300, 1.0, level);
    view.settle();
    model.seriesTaken = 0;
    view.SetYScaleMode(View::FullRange);
    view.settle();
    QVERIFY(model.seriesTaken > 0);
    QCOMPARE(view.xText(), QString("0..255"));
    QCOMPARE(view.yText(), QString("-1..1"));

    // The last sweep is also drawn again while the next one is incomplete.
    model.appendRows(1, 1.0, level);
    view.SetYScaleMode(View::Percent50);
    model.seriesTaken = 0;
    view.settle();
    QCOMPARE(view.yText(), QString("-0.5..0.5"));
    model.appendRows(211, 1.0, level);
    view.settle();
    QCOMPARE(view.xText(), QString("256..511"));
}

void tst_TimePlotModes::longAfterTheStartTicksCanBeToldApart()
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

CORVALE_QT_TEST_MAIN(tst_TimePlotModes)
#include "tst_TimePlotModes.moc"
