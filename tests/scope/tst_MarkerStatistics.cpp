// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

#include <random>

using namespace Corvale_Qt;

class tst_MarkerStatistics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void agreeWithSumsInWiderPrecision_data()
    {
        columns<double, double>("level", "ripple");
        row("current of a beam", 1e-7, 3e-8);
        row("noise around zero", 0.0, 1e-12);
        row("ripple on a large value", 1e6, 1e-4);
    }
    void agreeWithSumsInWiderPrecision()
    {
        QFETCH(double, level);
        QFETCH(double, ripple);
        std::mt19937 random(3);
        ScopeTestModel model(2);
        model.appendRows(5000, 1.0, [&](int, double) {
            return level + ripple * (random() / 2147483648.0 - 1.0);
        });
        const RowRange rows{1001, 4500};
        const auto statistics = statisticsOfRows(PlotColumnReader(&model), 2, rows);

        const auto meanOf = [&](const auto &term) {
            long double sum = 0;
            for (int row = rows.first; row <= rows.last; ++row)
                sum += term(static_cast<long double>(model.doubleData(row, 2)));
            return sum / rows.size();
        };
        const long double mean = meanOf([](long double value) {
            return value;
        });
        const long double square = meanOf([](long double value) {
            return value * value;
        });
        const long double variance = meanOf([mean](long double value) {
            return (value - mean) * (value - mean);
        });
        QCOMPARE(statistics.count(), 3500);
        QCOMPARE(statistics.sum(), double(mean * 3500));
        QCOMPARE(statistics.mean(), double(mean));
        QCOMPARE(statistics.rms(), double(std::sqrt(square)));
        // In the last row, the formula with squares would leave about six digits.
        const double deviation = double(std::sqrt(variance * 3500 / 3499));
        QVERIFY(qAbs(statistics.standardDeviation() - deviation) < 1e-8 * deviation);
    }

    void fewSamplesAndMissingOnes()
    {
        MarkerStatistics statistics;
        const auto text = [&] {
            return QString("%1 of %2: mean %3, deviation^2 %4")
                .arg(statistics.count())
                .arg(statistics.count() + statistics.missing())
                .arg(statistics.mean())
                .arg(std::pow(statistics.standardDeviation(), 2));
        };
        QCOMPARE(text(), QString("0 of 0: mean 0, deviation^2 0"));
        statistics.add(qQNaN());
        statistics.add(3.0);
        QCOMPARE(text(), QString("1 of 2: mean 3, deviation^2 0"));
        for (double value : {qInf(), 5.0, -qInf()})
            statistics.add(value);
        QCOMPARE(text(), QString("2 of 5: mean 4, deviation^2 2"));
    }
};

CORVALE_QT_TEST_MAIN(tst_MarkerStatistics)
#include "tst_MarkerStatistics.moc"
