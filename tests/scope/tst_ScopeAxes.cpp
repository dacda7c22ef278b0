// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/scope/ScopeTestModel.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/TestMain.h"

#include <qwt_scale_widget.h>

#include <QApplication>

#include <cmath>

using namespace Corvale_Qt;
using View = RVXScopePlotView;

class tst_ScopeAxes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ticksCanBeToldApart_data();
    void ticksCanBeToldApart();
    void signsStandInFrontInEveryDirection();
    void curvesAreClippedWhereTheyMayLeaveTheAxis();
};

void tst_ScopeAxes::ticksCanBeToldApart_data()
{
    QTest::addColumn<double>("offset");
    QTest::addColumn<double>("amplitude");
    QTest::addColumn<QString>("some");
    QTest::newRow("thousands") << 432850.0 << 1000.0 << "432000";
    QTest::newRow("fractions") << 0.0 << 1.2 << "-0.5";
    QTest::newRow("a small ripple on a large value") << 5.0 << 1e-7 << "5.00000005";
    QTest::newRow("a ripple on millions") << 2e6 << 0.004 << "2000000.002";
    QTest::newRow("picoamperes in ampere") << 0.0 << 2.2e-12 << "-1e-12";
}

void tst_ScopeAxes::ticksCanBeToldApart()
{
    QFETCH(double, offset);
    QFETCH(double, amplitude);
    QFETCH(QString, some);
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    ScopeTestModel model(1);
    model.appendRows(64, 1.0, [&](int, double time) {
        return offset + amplitude * std::sin(time);
    });
    ScopeTestView view(&model);
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

void tst_ScopeAxes::signsStandInFrontInEveryDirection()
{
    ScopeTestModel model(1);
    model.appendRows(64, 1.0, [](int, double time) {
        return std::sin(time);
    });
    QVector<QImage> pictures;
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QApplication::setLayoutDirection(direction);
        ScopeTestView view(&model);
        pictures << view.qwtPlot()->axisWidget(QwtPlot::yLeft)->grab().toImage();
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QCOMPARE(pictures[1], pictures[0]);
}

void tst_ScopeAxes::curvesAreClippedWhereTheyMayLeaveTheAxis()
{
    ScopeTestModel model(1);
    model.appendRows(64, 1.0, [](int, double time) {
        return std::sin(time);
    });
    ScopeTestView view(&model);
    QString unclipped;
    for (int mode = View::AutoScale; mode <= 14; ++mode) {
        view.SetYScaleMode(mode);
        view.settle();
        if (!view.curves()[0]->testPaintAttribute(QwtPlotCurve::ClipPolygons))
            unclipped += QString::number(mode) + ' ';
    }
    QCOMPARE(unclipped, QString("0 2 "));
}

CORVALE_QT_TEST_MAIN(tst_ScopeAxes)
#include "tst_ScopeAxes.moc"
