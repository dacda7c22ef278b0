// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXPositionPlot.h"
#include "corvale_qt/beam/profile/RVXSplitPlot.h"
#include "tests/support/PaintCounter.h"
#include "tests/support/Pixels.h"
#include "tests/support/RunningTimers.h"
#include "tests/support/TestMain.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_scale_map.h>

#include <climits>

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

struct SplitDisplay
{
    SplitDisplay() { widget.resize(600, 400); }

    void tick() { QMetaObject::invokeMethod(&widget, "update"); }
    QList<QwtPlot *> plots() { return widget.findChildren<QwtPlot *>(); }
    QString axis(int i)
    {
        const QwtInterval interval = plots()[i]->axisInterval(QwtPlot::xBottom);
        return QString("%1..%2").arg(interval.minValue()).arg(interval.maxValue());
    }
    //! Returns the end of the bar, in the units of the axis: the coloured pixel farthest from 0.
    double barEnd(int i)
    {
        QwtPlot *plot = plots()[i];
        const QImage image = plot->canvas()->grab().toImage();
        const double ratio = image.devicePixelRatioF();
        const int y = static_cast<int>(ratio * plot->canvasMap(QwtPlot::yLeft).transform(0.09));
        const QwtScaleMap map = plot->canvasMap(QwtPlot::xBottom);
        double end = 0;
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            const double place = map.invTransform(x / ratio);
            if (color.saturation() > 128 && color.value() > 128 && std::abs(place) > std::abs(end))
                end = place;
        }
        return end;
    }

    RVXSplitPlot widget;
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

    void screenReadersHearEachIndicator()
    {
        SplitDisplay display;
        display.widget.setNumberPlots(2);
        display.widget.setAxisLabel("A - B", 0);
        display.widget.setData(-0.25, 0);
        const auto heard = [&](int i, QAccessible::Text kind) {
            return QAccessible::queryAccessibleInterface(display.plots()[i])->text(kind);
        };
        QCOMPARE(heard(0, QAccessible::Name), QString("Split 1"));
        QCOMPARE(heard(0, QAccessible::Description), QString("newest value. A - B -0.25"));
        QCOMPARE(heard(1, QAccessible::Value), QString("0"));
        display.widget.showNoBeam();
        QCOMPARE(heard(0, QAccessible::Description), QString("no beam"));
    }

    void withoutABeamThereIsNoBar()
    {
        SplitDisplay display;
        display.widget.setNumberPlots(2);
        display.widget.grab();
        display.widget.setMinimumSum(1);
        display.tick();
        display.widget.setData(0.5, -0.5, 2.0);
        QVERIFY(display.barEnd(0) > 0.45);
        display.widget.setData(0.5, -0.5, 0.5);
        QVERIFY(display.widget.showsNoBeam(0) && display.widget.showsNoBeam(1));
        QCOMPARE(display.barEnd(0), 0.0);
        display.widget.setData(0.25, 1);
        QVERIFY(display.widget.showsNoBeam(0) && !display.widget.showsNoBeam(1));
    }

    void valuesBeyondTheAxisHaveAnArrow()
    {
        SplitDisplay display;
        display.widget.setNumberPlots(1);
        display.widget.grab();
        const auto edge = [&](double value) {
            display.widget.setData(value, 0);
            QwtPlot *plot = display.plots()[0];
            const QImage image = plot->canvas()->grab().toImage();
            const int x = value > 0 ? image.width() - 4 : 3;
            return image.pixelColor(x, image.height() / 2);
        };
        for (const double sign : {1.0, -1.0}) {
            QVERIFY(edge(sign * 0.99) != QColor(Qt::white));
            QCOMPARE(edge(sign * 1.5), QColor(Qt::white));
        }
    }

    void plotsAreReplaced()
    {
        SplitDisplay display;
        display.widget.setNumberPlots(3);
        QVERIFY(display.plots()[0]->axisEnabled(QwtPlot::xBottom));
        QVERIFY(!display.plots()[0]->axisEnabled(QwtPlot::yLeft));
        display.widget.setNumberPlots(2);
        QCOMPARE(display.plots().size(), 2);
        display.widget.setAxisLabel("A - B", 1);
        QCOMPARE(display.plots()[1]->axisTitle(QwtPlot::xBottom).text(), QString("A - B"));
        for (const auto &[asked, made] : {std::pair(-5, 0), {2, 2}, {0, 0}, {INT_MAX, 256}}) {
            display.widget.setNumberPlots(asked);
            QCOMPARE(display.plots().size(), made);
        }
    }

    void oneValueIsShownAtOnce()
    {
        SplitDisplay display;
        display.widget.setNumberPlots(2);
        display.widget.grab();
        display.widget.setData(0.5, 0);
        display.widget.setData(-0.8, 1);
        QVERIFY(std::abs(display.barEnd(0) - 0.5) < 0.02);
        QVERIFY(std::abs(display.barEnd(1) + 0.8) < 0.02);
        // The line through 0 is visible over the whole height.
        QwtPlot *plot = display.plots()[0];
        const QImage image = plot->canvas()->grab().toImage();
        const double zero = plot->canvasMap(QwtPlot::xBottom).transform(0);
        const int column = static_cast<int>(zero * image.devicePixelRatioF());
        for (int y = 0; y < image.height(); ++y) {
            const auto isLine = [&](int x) {
                const QColor color = image.pixelColor(x, y);
                return color.saturation() < 40 && color.value() > 150;
            };
            QVERIFY(isLine(column - 1) || isLine(column) || isLine(column + 1));
        }
        display.widget.setData(7.0, 0); // beyond the axis: to its end
        QVERIFY(display.barEnd(0) > 0.97);
        for (int none : {-1, 2, 1000})
            display.widget.setData(0.1, none);
        for (double bad : {std::nan(""), 1e308, -std::numeric_limits<double>::infinity()}) {
            display.widget.setData(bad, 0);
            QCOMPARE(display.barEnd(0), 0.0);
        }
    }

    void twoValuesWaitForTheTick()
    {
        SplitDisplay display;
        display.widget.setNumberPlots(2);
        display.widget.grab();
        display.tick();
        display.widget.setData(0.3, -0.3);
        QVERIFY(std::abs(display.barEnd(0) - 0.3) < 0.02);
        display.widget.setData(0.9, -0.9); // dropped between two ticks, and not shown later
        QVERIFY(std::abs(display.barEnd(0) - 0.3) < 0.02);
        display.tick();
        QVERIFY(std::abs(display.barEnd(1) + 0.3) < 0.02);
        display.widget.setData(0.9, -0.9);
        QVERIFY(std::abs(display.barEnd(1) + 0.9) < 0.02);
        // The second value is dropped if there is only one plot.
        display.widget.setNumberPlots(1);
        display.tick();
        display.widget.setData(0.1, 0.2);
    }

    void theTimerRestsWhileNoValuesCome()
    {
        SplitDisplay display;
        for (int i = 0; i < 2; ++i) {
            display.tick();
            display.tick();
            QCOMPARE(runningTimers(display.widget), 0);
            display.widget.setData(0.3, -0.3);
            QCOMPARE(runningTimers(display.widget), 1);
        }
    }

    void scales()
    {
        SplitDisplay display;
        display.widget.setXScale(-20, 20);
        display.widget.setScale(3);
        display.widget.setNumberPlots(2);
        QCOMPARE(display.axis(1), QString("-1..1")); // until the next one
        display.widget.setScale(3);
        QCOMPARE(display.axis(0), QString("-10..10"));
        QCOMPARE(display.axis(1), QString("-10..10"));
        display.widget.setXScale(-2, 4);
        QCOMPARE(display.axis(0), QString("-1..2"));
        display.widget.setXScale(4, -2);
        QCOMPARE(display.axis(0), QString("-1..2"));
        display.widget.setScale(0);
        display.widget.setData(30.0, 0);
        for (double end : {30.0, -30.0}) // 0 stays in the middle
            QVERIFY(display.plots()[0]->axisInterval(QwtPlot::xBottom).contains(end));
        display.widget.setData(1e308, 0);
        QVERIFY(!display.widget.grab().isNull());
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXPositionPlot)
#include "tst_RVXPositionPlot.moc"
