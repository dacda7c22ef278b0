// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/support/TestMain.h"

#include <random>

using namespace Corvale_Qt;

class tst_MarkerStatistics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void agreeWithSumsInWiderPrecision_data();
    void agreeWithSumsInWiderPrecision();
    void fewSamples();
    void missingValuesAreCountedAndLeftOut();
};

void tst_MarkerStatistics::agreeWithSumsInWiderPrecision_data()
{
    QTest::addColumn<double>("level");
    QTest::addColumn<double>("ripple");
    QTest::newRow("current of a beam") << 1e-7 << 3e-8;
    QTest::newRow("noise around zero") << 0.0 << 1e-12;
    QTest::newRow("ripple on a large value") << 1e6 << 1e-4;
}

void tst_MarkerStatistics::agreeWithSumsInWiderPrecision()
{
    QFETCH(double, level);
    QFETCH(double, ripple);
    std::mt19937 random(3);
    ScopeTestModel model(2);
    const int count = 5000;
    model.appendRows(count, 1.0, [&](int, double) {
        return level + ripple * (random() / 2147483648.0 - 1.0);
    });

    const RowRange rows{1001, 4500};
    const auto statistics = statisticsOfRows(PlotColumnReader(&model), 2, rows);

    long double sum = 0;
    long double squares = 0;
    for (int row = rows.first; row <= rows.last; ++row) {
        const long double value = model.doubleData(row, 2);
        sum += value;
        squares += value * value;
    }
    const long double n = rows.size();
    const long double mean = sum / n;
    long double deviations = 0;
    for (int row = rows.first; row <= rows.last; ++row)
        deviations += (model.doubleData(row, 2) - mean) * (model.doubleData(row, 2) - mean);
    QCOMPARE(statistics.count(), 3500);
    QCOMPARE(statistics.sum(), double(sum));
    QCOMPARE(statistics.mean(), double(mean));
    QCOMPARE(statistics.rms(), double(std::sqrt(squares / n)));
    // In the last row, the formula with squares would leave about six digits.
    const double deviation = double(std::sqrt(deviations / (n - 1)));
    QVERIFY(qAbs(statistics.standardDeviation() - deviation) < 1e-8 * deviation);
}

void tst_MarkerStatistics::fewSamples()
{
    MarkerStatistics statistics;
    QCOMPARE(statistics.mean(), 0.0);
    QCOMPARE(statistics.standardDeviation(), 0.0);
    statistics.add(3.0);
    QCOMPARE(statistics.mean(), 3.0);
    QCOMPARE(statistics.rms(), 3.0);
    QCOMPARE(statistics.standardDeviation(), 0.0);
    statistics.add(5.0);
    QCOMPARE(statistics.standardDeviation(), std::sqrt(2.0));
}

void tst_MarkerStatistics::missingValuesAreCountedAndLeftOut()
{
    MarkerStatistics statistics;
    for (double value : {qQNaN(), 1.0, qInf(), 2.0, -qInf()})
        statistics.add(value);
    QCOMPARE(statistics.missing(), 3);
    QCOMPARE(statistics.count(), 2);
    QCOMPARE(statistics.mean(), 1.5);
    QCOMPARE(statistics.standardDeviation(), std::sqrt(0.5));
}

CORVALE_QT_TEST_MAIN(tst_MarkerStatistics)
#include "tst_MarkerStatistics.moc"
