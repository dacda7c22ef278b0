// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXSplitPlot.h"
#include "tests/support/RunningTimers.h"
#include "tests/support/TestMain.h"

#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <climits>

using namespace Corvale_Qt;

namespace {

struct Display
{
    Display() { widget.resize(600, 400); }

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

class tst_RVXSplitPlot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void screenReadersHearEachIndicator()
    {
        Display display;
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
        Display display;
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
        Display display;
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
        Display display;
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
        Display display;
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
        Display display;
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
        Display display;
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
        Display display;
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

CORVALE_QT_TEST_MAIN(tst_RVXSplitPlot)
#include "tst_RVXSplitPlot.moc"
