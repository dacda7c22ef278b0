// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXPositionPlot.h"
#include "tests/support/PaintCounter.h"
#include "tests/support/Pixels.h"
#include "tests/support/RunningTimers.h"
#include "tests/support/TestMain.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_scale_map.h>

using namespace Corvale_Qt;

namespace {

struct Display
{
    Display()
        : plot(widget.findChild<QwtPlot *>())
    {
        widget.resize(420, 420);
    }

    void tick() { QMetaObject::invokeMethod(&widget, "update"); }
    const QwtPlotCurve *trail() const
    {
        for (QwtPlotItem *item : plot->itemList(QwtPlotItem::Rtti_PlotCurve)) {
            auto *curve = static_cast<QwtPlotCurve *>(item);
            if (curve->style() == QwtPlotCurve::Dots)
                return curve;
        }
        return nullptr;
    }
    QString axis(int axis) const
    {
        const QwtInterval interval = plot->axisInterval(axis);
        const auto ticks = plot->axisScaleDiv(axis).ticks(QwtScaleDiv::MajorTick);
        return QString("%1..%2 step %3")
            .arg(interval.minValue())
            .arg(interval.maxValue())
            .arg(ticks.value(1) - ticks.value(0));
    }
    //! Shows a position at the next tick.
    void show(const QPointF &position)
    {
        tick();
        widget.setData(position.x(), position.y());
    }
    //! Returns the middle of the pixels with the marker's colour, in the units of the axes; null if there are none.
    QPointF marker()
    {
        const QImage image = plot->canvas()->grab().toImage();
        QPointF sum;
        int count = 0;
        forEachPixel(image, [&](int x, int y) {
            const QColor color = image.pixelColor(x, y);
            if (color.red() > 180 && color.green() > 180 && color.blue() < 60) {
                sum += QPointF(x, y);
                ++count;
            }
        });
        if (count == 0)
            return {};
        const QPointF middle = sum / count / image.devicePixelRatioF();
        return {plot->canvasMap(QwtPlot::xBottom).invTransform(middle.x()),
                plot->canvasMap(QwtPlot::yLeft).invTransform(middle.y())};
    }

    RVXPositionPlot widget;
    QwtPlot *plot;
};

} // namespace

class tst_RVXPositionPlot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutABeamThereIsNoMarker()
    {
        Display display;
        display.widget.setScale(1);
        display.widget.grab();
        display.tick();
        display.widget.setData(0.5, 0.25, 1e-9);
        QVERIFY(!display.marker().isNull());
        display.widget.setMinimumSum(1e-10);
        for (const double sum : {1e-11, 0.0, -1e-9, std::nan("")}) {
            display.tick();
            display.widget.setData(0.5, 0.25, sum);
            QVERIFY(display.widget.showsNoBeam());
            QVERIFY(display.marker().isNull());
        }
        display.show({-0.5, 0.5});
        QVERIFY(!display.widget.showsNoBeam());
        QVERIFY(qAbs(display.marker().x() + 0.5) < 0.05);
        display.tick();
        display.widget.setData(std::nan(""), 0.25, 1e-9);
        QVERIFY(display.widget.showsNoBeam());
    }

    void theTrailHoldsTwenty()
    {
        Display display;
        for (int i = 1; i <= 22; ++i) {
            display.widget.setData(i, -i);
            const int first = std::max(1, i - 19);
            QCOMPARE(display.trail()->dataSize(), std::size_t(i - first + 1));
            QCOMPARE(display.trail()->sample(0), QPointF(first, -first));
            QCOMPARE(display.trail()->sample(i - first), QPointF(i, -i));
        }
    }

    void theMarkerIsWhereTheBeamIs()
    {
        Display display;
        display.widget.setXScale(-20, 20);
        display.widget.setYScale(-10, 10);
        display.widget.setScale(1);
        display.widget.grab(); // lays it out
        for (const QPointF &place : {QPointF(5, 3), QPointF(-12, 3), QPointF(0, -6)}) {
            display.show(place);
            const QPointF seen = display.marker();
            QVERIFY(std::abs(seen.x() - place.x()) < 0.3);
            QVERIFY(std::abs(seen.y() - place.y()) < 0.15);
        }
        display.show({std::nan(""), 1});
        QVERIFY(display.marker().isNull());
    }

    void theNewestPositionIsShownInTheEnd()
    {
        Display display;
        display.widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&display.widget));
        display.show({0.5, 0.5});
        QCoreApplication::processEvents();
        PaintCounter paints(display.plot->canvas());
        display.widget.setData(-0.5, -0.5); // the last one, between two ticks
        display.tick();
        QTRY_VERIFY(paints.count > 0);
    }

    void theTimerRestsWhileNoPositionComes()
    {
        Display display;
        for (int i = 0; i < 2; ++i) {
            display.tick();
            display.tick();
            QCOMPARE(runningTimers(display.widget), 0);
            display.widget.setData(0.5, 0.5);
            QCOMPARE(runningTimers(display.widget), 1);
        }
    }

    void aPositionOutOfRangeIsAnArrowAtTheEdge_data()
    {
        columns<QPointF, QPointF>("position", "edge"); // of axes from -1 to 1
        row("right", QPointF(7, 0.3), QPointF(1, 0.3));
        row("left, far away", QPointF(-1e100, -0.5), QPointF(-1, -0.5));
        row("above", QPointF(0.2, 1.5), QPointF(0.2, 1));
        row("below", QPointF(-0.6, -3), QPointF(-0.6, -1));
        row("beyond a corner", QPointF(4, -3), QPointF(1, -1));
        row("by less than a pixel", QPointF(1.004, 0.3), QPointF(1, 0.3));
        row("beyond one end, at the other", QPointF(-2, 1), QPointF(-1, 0.98));
    }
    void aPositionOutOfRangeIsAnArrowAtTheEdge()
    {
        QFETCH(QPointF, edge);
        Display display;
        display.widget.setScale(1);
        display.widget.grab();
        display.show(cell<QPointF>("position"));
        const QPointF seen = display.marker();
        QVERIFY(!seen.isNull());
        // The middle of the arrow lies two thirds of its length inside the edge.
        const auto inside = [](double end) {
            return std::abs(end) < 1 ? end : end * (1 - 2.0 / 3 * 2.4 * 0.025 * 2);
        };
        QVERIFY(std::abs(seen.x() - inside(edge.x())) < 0.04);
        QVERIFY(std::abs(seen.y() - inside(edge.y())) < 0.04);
    }

    void theTrailFades()
    {
        Display display;
        display.widget.setScale(1);
        display.widget.grab();
        for (int i = 0; i < 5; ++i)
            display.widget.setData(-0.78 + 0.2 * i, 0.34);
        display.show({0.9, -0.9});
        const QImage image = display.plot->canvas()->grab().toImage();
        int before = 0;
        for (int i = 0; i < 5; ++i) {
            const QPointF point(
                display.plot->canvasMap(QwtPlot::xBottom).transform(-0.78 + 0.2 * i),
                display.plot->canvasMap(QwtPlot::yLeft).transform(0.34));
            const int brightness =
                image.pixelColor((point * image.devicePixelRatioF()).toPoint()).value();
            QVERIFY2(brightness > before + 4, qPrintable(QString::number(brightness)));
            before = brightness;
        }
    }

    void scalesAreFractionsOfTheRanges()
    {
        Display display;
        display.widget.grab(); // lays it out
        for (int axis : {QwtPlot::xBottom, QwtPlot::yLeft})
            QVERIFY(display.axis(axis).startsWith("-1..1 ")); // without a position
        const auto axes = [&display] {
            if (display.plot->axisAutoScale(QwtPlot::xBottom))
                return QString("automatic");
            return display.axis(QwtPlot::xBottom) + ", " + display.axis(QwtPlot::yLeft);
        };
        display.widget.setXScale(-20, 20);
        display.widget.setYScale(0, 8);
        QCOMPARE(axes(), QString("automatic"));
        display.widget.setScale(1);
        QCOMPARE(axes(), QString("-20..20 step 4, 0..8 step 0.8"));
        display.widget.setScale(9);
        QCOMPARE(axes(), QString("-0.1..0.1 step 0.02, 0..0.04 step 0.004"));
        display.widget.setXScale(-40, 40);
        display.widget.setXScale(4, 4); // this and what follows is refused
        display.widget.setXScale(5, 4);
        display.widget.setXScale(0, std::numeric_limits<double>::infinity());
        display.widget.setYScale(std::nan(""), 4);
        QCOMPARE(axes(), QString("-0.2..0.2 step 0.04, 0..0.04 step 0.004"));
        display.widget.setScale(77);
        QCOMPARE(axes(), QString("-40..40 step 8, 0..8 step 0.8"));
        display.widget.setScale(0);
        QCOMPARE(axes(), QString("automatic"));
    }

    void anyNumberCanBePainted()
    {
        Display display;
        for (double bad :
             {1e308, -1e308, std::numeric_limits<double>::infinity(), std::nan(""), 0.0}) {
            display.show({bad, bad});
            QVERIFY(!display.widget.grab().isNull());
        }
        QVERIFY(display.plot->axisInterval(QwtPlot::xBottom).width() < 10); // around the 0
    }

    void theCanvasIsSquare()
    {
        Display display;
        for (const QSize &size : {QSize(500, 300), QSize(230, 600), QSize(3840, 2160)}) {
            display.widget.resize(size);
            display.widget.grab();
            const QSize canvas = display.plot->canvas()->contentsRect().size();
            QVERIFY(std::abs(canvas.width() - canvas.height()) <= 1);
            QVERIFY(canvas.width() > std::min(size.width(), size.height()) * 0.5);
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXPositionPlot)
#include "tst_RVXPositionPlot.moc"
