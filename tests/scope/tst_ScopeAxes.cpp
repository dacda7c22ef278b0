// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/LimitLines_p.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXLatestPlotDataProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/scope/CanvasNote_p.h"
#include "corvale_qt/scope/ScopeLegend.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/units/Units.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/AxisTexts.h"
#include "tests/support/Mouse.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestMain.h"

#include <qwt_scale_widget.h>

using namespace Corvale_Qt;
using View = RVXScopePlotView;

namespace {

//! Shows a sine of an amplitude about an offset.
class SineView : public ModelView
{
public:
    explicit SineView(double offset = 0.0, double amplitude = 1.0)
        : ModelView(1)
    {
        model.appendRows(64, 1.0,
                         [&](int, double time) { return offset + amplitude * std::sin(time); });
        settle();
    }
};

//! Returns the labels of an axis, from its lower end.
QStringList labelsOf(ScopeTestView &view, int axis = QwtPlot::yLeft)
{
    view.settle();
    QStringList texts;
    const QwtScaleDraw *draw = view.qwtPlot()->axisScaleDraw(axis);
    for (double tick : draw->scaleDiv().ticks(QwtScaleDiv::MajorTick))
        texts << draw->label(tick).text();
    return texts;
}

//! Returns title and labels of a y axis.
QString labels(ScopeTestView &view, int axis = QwtPlot::yLeft)
{
    return view.title(axis) + ": " + labelsOf(view, axis).join(' ');
}

//! Returns the line at the bottom of the canvas.
QString note(ScopeTestView &view)
{
    view.settle();
    for (const QwtPlotItem *item : view.qwtPlot()->itemList()) {
        if (const auto *found = dynamic_cast<const CanvasNote *>(item))
            return found->text();
    }
    return QString();
}

/*! A beam current of 20 nA in channel 1, high voltages of 1500 V and 1000 V in channels 2 and 3, and a temperature of 25 degrees
    in channel 4. */
class BeamLineView : public ModelView
{
public:
    explicit BeamLineView(bool hasSecond = true)
        : ModelView(4)
    {
        model.names = QStringList{"beam", "left", "right", "coil"};
        model.ownUnits = {{2, &m_volt}, {3, &m_volt}, {4, &m_celsius}};
        setSiPrefix(true);
        setSecondAxis(hasSecond);
        append(64);
    }
    void append(int rows)
    {
        model.appendRows(rows, 1.0, [](int channel, double time) {
            const double levels[] = {2e-8, 1500.0, 1000.0, 25.0};
            return levels[channel - 1] * (1.0 + 0.1 * std::sin(time));
        });
        settle();
    }
    //! Returns the axis of each channel: L for left, R for right, - for none.
    QString axes()
    {
        settle();
        QString text;
        for (int channel = 1; channel <= 4; ++channel)
            text += "-LR"[channelAxis(channel)];
        return text;
    }
    QwtInterval right() { return settle(), qwtPlot()->axisInterval(QwtPlot::yRight); }
    //! Returns where a value is on the canvas by the scale of the right axis.
    QPoint atRight(double x, double y)
    {
        return {at(x, 0.0).x(), qRound(qwtPlot()->transform(QwtPlot::yRight, y))};
    }
    //! Turns the wheel towards the user, which shows more.
    void turnBack(QWidget *above, Qt::KeyboardModifiers modifiers = {})
    {
        turnWheel(above, above->rect().center(), -120, modifiers);
        settle();
    }

private:
    const Units::V m_volt;
    const Units::Celcius m_celsius;
};

} // namespace

class tst_ScopeAxes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ticksCanBeToldApart_data()
    {
        columns<double, double, QString>("offset", "amplitude", "some");
        row("thousands", 432850.0, 1000.0, "432000");
        row("fractions", 0.0, 1.2, "-0.5");
        row("a small ripple on a large value", 5.0, 1e-7, "5.00000005");
        row("a ripple on millions", 2e6, 0.004, "2000000.002");
        row("picoamperes in ampere", 0.0, 2.2e-12, "-1e-12");
    }
    void ticksCanBeToldApart()
    {
        QFETCH(double, amplitude);
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German));
        SineView view(cell<double>("offset"), amplitude);
        QStringList labels = labelsOf(view);
        QLocale::setDefault(before);
        const auto ticks =
            view.qwtPlot()->axisScaleDiv(QwtPlot::yLeft).ticks(QwtScaleDiv::MajorTick);
        for (int i = 0; i < ticks.size(); ++i)
            QVERIFY(qAbs(labels[i].toDouble() - ticks[i]) < 0.01 * amplitude);
        QVERIFY2(labels.contains(cell("some")), qPrintable(labels.join(' ')));
        QCOMPARE(labels.removeDuplicates(), 0);
    }

    void longAfterTheStartTicksCanBeToldApart()
    {
        ModelView view(1);
        for (int i = 0; i < 300; ++i)
            view.model.append({{604800.0 + i * 0.01, 1.0}}); // a week
        QStringList labels = labelsOf(view, QwtPlot::xBottom);
        QVERIFY(labels.size() > 2);
        QCOMPARE(labels.removeDuplicates(), 0);
    }

    void signsStandInFrontInEveryDirection()
    {
        QVector<QImage> pictures;
        for (const auto direction : {Qt::RightToLeft, Qt::LeftToRight}) {
            QApplication::setLayoutDirection(direction);
            SineView view;
            pictures << view.qwtPlot()->axisWidget(QwtPlot::yLeft)->grab().toImage();
        }
        QCOMPARE(pictures[1], pictures[0]);
    }

    void curvesAreClippedWhereTheyMayLeaveTheAxis()
    {
        SineView view;
        QString unclipped;
        for (int mode = View::AutoScale; mode <= 14; ++mode) {
            view.SetYScaleMode(mode);
            if (!view.curves()[0]->testPaintAttribute(QwtPlotCurve::ClipPolygons))
                unclipped += QString::number(mode) + ' ';
        }
        QCOMPARE(unclipped, QString("0 2 "));
    }

    //! The axis shows the unit that suits its scale; the scale itself stays in the unit of the model.
    void theUnitSuitsTheScale()
    {
        SineView view(0.0, 1.8e-7);
        view.settle();
        QSignalSpy shown(&view, &View::shownUnitChanged);
        QCOMPARE(labels(view),
                 QString("A: -2e-07 -1.5e-07 -1e-07 -5e-08 0 5e-08 1e-07 1.5e-07 2e-07"));
        view.setSiPrefix(true);
        QCOMPARE(labels(view), QString("nA: -200 -150 -100 -50 0 50 100 150 200"));
        QCOMPARE(shown.takeLast(), QVariantList{"nA"});
        QCOMPARE(view.yText(), QString("-2e-07..2e-07"));
        QCOMPARE(view.valueUnits().join(' '), QString::fromUtf8("fA pA nA µA mA A kA"));

        view.SetRange(-1e-6, 1e-6);
        view.SetYScaleMode(View::FullRange);
        QCOMPARE(labels(view), QString::fromUtf8("µA: -1.0 -0.5 0 0.5 1.0"));
        view.setValueUnit("pA");
        QCOMPARE(labels(view), QString("pA: -1000000 -500000 0 500000 1000000"));
        QCOMPARE(view.fromShownValue("250"), 250e-12);
        QCOMPARE(view.fromShownValue("0.2 uA"), 0.2e-6);
        QVERIFY(std::isnan(view.fromShownValue("2 V")));
        QCOMPARE(view.toShownValue(2.5e-10), QString("250"));
        view.setValueUnit("mm"); // no unit of a current
        QCOMPARE(view.shownUnit(), QString::fromUtf8("µA"));
        view.setValueUnit(QString());
        view.SetYScaleMode(View::Normalized);
        QCOMPARE(labels(view), QString("Relative Value: -1 -0.5 0 0.5 1"));
        view.SetYScaleMode(View::AutoScale);
        view.setSiPrefix(false);
        QCOMPARE(labels(view),
                 QString("A: -2e-07 -1.5e-07 -1e-07 -5e-08 0 5e-08 1e-07 1.5e-07 2e-07"));
    }

    //! Legend, table and marker show the newest reading with the same text, whatever each has shown before.
    void allDisplaysOfAReadingGiveTheSameText()
    {
        ScopeTestModel model(1);
        double noise = 0.1;
        const auto append = [&] {
            model.appendRows(40, 0.001, [&noise](int, double time) {
                return 5e-10 + 1e-12 * noise * (qRound(time * 1000) * 7 % 5 - 2);
            });
        };
        append();
        RVXZeroingProxyModel ofTable;
        ofTable.setSourceModel(&model);
        RVXLatestPlotDataProxyModel table;
        table.setSiPrefix(true);
        table.setSourceModel(&ofTable);
        const auto inTable = [&table] { return table.index(0, 1).data().toString(); };
        QCOMPARE(inTable(), QString("500.1 pA"));
        // Five times the noise keeps the digit that the table has, and would not have begun with it.
        noise = 0.5;
        append();
        RVXAveragingProxyModel averaging;
        averaging.setSourceModel(&model);
        ScopeTestView view(&averaging);
        view.setSiPrefix(true);
        view.enablePlotMarker(true);
        view.setLegendVisible(true);
        view.click(Qt::LeftButton, 0.0785, 5e-10);
        const auto inLegend = [channels = view.findChild<ScopeLegend *>()->model()] {
            return channels->index(0, 0).data(Qt::UserRole).toString();
        };
        QCOMPARE(inLegend(), inTable());
        QVERIFY2(view.markerText(0).endsWith(inTable()), qPrintable(view.markerText(0)));
        QCOMPARE(inTable(), QString("500.5 pA"));

        // The same zero on both is the same reading; a unit that is chosen is shown everywhere.
        ofTable.setZeros({1e-10});
        averaging.setAveraging(10);
        QVERIFY(inLegend() != inTable());
        averaging.setAveraging(1);
        ofTable.zeroClear();
        QCOMPARE(inLegend(), inTable());
        view.setValueUnit("nA");
        table.setValueUnit("nA");
        QVERIFY2(inLegend().startsWith("0.50") && inLegend().endsWith(" nA"),
                 qPrintable(inLegend()));
        QCOMPARE(inTable(), inLegend());
        QVERIFY2(view.markerText(0).endsWith(inTable()), qPrintable(view.markerText(0)));
    }

    //! The axis stays as it is while noise moves the extremes; it grows at once and shrinks after 50 quiet plots.
    void hysteresisKeepsTheAxisStill()
    {
        ModelView view(1);
        view.setSampleSpan(4);
        view.setHysteresis(true);
        const auto show = [&view](double amplitude, int times) {
            for (int i = 0; i < times; ++i) {
                view.model.appendRows(4, 1.0, [&](int, double time) {
                    return qRound(time) % 2 ? amplitude : -amplitude;
                });
                view.Plot();
            }
            const QwtInterval axis = view.qwtPlot()->axisInterval(QwtPlot::yLeft);
            return axis.maxValue();
        };
        QCOMPARE(show(9.0, 1), 10.0);
        QCOMPARE(show(10.5, 1), 15.0); // at once
        QCOMPARE(show(10.5, 200), 15.0); // not well inside
        QCOMPARE(show(2.0, 40), 15.0);
        QCOMPARE(show(10.5, 1), 15.0); // the count begins again
        QCOMPARE(show(2.0, 40), 15.0);
        QCOMPARE(show(2.0, 70), 2.0);
        view.setHysteresis(false);
        QCOMPARE(show(9.0, 1), 10.0);
        QCOMPARE(show(2.0, 2), 2.0);
    }

    //! A logarithmic axis names what it cannot show.
    void aLogarithmicAxisHasNoPlaceForSigns()
    {
        ModelView view(2);
        view.model.names = QStringList{"positive", "sine"};
        view.model.appendRows(64, 1.0, [](int channel, double time) {
            return channel == 1 ? 2e-3 * (1 + time) : std::sin(time);
        });
        QCOMPARE(note(view), QString());
        view.setSiPrefix(true);
        view.setLogarithmic(true);
        QVERIFY2(note(view).endsWith(": sine"), qPrintable(note(view)));
        // A missing reading at the border is neither 0 nor negative, and what has left the model with a sign is.
        view.model.change(1, 1, qQNaN());
        QVERIFY2(note(view).endsWith(": sine"), qPrintable(note(view)));
        view.model.Clear();
        QCOMPARE(note(view), QString());
        view.model.appendRows(64, 1.0, [](int channel, double time) {
            return channel == 1 ? 2e-3 * (1 + time - 64.0) : std::sin(time);
        });
        const double below = view.qwtPlot()->canvasMap(QwtPlot::yLeft).transform(-1.0);
        QVERIFY(below > view.qwtPlot()->canvas()->height() && below < 1e6);
        view.check(2, false);
        QCOMPARE(note(view), QString());
        QCOMPARE(view.yText(), QString("0.001..1"));
        QCOMPARE(labels(view), QString("A: 0.001 0.01 0.1 1"));
        view.SetYScaleMode(View::FullRange);
        QCOMPARE(view.yText(), QString("0.0001..1"));
        view.SetPlotMode(View::HistogramMode);
        view.model.show({-1.0, -1.0});
        QVERIFY2(note(view).endsWith(": positive"), qPrintable(note(view)));
        view.model.show({0.5, 0.5});
        QVERIFY(view.colourIn(view.canvas(), 1.0, 0.1).red() > 200); // the bar reaches the axis
        view.setLogarithmic(false);
        QCOMPARE(note(view), QString());
        QCOMPARE(view.yText(), QString("-1..1"));
    }

    //! Channels of a second unit are drawn on the right axis; a third unit is named, and not drawn.
    void twoUnitsHaveTwoAxes()
    {
        BeamLineView view(false);
        QCOMPARE(view.axes(), QString("LLLL"));
        QVERIFY(!view.qwtPlot()->axisEnabled(QwtPlot::yRight));
        QCOMPARE(note(view), QString());
        QSignalSpy changed(&view, &View::secondAxisChanged);
        view.setSecondAxis(true);
        view.setSecondAxis(true);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(view.axes(), QString("LRR-"));
        QVERIFY2(note(view).contains(": coil ("), qPrintable(note(view)));
        QCOMPARE(labels(view), QString("nA: 18.0 18.5 19.0 19.5 20.0 20.5 21.0 21.5 22.0"));
        QCOMPARE(labels(view, QwtPlot::yRight), QString("kV: 0.9 1.0 1.1 1.2 1.3 1.4 1.5 1.6 1.7"));
        QCOMPARE(view.curves().size(), 3);

        view.setLegendVisible(true);
        const QAbstractItemModel *legend = view.findChild<ScopeLegend *>()->model();
        const auto spoken = [legend](int channel) {
            return legend->index(channel - 1, 0).data(Qt::AccessibleTextRole).toString();
        };
        QVERIFY2(spoken(2).endsWith(" kV, right axis"), qPrintable(spoken(2)));
        QVERIFY2(spoken(1).endsWith(" nA"), qPrintable(spoken(1)));

        // Hidden channels take no axis.
        view.check(1, false);
        QCOMPARE(view.axes(), QString("-LLR"));
        QCOMPARE(view.title(QwtPlot::yLeft) + view.title(QwtPlot::yRight),
                 QString::fromUtf8("kV°C"));
        QCOMPARE(view.valueUnits().last(), QString("MV"));
        QCOMPARE(note(view), QString());
        view.check(1, true);
        QCOMPARE(view.axes(), QString("LRR-"));

        // A normalised scale has no unit. The axes are there again after it.
        QSignalSpy axesChanged(&view, &View::channelAxesChanged);
        view.model.change(1, 2, 1500.0); // row 1 may tell of another unit, but does not
        view.settle();
        QCOMPARE(axesChanged.size(), 0);
        view.SetYScaleMode(View::Normalized);
        QCOMPARE(view.axes(), QString("LLLL"));
        QCOMPARE(axesChanged.size(), 1);
        QVERIFY(!view.qwtPlot()->axisEnabled(QwtPlot::yRight));
        QCOMPARE(note(view), QString());
        view.SetYScaleMode(View::AutoScale);
        QCOMPARE(view.axes(), QString("LRR-"));
        view.showMode(View::HistogramMode);
        QCOMPARE(view.axes(), QString("L---"));
        QCOMPARE(axesChanged.size(), 3);
        view.SetPlotMode(View::ScopeMode);
        view.setSampleSpan(32);
        QCOMPARE(view.axes(), QString("LRR-"));
        QCOMPARE(view.curves().size(), 3);
        view.setModel(nullptr);
        view.settle();
        QVERIFY(!view.qwtPlot()->axisEnabled(QwtPlot::yRight));
    }

    //! What stands on the canvas is where the axis of its channel says: curves, limits, markers, and what they read.
    void everythingGoesByTheAxisOfItsChannel()
    {
        BeamLineView view;
        view.enablePlotMarker(true);
        view.setMarkerDetails(true);
        const double top = 1500.0 * (1.0 + 0.1 * std::sin(33.0));
        const QRect around(view.atRight(33.0, top) - QPoint(2, 2), QSize(5, 5));
        const auto isGreen = [](const QColor &color) { return color == Qt::green; };
        QVERIFY(countPixels(view.canvas().copy(around), isGreen) > 0);

        ChannelLimits limits;
        limits.highAlarm = 1300.0;
        view.setChannelLimits(2, limits);
        view.setChannelLimits(4, limits); // has no axis
        const QImage withLimit = view.canvas();
        QVERIFY(withLimit.pixelColor(view.atRight(20.3, 1300.0)).red() > 200);
        int lines = 0;
        for (const QwtPlotItem *item : view.qwtPlot()->itemList()) {
            if (const auto *found = dynamic_cast<const LimitLines *>(item))
                lines += found->lines().size();
        }
        QCOMPARE(lines, 1);

        // A click takes the curve that is nearest on the canvas, although its number is far from the one on the left axis.
        QWidget *canvas = view.qwtPlot()->canvas();
        QTest::mouseClick(canvas, Qt::LeftButton, Qt::NoModifier, view.atRight(32.8, top));
        QVERIFY2(view.markerText(0).contains("left") && view.markerText(0).endsWith(" kV"),
                 qPrintable(view.markerText(0)));
        QCOMPARE(view.plotMarker(0)->yAxis(), int(QwtPlot::yRight));
        QCOMPARE(view.plotMarker(0)->yValue(), top);
        view.click(Qt::RightButton, 39.8, 2e-8 * (1.0 + 0.1 * std::sin(40.0)));
        QVERIFY2(view.markerText(1).contains("beam"), qPrintable(view.markerText(1)));
        QCOMPARE(view.plotMarker(1)->yAxis(), int(QwtPlot::yLeft));
        QVERIFY2(view.markerText(1).contains("Delta: N/A"), qPrintable(view.markerText(1)));
        QVERIFY(std::isnan(view.markerStatistics().difference));
        QVERIFY(view.markerReport().endsWith("\tA/s")); // the slope of the readings of marker 2
        // A marker whose channel is hidden takes the one that is nearest to where it stood.
        view.check(2, false);
        QVERIFY2(view.markerText(0).contains("beam"), qPrintable(view.markerText(0)));
    }

    //! The axes are zoomed together, or alone with the wheel above one of them. Numbers of a unit do not outlive it.
    void twoAxesAreZoomedTogetherOrAlone()
    {
        BeamLineView view;
        view.setInteractive(true);
        const auto ranges = [&view] {
            return QString("%1 %2").arg(view.y().width() * 1e9).arg(view.right().width());
        };
        QCOMPARE(ranges(), QString("4 800"));
        view.turnBack(view.qwtPlot()->canvas(), Qt::ControlModifier);
        QCOMPARE(ranges(), QString("5 1000"));
        view.turnBack(view.qwtPlot()->axisWidget(QwtPlot::yRight));
        QCOMPARE(ranges(), QString("5 1250"));
        view.turnBack(view.qwtPlot()->axisWidget(QwtPlot::yLeft));
        QCOMPARE(ranges(), QString("6.25 1250"));
        view.zoomToY(1.9e-8, 2.1e-8);
        QCOMPARE(ranges(), QString("2 400"));
        QVERIFY(view.undoZoom());
        QCOMPARE(ranges(), QString("6.25 1250"));
        QVERIFY(view.undoZoom());
        QCOMPARE(ranges(), QString("4 800"));

        view.zoomToY(1.9e-8, 2.1e-8);
        view.check(1, false); // now the left axis is that of the voltages
        QCOMPARE(view.yText(), QString("900..1700"));
        QVERIFY(!view.undoZoom() || view.yText() == "900..1700");
    }

    //! A range that is set belongs to the unit of the left axis; another unit follows its channels.
    void aRangeBelongsToItsUnit()
    {
        BeamLineView view;
        view.SetRange(-1e-7, 1e-7);
        view.SetYScaleMode(View::FullRange);
        QCOMPARE(view.yText(), QString("-1e-07..1e-07"));
        QCOMPARE(view.right().maxValue(), 1700.0);
        view.check(1, false);
        QCOMPARE(view.yText(), QString("900..1700"));
        view.SetRange(0.0, 3000.0);
        view.SetYScaleMode(View::FullRange);
        QCOMPARE(view.yText(), QString("0..3000"));
        view.check(1, true);
        QCOMPARE(view.right().maxValue(), 3000.0);
        QVERIFY2(view.y().maxValue() < 1e-7, qPrintable(view.yText()));
        view.setFullScaleFromData(true);
        view.resetRange();
        view.SetYScaleMode(View::Percent50);
        QCOMPARE(view.yText(), QString("-2.5e-08..2.5e-08"));
        QCOMPARE(view.right().maxValue(), 1000.0);
        view.setValueUnit("V");
        QCOMPARE(view.title(QwtPlot::yLeft) + view.title(QwtPlot::yRight), QString("nAV"));
    }

    //! A panel is set up before the instrument is there, which brings the unit of the range.
    void aRangeWaitsForItsUnit()
    {
        BeamLineView source;
        RVXAveragingProxyModel proxy;
        ScopeTestView view(&proxy);
        view.setSecondAxis(true);
        view.SetRange(-1e-7, 1e-7);
        view.SetYScaleMode(View::FullRange);
        view.settle();
        proxy.setSourceModel(&source.model);
        QCOMPARE(view.yText(), QString("-1e-07..1e-07"));
        QCOMPARE(view.qwtPlot()->axisInterval(QwtPlot::yRight).maxValue(), 1700.0);
    }

    //! Markers stand on bars, and what they say of the bars between them is in the unit of these.
    void markersKeepToTheBarsOfOneUnit()
    {
        BeamLineView view;
        view.model.ownUnits.remove(4); // the coil has a current as well
        view.setSecondAxis(false);
        view.setSecondAxis(true);
        view.enablePlotMarker(true);
        view.showMode(View::HistogramMode);
        QCOMPARE(view.axes(), QString("L--L"));
        view.click(Qt::LeftButton, 1.0, 0.0);
        view.click(Qt::RightButton, 2.2, 0.0);
        QVERIFY2(view.markerText(1).contains("beam"), qPrintable(view.markerText(1)));
        view.press(Qt::Key_Right);
        QVERIFY2(view.markerText(1).contains("coil"), qPrintable(view.markerText(1)));
        const ScopeMarkerStatistics is = view.markerStatistics();
        QCOMPARE(is.second.channel, 4);
        QCOMPARE(QPoint(is.count, is.missing), QPoint(2, 0));
        view.press(Qt::Key_Left);
        QVERIFY2(view.markerText(1).contains("beam"), qPrintable(view.markerText(1)));
    }

    //! The bars and their statistics are those of one unit.
    void barsHaveOneUnit()
    {
        BeamLineView view;
        view.enableHistogramItem(View::CenterOfGravityItem, 1, {}, true);
        view.showMode(View::HistogramMode);
        QVERIFY2(note(view).contains(": left, right, coil ("), qPrintable(note(view)));
        QVERIFY(view.y().maxValue() < 1e-7);
        QVERIFY(!view.qwtPlot()->axisEnabled(QwtPlot::yRight));
        view.showMode(View::StripMode);
        QCOMPARE(view.axes(), QString("LRR-"));
    }

    //! An axis that has its range already is not set again, but one that was another axis in between is.
    void theTimeAxisComesBack()
    {
        ScopeTestModel model(3);
        model.appendRows(40, 0.1, level);
        ScopeTestView view(&model);
        const QwtInterval range = view.x();
        const auto ticks = [&view] {
            return view.qwtPlot()->axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick);
        };
        const QList<double> numbers = ticks();
        view.setTimeAxis(View::RelativeToNow);
        view.settle();
        QVERIFY(ticks() != numbers);
        view.setTimeAxis(View::Seconds);
        view.settle();
        QCOMPARE(ticks(), numbers);
        view.SetPlotMode(View::HistogramMode);
        view.SetPlotMode(View::StripMode); // before a picture is painted
        QCOMPARE(view.x(), range);
        QCOMPARE(ticks(), numbers);
    }

    //! Labels that nobody sees are not measured; an axis that a host shows has them.
    void anAxisThatAHostShowsHasLabels()
    {
        SineView view(0.0, 1.0);
        QwtPlot &plot = *view.qwtPlot();
        QVERIFY(!plot.axisScaleDraw(QwtPlot::xTop)->hasComponent(QwtScaleDraw::Labels));
        plot.enableAxis(QwtPlot::xTop);
        view.settle();
        QVERIFY(plot.axisScaleDraw(QwtPlot::xTop)->hasComponent(QwtScaleDraw::Labels));
        QCOMPARE(cutAxisTexts(plot), QString());
    }

    void percentagesAreOfTheDataUntilARangeIsSet()
    {
        SineView view(0.0, 1.8e-7);
        QSignalSpy changed(&view, &View::rangeChanged);
        view.setFullScaleFromData(true);
        view.SetYScaleMode(View::FullRange);
        QCOMPARE(view.yText(), QString("-2e-07..2e-07"));
        view.SetYScaleMode(View::Percent50);
        QCOMPARE(view.yText(), QString("-1e-07..1e-07"));
        view.SetPositiveOnly(true);
        QCOMPARE(view.yText(), QString("-1e-08..1e-07"));
        view.SetPositiveOnly(false);
        view.SetRange(-4e-7, 4e-7);
        view.SetYScaleMode(View::Percent50);
        QCOMPARE(view.yText(), QString("-2e-07..2e-07"));
        view.resetRange();
        QCOMPARE(view.yText(), QString("-1e-07..1e-07"));
        QCOMPARE(changed.size(), 2);
    }
};

CORVALE_QT_TEST_MAIN(tst_ScopeAxes)
#include "tst_ScopeAxes.moc"
