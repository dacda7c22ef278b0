// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/CanvasNote_p.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

#include <qwt_scale_widget.h>

#include <QSignalSpy>

#include <cmath>

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
        model.appendRows(64, 1.0, [&](int, double time) {
            return offset + amplitude * std::sin(time);
        });
        settle();
    }
};

//! Returns title and labels of the y axis.
QString labels(ScopeTestView &view)
{
    QStringList texts{view.title(QwtPlot::yLeft) + ':'};
    const QwtScaleDraw *draw = view.qwtPlot()->axisScaleDraw(QwtPlot::yLeft);
    for (double tick : draw->scaleDiv().ticks(QwtScaleDiv::MajorTick))
        texts << draw->label(tick).text();
    return texts.join(' ');
}

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
        QFETCH(double, offset);
        QFETCH(double, amplitude);
        QFETCH(QString, some);
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German));
        SineView view(offset, amplitude);
        const QwtScaleDraw *draw = view.qwtPlot()->axisScaleDraw(QwtPlot::yLeft);
        QStringList labels;
        for (double tick : draw->scaleDiv().ticks(QwtScaleDiv::MajorTick)) {
            labels << draw->label(tick).text();
            QVERIFY(qAbs(labels.last().toDouble() - tick) < 0.01 * amplitude);
        }
        QLocale::setDefault(before);
        QVERIFY2(labels.contains(some), qPrintable(labels.join(' ')));
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

    void labelsOfMarkersHaveThePrefix()
    {
        ModelView view(1);
        // A noise of about 1 nA.
        view.model.appendRows(64, 0.001, [](int, double time) {
            return 1.8634e-7 + 1e-9 * (qRound(time * 1000) * 7 % 5 - 2);
        });
        view.enablePlotMarker(true);
        view.setSiPrefix(true);
        view.click(Qt::LeftButton, 0.02, 1.86e-7);
        view.click(Qt::RightButton, 0.06, 1.86e-7);
        QVERIFY2(view.markerText(0).endsWith(" nA"), qPrintable(view.markerText(0)));
        const QString text = view.markerText(1);
        for (const char *line :
             {"Period: 40.0000 ms", "Frequency: 25.0000 Hz", "Mean: 186.3", " nA"})
            QVERIFY2(text.contains(line), qPrintable(text));
        QVERIFY2(!text.contains("e-"), qPrintable(text));
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
        const auto note = [&view] {
            view.settle();
            for (const QwtPlotItem *item : view.qwtPlot()->itemList()) {
                if (const auto *found = dynamic_cast<const CanvasNote *>(item))
                    return found->text();
            }
            return QString();
        };
        QCOMPARE(note(), QString());
        view.setSiPrefix(true);
        view.setLogarithmic(true);
        QVERIFY2(note().endsWith(": sine"), qPrintable(note()));
        // A missing reading at the border is neither 0 nor negative, and what has left the model with a sign is.
        view.model.change(1, 1, qQNaN());
        QVERIFY2(note().endsWith(": sine"), qPrintable(note()));
        view.model.Clear();
        QCOMPARE(note(), QString());
        view.model.appendRows(64, 1.0, [](int channel, double time) {
            return channel == 1 ? 2e-3 * (1 + time - 64.0) : std::sin(time);
        });
        const double below = view.qwtPlot()->canvasMap(QwtPlot::yLeft).transform(-1.0);
        QVERIFY(below > view.qwtPlot()->canvas()->height() && below < 1e6);
        view.check(2, false);
        QCOMPARE(note(), QString());
        QCOMPARE(view.yText(), QString("0.001..1"));
        QCOMPARE(labels(view), QString("A: 0.001 0.01 0.1 1"));
        view.SetYScaleMode(View::FullRange);
        QCOMPARE(view.yText(), QString("0.0001..1"));
        view.SetPlotMode(View::HistogramMode);
        view.model.appendRows(1, 1.0, [](int, double) {
            return -1.0;
        });
        QVERIFY2(note().endsWith(": positive"), qPrintable(note()));
        view.model.appendRows(1, 1.0, [](int, double) {
            return 0.5;
        });
        QVERIFY(view.colourIn(view.canvas(), 1.0, 0.1).red()
                > 200); // the bar reaches down to the axis
        view.setLogarithmic(false);
        QCOMPARE(note(), QString());
        QCOMPARE(view.yText(), QString("-1..1"));
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
