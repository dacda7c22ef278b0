// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"
#include "corvale_qt/units/Units.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/Profiles.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using View = RVXScopePlotView;

//! The lowest peak and the lowest sum are numbers in the base unit, whatever the unit of display.
class tst_StatisticsLimits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameFitsInEveryUnit_data()
    {
        columns<int, QVector<double>, int>("type", "parameters", "status");
        // The beam has a peak of 1e-8 A and a sum of 6.27e-8 A.
        const int gaussabola = View::GaussabolaItem;
        const int regression = View::RegressionItem;
        QTest::newRow("centre of gravity has no limit")
            << int(View::CenterOfGravityItem) << QVector<double>{} << 0;
        QTest::newRow("device fit has no limit")
            << int(View::PrecalculatedFitItem) << QVector<double>{1e-7} << 0;
        QTest::newRow("Gaussabola, defaults") << gaussabola << QVector<double>{} << 0;
        QTest::newRow("Gaussabola, peak above") << gaussabola << QVector<double>{9e-9} << 0;
        QTest::newRow("Gaussabola, peak below") << gaussabola << QVector<double>{1e-7} << -2;
        QTest::newRow("regression, defaults") << regression << QVector<double>{} << 0;
        QTest::newRow("regression, both above")
            << regression << QVector<double>{0.1, 10, 9e-9, 6e-8} << 0;
        QTest::newRow("regression, peak below")
            << regression << QVector<double>{0.1, 10, 1e-7, 6e-8} << -2;
        QTest::newRow("regression, sum below")
            << regression << QVector<double>{0.1, 10, 9e-9, 7e-8} << -4;
    }
    void sameFitsInEveryUnit()
    {
        QFETCH(int, type);
        QFETCH(QVector<double>, parameters);
        ScopeTestModel model(32);
        model.isInBaseUnit = true;
        model.show(Profiles::gaussian<double>(32, 12.0, 2.5, 1e-8));
        ScopeTestView view(&model);
        view.SetPlotMode(View::HistogramMode);
        view.enableHistogramItem(View::HistogramItemTypes(type), 1, parameters, true);
        const RVX_StatisticsHistogramItem &item =
            *view.histogramItems(View::HistogramItemTypes(type)).value(0);

        Units::A scaled;
        scaled.setExtraScale(3.0);
        const Units::A A;
        const Units::nA nA;
        const Units::pA pA;
        for (const Units::MeasurementUnit *unit :
             std::initializer_list<const Units::MeasurementUnit *>{&A, &nA, &pA, &scaled}) {
            const double factor = unit->scale(1.0);
            model.deviceFits = QVariantList{12.0, 2.5, 1e-8 * factor};
            model.SetUnits(unit);
            view.settle();
            QVERIFY(item.isComputed());
            QTEST(int(item.status()), "status");
            if (item.status() != FitStatus::Ok)
                continue;
            QVERIFY(std::abs(item.position() - 13.0) < 1e-4);
            QVERIFY(std::abs(item.fit().sigma - 2.5) < 0.1);
            QVERIFY(std::abs(item.fit().at(12.0F) / (1e-8 * factor) - 1) < 0.03);
        }
    }

    //! An electron current that a unit shows as positive has the same limits as any other.
    void unitThatTurnsTheSign()
    {
        const Units::MeasurementUnit turnedSign(1e9, "nA", -1.0);
        ScopeTestModel model(32);
        model.isInBaseUnit = true;
        model.SetUnits(&turnedSign);
        model.show(Profiles::gaussian<double>(32, 12.0, 2.5, -1e-8));
        ScopeTestView view(&model);
        view.SetPlotMode(View::HistogramMode);
        for (const auto &[limit, status] : {std::pair(9e-9, 0), std::pair(1e-7, -2)}) {
            view.enableHistogramItem(View::GaussabolaItem, 1, {limit}, false);
            view.settle();
            QCOMPARE(int(view.histogramItems(View::GaussabolaItem)[0]->status()), status);
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_StatisticsLimits)
#include "tst_StatisticsLimits.moc"
