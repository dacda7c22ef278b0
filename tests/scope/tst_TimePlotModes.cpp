// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/units/Units.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using View = RVXScopePlotView;

namespace {

//! A view that shows 100 points at once, a sweep in scope mode.
class HundredPoints : public ModelView
{
public:
    explicit HundredPoints(int mode, int channels = 1,
                           int capacity = std::numeric_limits<int>::max())
        : ModelView(channels, 0, capacity)
    {
        model.pointsHint = 100;
        SetPlotMode(mode);
    }
};

} // namespace

class tst_TimePlotModes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stripNeedsTwoSamples()
    {
        ModelView view(2, 1);
        QCOMPARE(view.curves().size(), 0);
        QVERIFY(!view.horizontalScrollBar()->isVisible());
        view.append(2);
        QCOMPARE(view.curves().size(), 2);
        // With three of 256 samples, the trace begins close to the right border.
        QCOMPARE(view.x(), QwtInterval(-2.0 / 3.0 * 253.0, 2.0));
    }

    void stripFollowsUntilItIsScrolledBack()
    {
        HundredPoints view(View::StripMode);
        view.append(400);
        QCOMPARE(view.xText(), QString("300..399"));
        QScrollBar *bar = view.horizontalScrollBar();
        QCOMPARE(bar->maximum(), 30000000);
        QCOMPARE(bar->value(), bar->maximum());
        QCOMPARE(view.horizontalOffset(), bar->value());
        bar->setValue(10000000);
        QCOMPARE(view.x().minValue(), 100.0);
        view.append(50);
        QCOMPARE(view.x().minValue(), 100.0);
        QCOMPARE(bar->value(), 10000000);
        bar->setValue(bar->maximum());
        view.settle();
        view.append(1);
        QCOMPARE(view.x().maxValue(), 450.0);
        view.model.Clear();
        view.append(2);
        QCOMPARE(view.x().maxValue(), 452.0);
    }

    void stripMovesByPixels()
    {
        RVXMultichannelDeviceModel device(2);
        double newest = 1.0;
        const auto append = [&](int rows) {
            QVector<double> times;
            QVector<double> values;
            for (int i = 0; i < rows; ++i) {
                times << (newest += 0.001);
                values << std::sin(newest * 40.0)
                       << std::sin(newest * 7.0) * std::sin(newest * 900.0);
            }
            device.appendRows(times, values);
        };
        const auto prepare = [](ScopeTestView &view) {
            view.setTimeSpan(2.0);
            view.setMovesByPixels(true);
        };
        append(300); // fewer than the span has room for
        ScopeTestView view(&device);
        QVERIFY(!view.movesByPixels());
        QCOMPARE(view.x().maxValue(), newest);
        prepare(view);
        for (int rows = 1; rows < 200; rows += 13) {
            append(rows == 92 ? 2000 : rows);
            const double step = 2.0 / view.qwtPlot()->canvasMap(QwtPlot::xBottom).pDist();
            const double columns = view.x().maxValue() / step;
            QVERIFY(std::abs(columns - std::round(columns)) < 1e-6);
            QVERIFY(view.x().maxValue() >= newest && view.x().maxValue() < newest + step);
            QVERIFY(std::abs(view.x().width() - 2.0) < 1e-9);
            ScopeTestView fresh(&device);
            prepare(fresh);
            fresh.clearFocus(); // which is marked on the canvas
            QCOMPARE(view.canvas(), fresh.canvas());
        }
    }

    void scrollingBeginsAnewWithTheModel()
    {
        ScopeTestModel second(1);
        second.appendRows(1000, 1.0, level);
        ModelView view(1, 1000);
        QScrollBar *bar = view.horizontalScrollBar();
        const auto scrollBack = [&] {
            bar->setValue(0);
            view.settle();
        };
        scrollBack();
        view.setModel(&second);
        QCOMPARE(view.x().maxValue(), 999.0);
        // When the model is emptied, the view follows the newest sample again.
        scrollBack();
        second.remove(1, 1000);
        view.settle();
        QCOMPARE(bar->maximum(), 0);
        second.appendRows(1000, 1.0, level);
        QCOMPARE(view.x().maxValue(), 1999.0);
    }

    void stripKeepsItsLengthWhileBatchesVary()
    {
        ModelView view(1);
        view.model.pointsHint = 0;
        view.append(5); // too few for a batch
        view.append(300);
        for (const int rows : {300, 11, 300, 1, 300}) {
            view.append(rows);
            QCOMPARE(view.x().width(), 299.0);
        }
        // Now most of the last batches are short.
        for (const int rows : {20, 20, 20, 20, 20, 20, 20, 20, 40, 20, 20, 20, 20})
            view.append(rows);
        QCOMPARE(view.x().width(), 19.0);
        ScopeTestModel single(1);
        single.pointsHint = 0;
        single.appendRows(600, 1.0, level);
        view.setModel(&single); // the batches of the former model do not count
        QCOMPARE(view.x().width(), 255.0);
    }

    void stripBeginsAnewWhereTimeStepsBack_data()
    {
        // The width that the model asks for; stamps that come after 1000 rows from 0 to 999.
        columns<double, QVector<double>, QString>("width", "stamps", "shown");
        const QVector<double> anew{0, 1, 2};
        const QVector<double> outlier{1e12, 1000, 1001};
        const QVector<double> jitter{1003, 1001, 1002};
        row("time begins anew", 0.0, anew, "3 from 0 to 2");
        row("time begins anew, width given", 100.0, anew, "3 from 0 to 2");
        row("only one sample since", 0.0, QVector<double>{5}, "1 from 5 to 5");
        row("a single stamp far ahead", 0.0, outlier, "2 from 1000 to 1001");
        row("far ahead, width given", 100.0, outlier, "2 from 1000 to 1001");
        row("far ahead beside missing ones", 0.0, QVector<double>{1e12, qQNaN(), 1000, 1001},
            "2 from 1000 to 1001");
        // What follows the first sample beyond the right border is not drawn.
        row("small disorder", 0.0, jitter, "255 from 746 to 1002");
        row("small disorder, width given", 100.0, jitter, "100 from 901 to 1002");
    }
    void stripBeginsAnewWhereTimeStepsBack()
    {
        QFETCH(double, width);
        ModelView view(1, 1000);
        view.model.widthHint = width;
        for (const double stamp : cell<QVector<double>>("stamps")) {
            view.model.append({{stamp, 1.0}});
            QVERIFY(view.x().width() > 0.0); // the axis never runs backwards
        }
        ScopeTestView late(&view.model); // a view that is opened now shows the same
        for (ScopeTestView *one : {static_cast<ScopeTestView *>(&view), &late}) {
            const QwtPlotCurve *curve = one->curves().value(0);
            QCOMPARE(QString("%1 from %2 to %3")
                         .arg(curve->dataSize())
                         .arg(curve->minXValue())
                         .arg(one->x().maxValue()),
                     cell("shown"));
        }
    }

    void changesWithoutNewRowsArePlotted()
    {
        HundredPoints view(View::StripMode);
        view.append(300);
        view.settle();
        view.model.remove(291, 300);
        QCOMPARE(view.xText(), QString("190..289"));
        for (const int mode : {View::StripMode, View::ScopeMode}) {
            view.showMode(mode);
            view.model.pointsHint = 50; // takes effect at the next repaint
            view.qwtPlot()->canvas()->update();
            QCOMPARE(view.x().width(), 49.0);
            view.model.pointsHint = 100;
        }
    }

    void scrollToEndsAtTheCentreForEveryHint()
    {
        HundredPoints view(View::StripMode);
        view.append(400);
        view.settle();
        QScrollBar *bar = view.horizontalScrollBar();
        view.scrollTo(view.model.index(320, 1), View::EnsureVisible); // it is visible
        QCOMPARE(bar->value(), bar->maximum());
        for (View::ScrollHint hint : {View::EnsureVisible, View::PositionAtTop,
                                      View::PositionAtBottom, View::PositionAtCenter}) {
            bar->setValue(bar->maximum());
            const double half = view.x().width() / 2;
            view.scrollTo(view.model.index(21, 1), hint);
            QCOMPARE(bar->value(), int(half + 20.0));
        }
        bar->setValue(bar->maximum());
        view.scrollTo(view.model.index(0, 1), View::PositionAtCenter); // row 0 is not a sample
        QCOMPARE(bar->value(), bar->maximum());
    }

    void sweepsAreDrawnWhenComplete()
    {
        ModelView view(1);
        view.SetPlotMode(View::ScopeMode);
        QStringList shown;
        for (int rows : {255, 45, 211, 1}) {
            view.append(rows);
            shown << (view.curves().isEmpty() ? "nothing" : view.xText());
        }
        QCOMPARE(shown.join(' '), QString("nothing 0..255 0..255 256..511"));
        QCOMPARE(int(view.curves().value(0)->dataSize()), 256);
        view.model.Clear();
        view.append(1);
        QCOMPARE(view.curves().size(), 0);
    }

    void sweepsGoOnWhileTheBufferDropsRows()
    {
        HundredPoints view(View::ScopeMode, 1, 300);
        QStringList shown;
        for (int i = 0; i < 100; ++i) {
            view.append(10);
            if (!view.curves().isEmpty())
                shown << view.xText();
        }
        shown.removeDuplicates();
        QCOMPARE(shown.join(' '),
                 QString("0..99 100..199 200..299 300..399 400..499 500..599 600..699 700..799 "
                         "800..899 900..999"));
    }

    void theSweepStaysUntilTheNext_data()
    {
        columns<int, int, int, bool>("removed", "added", "atOnce", "looksAtTheStrip");
        row("rows come", 0, 50, 50, false);
        row("half of the sweep leaves the buffer", 0, 90, 1, false);
        row("all but one sample leave the buffer", 0, 99, 1, false);
        row("rows go", 30, 0, 1, false);
        row("all is cleared and rows come", 100, 40, 40, false);
        row("a look at the strip chart", 0, 99, 99, true);
    }
    //! Sweeps of 100 in a buffer of 150: the picture must stay the same to the pixel.
    void theSweepStaysUntilTheNext()
    {
        QFETCH(int, removed);
        QFETCH(int, atOnce);
        HundredPoints view(View::ScopeMode, 2, 150);
        const auto wave = [](int channel, double time) { return std::sin(time / 7.0) * channel; };
        view.model.appendRows(100, 1.0, wave);
        const QImage before = view.canvas();
        if (removed == 100)
            view.model.Clear();
        else if (removed > 0)
            view.model.remove(1, removed);
        for (int i = 0; i < cell<int>("added"); i += atOnce) {
            view.model.appendRows(atOnce, 1.0, wave);
            view.settle();
        }
        if (cell<bool>("looksAtTheStrip")) {
            view.showMode(View::StripMode);
            view.SetPlotMode(View::ScopeMode);
        }
        QCOMPARE(view.canvas(), before);
        // A larger canvas and another scale show the same samples.
        view.resize(1000, 600);
        view.SetYScaleMode(View::Normalized);
        QCOMPARE(view.xText(), QString("0..99"));
        const QwtPlotCurve *curve = view.curves().value(1);
        QCOMPARE(int(curve->dataSize()), 100);
        QCOMPARE(curve->sample(99).x(), 99.0);
        const QRectF bounds = curve->boundingRect();
        QCOMPARE(qMax(std::abs(bounds.top()), std::abs(bounds.bottom())), 1.0);
    }

    void theSweepIsDrawnAgainWhenItsDataChange_data()
    {
        columns<int, QString>("rolled", "axis"); // rows after the sweep of 100, in a buffer of 150
        row("acquisition stands", 0, "0..99");
        row("rows were added", 50, "0..99");
        row("a part has left the buffer", 80, "30..99");
    }
    void theSweepIsDrawnAgainWhenItsDataChange()
    {
        QFETCH(int, rolled);
        const Units::nA nA;
        const Units::uA uA;
        HundredPoints view(View::ScopeMode, 2, 150);
        view.model.isInBaseUnit = true;
        view.model.SetUnits(&nA);
        view.model.appendRows(100, 1.0, [](int, double) { return 5e-6; });
        QCOMPARE(view.curves().value(0)->sample(99).y(), 5000.0);
        view.enablePlotMarker(true);
        view.click(Qt::LeftButton, 49.6, 5000.0);
        view.append(rolled);
        view.settle();
        view.check(2, false);
        QCOMPARE(view.curves().size(), 1);
        QCOMPARE(view.xText(), QString("0..99")); // all samples of the sweep are still valid
        view.model.SetUnits(&uA);
        QCOMPARE(view.title(QwtPlot::yLeft), uA.name());
        QTEST(view.xText(), "axis");
        QCOMPARE(view.curves().value(0)->sample(0).y(), 5.0);
        // The marker stays on its sample.
        QCOMPARE(view.markerX(0), 50.0);
        QCOMPARE(view.markerStatistics().first.row, rolled == 80 ? 21 : 51);
        view.press(Qt::Key_Left);
        QCOMPARE(view.markerX(0), 49.0);
        view.check(2, true);
        QCOMPARE(view.curves().size(), 2);
        // A sweep whose samples have all gone cannot be shown in another unit.
        view.model.Clear();
        view.append(40);
        QCOMPARE(view.curves().size(), 2);
        view.model.SetUnits(&nA);
        QCOMPARE(view.curves().size(), 0);
        QCOMPARE(view.title(QwtPlot::yLeft), nA.name());
    }

    void manyWaitingSweepsGiveWayToTheNewest()
    {
        HundredPoints view(View::StripMode);
        view.append(39050);
        view.settle();
        view.model.seriesTaken = 0;
        view.SetPlotMode(View::ScopeMode);
        QCOMPARE(view.xText(), QString("38900..38999"));
        QVERIFY(view.model.seriesTaken <= 2);
        // A few sweeps are shown one after the other.
        view.append(300);
        view.model.seriesTaken = 0;
        QCOMPARE(view.xText(), QString("39200..39299"));
        QVERIFY(view.model.seriesTaken >= 3);
    }

    void changesOfScaleDrawTheLastSweepAgain()
    {
        HundredPoints view(View::ScopeMode);
        view.append(130);
        QCOMPARE(view.xText(), QString("0..99"));
        view.model.seriesTaken = 0;
        view.SetYScaleMode(View::FullRange);
        QCOMPARE(view.yText(), QString("-1..1"));
        QVERIFY(view.model.seriesTaken > 0);
        QCOMPARE(view.xText(), QString("0..99"));
        // It is also drawn again while the next one is incomplete.
        view.append(1);
        view.SetYScaleMode(View::Percent50);
        QCOMPARE(view.yText(), QString("-0.5..0.5"));
        view.append(69);
        QCOMPARE(view.xText(), QString("100..199"));
    }

    void outagesAreShaded()
    {
        for (const int mode : {View::StripMode, View::ScopeMode}) {
            HundredPoints view(mode);
            QSignalSpy changed(&view, &View::gapIntervalsChanged);
            QVector<ScopeTestModel::Row> rows;
            for (int i = 0; i < 100; ++i)
                rows.append({i < 50 ? i * 1.0 : 100.0 + i, 1.0});
            view.model.append(rows);
            view.SetRange(-2.0, 2.0);
            view.SetYScaleMode(View::FullRange);
            const QColor line = RVXPlotColors::color(0);
            const auto colour = [&](double x, double y) {
                return view.colourIn(view.canvas(), x, y);
            };
            QCOMPARE(colour(100.5, 1.0), line);
            QCOMPARE(colour(100.5, 0.31), QColor(Qt::black));
            view.setGapIntervals(-1.0);
            view.setGapIntervals(qQNaN());
            QCOMPARE(changed.size(), 0);
            view.setGapIntervals(3.0);
            QCOMPARE(changed.size(), 1);
            QVERIFY(colour(100.5, 1.0) != line);
            QVERIFY(colour(100.5, 0.31).lightness() > 20);
            QCOMPARE(colour(20.5, 1.0), line);
            QCOMPARE(colour(20.5, 0.31), QColor(Qt::black));
            // A histogram has no time.
            view.showMode(View::HistogramMode);
            const QImage histogram = view.canvas();
            view.setGapIntervals(0.0);
            QCOMPARE(view.canvas(), histogram);
            view.setGapIntervals(3.0);
            view.showMode(mode);
            view.setGapIntervals(0.0);
            QCOMPARE(colour(100.5, 0.31), QColor(Qt::black));
            // The next sweep has no gap where this one has it.
            view.setGapIntervals(3.0);
            rows.clear();
            for (int i = 200; i < 300; ++i)
                rows.append({i * 1.0, 1.0});
            view.model.append(rows);
            QCOMPARE(view.xText(), QString("200..299"));
            QCOMPARE(colour(249.5, 0.31), QColor(Qt::black));
        }
    }

    void markersSayHowMuchTimeTheyCover()
    {
        ModelView view(1);
        view.model.pointsHint = 100;
        QVector<ScopeTestModel::Row> rows;
        for (int i = 0; i < 100; ++i)
            rows.append({i < 50 ? i * 1.0 : 100.0 + i, 2.0});
        view.model.append(rows);
        view.useMarkers();
        view.click(Qt::LeftButton, 29.6, 2.0);
        view.click(Qt::RightButton, 169.6, 2.0);
        QVERIFY(!view.markerText(1).contains("Integral"));
        QCOMPARE(view.markerStatistics().integral, 280.0); // bridged, since no gap is looked for
        view.setGapIntervals(3.0);
        QVERIFY2(view.markerText(1).endsWith(" Integral: 78\n  Covered: 39 of 140 s"),
                 qPrintable(view.markerText(1)));
        const ScopeMarkerStatistics read = view.markerStatistics();
        QCOMPARE(read.integral, 2.0 * (19.0 + 20.0));
        QCOMPARE(read.coveredTime, 39.0);
        QCOMPARE(read.outages, 1);
        QCOMPARE(read.mean, 2.0);
        view.click(Qt::LeftButton, 149.6, 2.0); // the first reading after the outage
        QCOMPARE(QPointF(view.markerStatistics().outages, view.markerStatistics().integral),
                 QPointF(0, 40));
    }

    void sweepsBeginAtTheirTrigger()
    {
        HundredPoints view(View::ScopeMode);
        SweepTrigger trigger;
        trigger.level = qQNaN();
        view.setTrigger(trigger);
        QCOMPARE(view.trigger(), SweepTrigger());
        QSignalSpy states(&view, &View::triggerStateChanged);
        trigger.mode = SweepTrigger::Mode::Normal;
        trigger.level = 1.5;
        trigger.shareBefore = 0.25;
        view.setTrigger(trigger);
        const auto step = [](int, double time) { // up at 1000 s, down at 1030 s
            return time >= 1000.0 && time < 1030.0 ? 2.0 : 1.0;
        };
        view.model.appendRows(1050, 1.0, step);
        QCOMPARE(view.curves().size(), 0);
        QCOMPARE(view.triggerState(), TriggerState::Armed);
        view.model.appendRows(40, 1.0, step);
        QCOMPARE(view.xText(), QString("-25..74"));
        QCOMPARE(view.title(QwtPlot::xBottom), QString("s from the trigger"));
        QCOMPARE(view.shownTimes(), std::make_pair(975.0, 1074.0)); // as the model has them
        QCOMPARE(view.curves().first()->sample(25), QPointF(0.0, 2.0));
        QCOMPARE(view.triggerState(), TriggerState::Triggered);
        QCOMPARE(states.size(), 2);
        // What is zoomed or chosen draws the same sweep again, with the same time.
        view.SetYScaleMode(View::Percent50);
        QCOMPARE(view.curves().first()->sample(25), QPointF(0.0, 2.0));
        trigger.mode = SweepTrigger::Mode::Off;
        view.setTrigger(trigger);
        QCOMPARE(view.triggerState(), TriggerState::Off);
        QCOMPARE(view.title(QwtPlot::xBottom), QString("s"));
        QCOMPARE(view.curves().first()->sample(25), QPointF(925.0, 1.0));
        QCOMPARE(view.shownTimes(), std::make_pair(900.0, 999.0));
    }

    void aSweepLosesWhatHasLeftTheModel()
    {
        const Units::uA uA;
        const Units::nA nA;
        HundredPoints view(View::ScopeMode, 1, 150);
        view.model.isInBaseUnit = true;
        SweepTrigger trigger;
        trigger.mode = SweepTrigger::Mode::Normal;
        trigger.edge = SweepTrigger::Edge::Falling; // not by the other unit
        trigger.level = 1.5;
        trigger.shareBefore = 0.25;
        view.setTrigger(trigger);
        const auto step = [](int, double time) { // up at 200 s, down at 230 s
            return time >= 200.0 && time < 230.0 ? 2.0 : 1.0;
        };
        view.model.appendRows(310, 1.0, step);
        QCOMPARE(view.xText(), QString("-25..74"));
        view.model.SetUnits(&nA);
        view.settle(); // drawn anew from the model
        view.model.appendRows(60, 1.0, step);
        view.SetYScaleMode(View::Percent50);
        QCOMPARE(view.xText(), QString("-25..74")); // as it was kept
        view.model.SetUnits(&uA);
        QCOMPARE(view.xText(),
                 QString("-10..74")); // what can be read in the new unit keeps its time
        view.model.appendRows(84, 1.0, step);
        view.model.SetUnits(&nA);
        QCOMPARE(view.curves().size(), 0); // one sample is no sweep
        // A trigger on a channel that the model does not have shows nothing.
        trigger.mode = SweepTrigger::Mode::Automatic;
        trigger.channel = 2;
        view.setTrigger(trigger);
        view.model.appendRows(300, 1.0, step);
        QCOMPARE(view.curves().size(), 0);
    }

    // Sweeps count time from their trigger, so that neither times nor ends tell one from the next.
    void markersMeasureEachTriggeredSweep()
    {
        HundredPoints view(View::ScopeMode);
        view.useMarkers();
        SweepTrigger trigger;
        trigger.mode = SweepTrigger::Mode::Normal;
        trigger.level = 1.5;
        trigger.shareBefore = 0.25;
        view.setTrigger(trigger);
        const auto pulses = [](int, double time) { // 2 high at 1000 s, 3 high at 1200 s
            const bool isHigh = std::fmod(time, 200.0) < 20.0;
            return time < 1000.0 || !isHigh ? 1.0 : time < 1200.0 ? 2.0 : 3.0;
        };
        view.model.appendRows(1090, 1.0, pulses);
        view.click(Qt::LeftButton, -20.5, 1.0);
        view.click(Qt::RightButton, 59.5, 1.0);
        QCOMPARE(view.markerStatistics().maximum, 2.0);
        view.model.appendRows(200, 1.0, pulses);
        view.settle();
        const ScopeMarkerStatistics second = view.markerStatistics();
        QCOMPARE(second.maximum, 3.0);
        QCOMPARE(second.sum, 81.0 + 2.0 * 20.0);
        QCOMPARE(second.integral, 80.0 + 2.0 * 20.0);
        QCOMPARE(second.first.time, 1180.0);
        QCOMPARE(second.second.time - second.first.time, second.period);
        QVERIFY2(view.markerText(0).startsWith("s: -2.000e+01\n"), qPrintable(view.markerText(0)));
    }

    void theTimeAxisFollowsTheClock()
    {
        ModelView view(1, 1000, 1000);
        view.setTimeOrigin(QDateTime(QDate(2026, 11, 22), QTime(9, 0), Qt::UTC));
        view.setTimeAxis(View::Utc);
        QCOMPARE(view.title(QwtPlot::xBottom), QString("Time (UTC)"));
        const QwtScaleDraw *draw = view.qwtPlot()->axisScaleDraw(QwtPlot::xBottom);
        const QList<double> ticks = draw->scaleDiv().ticks(QwtScaleDiv::MajorTick);
        QVERIFY(ticks.size() > 2);
        QCOMPARE(draw->label(780.0).text().section('\n', 0, 0), QString("09:13"));
        QCOMPARE(view.x().maxValue(), 999.0);
        view.resize(400, 500); // the same range with room for fewer labels
        view.settle();
        QVERIFY(draw->scaleDiv().ticks(QwtScaleDiv::MajorTick).size() < ticks.size());
        view.resize(900, 500);
        view.useMarkers();
        view.click(Qt::LeftButton, 899.6, 1);
        QCOMPARE(view.markerText(0).section('\n', 0, 0), QString("2026-11-22 09:15:00.0"));
        view.setTimeAxis(View::RelativeToNow);
        QCOMPARE(view.title(QwtPlot::xBottom), QString("Time from the newest reading (min:s)"));
        QCOMPARE(draw->label(879.0).text(), QString("-2:00"));
        view.stream(60);
        QCOMPARE(draw->label(879.0).text(), QString("-3:00"));
        // The same range and the same moments, told by a clock; then those of another origin.
        view.setTimeOrigin(QDateTime::fromSecsSinceEpoch(-1059, Qt::UTC));
        view.setTimeAxis(View::Utc);
        QCOMPARE(view.title(QwtPlot::xBottom), QString("Time (UTC)"));
        QCOMPARE(draw->label(879.0).text(), QString("23:57"));
        view.setTimeOrigin(QDateTime::fromSecsSinceEpoch(-459, Qt::UTC));
        view.settle();
        QCOMPARE(draw->label(879.0).text(), QString("00:07"));
        view.setTimeAxis(View::Seconds);
        QCOMPARE(view.title(QwtPlot::xBottom), QString("s"));
        QCOMPARE(draw->label(900.0).text(), QString("900"));
        view.setTimeAxis(View::TimeAxis(7));
        QCOMPARE(view.timeAxis(), View::Seconds);
    }
};

CORVALE_QT_TEST_MAIN(tst_TimePlotModes)
#include "tst_TimePlotModes.moc"
