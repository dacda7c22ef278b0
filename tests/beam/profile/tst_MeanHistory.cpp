// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/MeanHistory_p.h"
#include "corvale_qt/beam/profile/MeanTimePlot_p.h"
#include "tests/beam/profile/BeamDisplay.h"
#include "tests/support/TestMain.h"

#include <qwt_plot_curve.h>

using namespace Corvale_Qt;

class tst_MeanHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneOutForOneIn()
    {
        MeanHistory history;
        for (int i = 0; i < 3000; ++i)
            history.append({i * 0.01, double(i), 0});
        QCOMPARE(history.entries().size(), std::size_t(3000));
        QCOMPARE(history.entries().front().meanX, 0.0);
        history.append({30.0, 3000, 0});
        QCOMPARE(history.entries().size(), std::size_t(3000));
        QCOMPARE(history.entries().front().meanX, 1.0);
        QCOMPARE(history.entries().back().meanX, 3000.0);

        history.setUnlimited(true);
        for (int i = 0; i < 100; ++i)
            history.append({31.0 + i, 0, 0});
        QCOMPARE(history.entries().size(), std::size_t(3100));
    }

    void onlyTheNewestSecondsAreRead()
    {
        auto history = std::make_shared<MeanHistory>();
        const MeanSeries series(history, &MeanHistory::Entry::meanX);
        QCOMPARE(series.size(), std::size_t(0));
        for (int i = 0; i < 5000; ++i) {
            history->append({i * 0.1, double(i), 0});
            const std::size_t expected =
                std::min(i + 1, 52); // 5 s with both ends, and the entry before
            if (series.size() != expected && series.size() != expected - 1)
                QCOMPARE(series.size(), expected);
            QCOMPARE(series.sample(series.size() - 1).y(), double(i));
        }
        history->clear();
        QCOMPARE(series.size(), std::size_t(0));
    }

    void timeOnlyRises()
    {
        MeanHistory history;
        for (double time : {10.0, 11.0, 12.0, 3.0})
            history.append({time, 0, 0});
        QCOMPARE(history.entries().size(), std::size_t(1));
        QCOMPARE(history.entries().back().time, 3.0);
    }

    void aFrameWithoutAMeanIsAGap()
    {
        auto history = std::make_shared<MeanHistory>();
        history->append({1, 2, -10000});
        history->mirror(true, true);
        QCOMPARE(MeanSeries(history, &MeanHistory::Entry::meanX).sample(0), QPointF(1, -2));
        QVERIFY(std::isnan(MeanSeries(history, &MeanHistory::Entry::meanY).sample(0).y()));
    }

    void theDisplayKeepsItWhileItsSideBarShows()
    {
        BeamDisplay display(Detector::Strips);
        auto *plot = display.widget.findChild<MeanTimePlot *>();
        const auto samples = [plot] {
            auto *curve =
                static_cast<QwtPlotCurve *>(plot->itemList(QwtPlotItem::Rtti_PlotCurve).first());
            return curve->dataSize();
        };
        display.time = 1618446887;
        for (int i = 0; i < 3; ++i)
            display.feedBetweenTicks(Frames::strips(15, 3, 15, 3)); // each frame, not each redraw
        QCOMPARE(samples(), std::size_t(3));
        plot->replot();
        QCOMPARE(plot->axisInterval(QwtPlot::xBottom), QwtInterval(display.time - 5, display.time));

        display.widget.sidebarEnabled(false);
        display.feed(Frames::strips(15, 3, 15, 3));
        QCOMPARE(samples(), std::size_t(3));
        display.widget.sidebarEnabled(true);
        display.time = 10;
        display.feed(Frames::strips(15, 3, 15, 3));
        QCOMPARE(samples(), std::size_t(1)); // time stepped back
        display.widget.setPixelated(true);
        QCOMPARE(samples(), std::size_t(0));
        QVERIFY(!display.widget.property("unlimitedHistory").toBool());
    }
};

CORVALE_QT_TEST_MAIN(tst_MeanHistory)
#include "tst_MeanHistory.moc"
