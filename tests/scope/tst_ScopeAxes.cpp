// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/scope/ScopeTestView.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

#include <qwt_scale_widget.h>

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
};

CORVALE_QT_TEST_MAIN(tst_ScopeAxes)
#include "tst_ScopeAxes.moc"
