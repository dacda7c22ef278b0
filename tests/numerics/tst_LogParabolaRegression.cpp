// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/LogParabolaRegression.h"
#include "tests/support/Profiles.h"
#include "tests/support/TestMain.h"
#include "tests/support/TextTable.h"

using namespace Corvale_Qt;

class tst_LogParabolaRegression : public QObject
{
    Q_OBJECT

private:
    template<typename T>
    static RegressionResult<T> fit(const QVector<T> &values,
                                   const RegressionOptions<T> &options = {})
    {
        return fitLogParabola(values.constData(), values.size(), options);
    }

    //! Fits the same profile in both precisions and compares the status.
    static int statusOf(const QVector<double> &values,
                        const RegressionOptions<double> &options = {})
    {
        QVector<float> singleValues;
        for (double value : values)
            singleValues << static_cast<float>(value);
        RegressionOptions<float> single;
        single.thresholdFraction = static_cast<float>(options.thresholdFraction);
        single.halfWidth = options.halfWidth;
        single.minimumPeak = static_cast<float>(options.minimumPeak);
        single.weightPower = options.weightPower;
        const auto wide = fit(values, options);
        const auto narrow = fit(singleValues, single);
        if (wide.status != narrow.status)
            qWarning("double: %d, float: %d", int(wide.status), int(narrow.status));
        return wide.status == narrow.status ? int(wide.status) : 99;
    }

private Q_SLOTS:
    void exactGaussiansAreFound_data()
    {
        tableFrom(R"(
            | int count | double mean | double sigma | double height
            strip detector, pA                     | 32  | 15.5  | 3   | 4e-12
            strip detector, narrow                 | 32  | 20.3  | 0.6 | 1
            wide                                   | 32  | 14.2  | 9   | 12000
            narrow at the far end of 256 channels  | 256 | 249.7 | 1   | 1e-9
            wide on 256 channels                   | 256 | 77.25 | 40  | 5e-9
        )");
    }
    void exactGaussiansAreFound()
    {
        QFETCH(int, count);
        QFETCH(double, mean);
        QFETCH(double, sigma);
        QFETCH(double, height);
        const double area = height * sigma * std::sqrt(2 * M_PI);

        for (int power : {1, 2, 3}) {
            RegressionOptions<double> options;
            options.weightPower = power;
            options.thresholdFraction = 1e-6;
            const auto wide = fit(Profiles::gaussian<double>(count, mean, sigma, height), options);
            QCOMPARE(int(wide.status), 0);
            QVERIFY(std::abs(wide.mean - mean) < 1e-9 * count);
            QVERIFY(std::abs(wide.sigma / sigma - 1) < 1e-9);
            QVERIFY(std::abs(wide.height / height - 1) < 1e-9);
            QVERIFY(std::abs(wide.area / area - 1) < 1e-9);

            // Readings in single precision, and a run over the whole profile.
            RegressionOptions<float> single;
            single.weightPower = power;
            const auto narrow = fit(Profiles::gaussian<float>(count, mean, sigma, height), single);
            QCOMPARE(int(narrow.status), 0);
            QVERIFY(std::abs(narrow.mean - mean) < 2e-5);
            QVERIFY(std::abs(narrow.sigma / sigma - 1) < 1e-5);
            QVERIFY(std::abs(narrow.area / area - 1) < 1e-5);
        }
    }

    void noiseMovesTheAnswerALittle()
    {
        // Each reading has 1 % of noise. With weights y^2 and 8 or more bins, the fit spreads by less than sigma x
        // noise in the mean and twice that in the width.
        const auto values =
            Profiles::withNoise(Profiles::gaussian<double>(32, 17.3, 3.2, 2e-9), 0.01);
        const auto result = fit(values);
        QCOMPARE(int(result.status), 0);
        QVERIFY(std::abs(result.mean - 17.3) < 0.032);
        QVERIFY(std::abs(result.sigma - 3.2) < 0.064);
        QVERIFY(std::abs(result.height / 2e-9 - 1) < 0.01);
    }

    void reasonsForFailure()
    {
        const auto beam = Profiles::gaussian<double>(32, 15, 3, 1e-9);
        QCOMPARE(statusOf(beam), 0);
        QCOMPARE(statusOf(beam.mid(14, 2)), -1);
        QCOMPARE(statusOf({}), -1);

        RegressionOptions<double> options;
        options.minimumPeak = 2e-9;
        QCOMPARE(statusOf(beam, options), -2);
        for (const double outside : {-3.0, 31.0})
            QCOMPARE(statusOf(Profiles::gaussian<double>(32, outside, 3, 1e-9)), -3);
        // The edge is checked before the minimum.
        QCOMPARE(statusOf(Profiles::gaussian<double>(32, 31, 3, 1e-9), options), -3);
        QCOMPARE(statusOf(QVector<double>(32, 0.0)), -3);

        options = {};
        options.thresholdFraction = 0.99;
        QCOMPARE(statusOf(beam, options), -5);
        options = {};
        options.halfWidth = 0;
        QCOMPARE(statusOf(beam, options), -5);

        // Two strips alone define no parabola.
        for (double neighbour : {0.5, 0.37, 0.123456789}) {
            QVector<double> two(32, 0.0);
            two[15] = 1e-9;
            two[16] = neighbour * 1e-9;
            QCOMPARE(statusOf(two), -7);
        }
        // The brightest bin lies in a dip between other bright bins.
        QCOMPARE(statusOf({5, 9, 10, 9, 9.9, 9.99, 9.999, 5, 9.999, 9.99}), 0);
        QCOMPARE(statusOf({9.9, 1, 1, 1, 10, 1, 1, 1, 9.9, 9.9, 9.9}), -8);
    }

    void thePeakIsTheFirstOfEquals()
    {
        const QVector<double> twoPeaks{0, 1, 4, 1, 0, 1, 4, 1, 0};
        RegressionOptions<double> options;
        options.halfWidth = 1;
        const auto result = fit(twoPeaks, options);
        QCOMPARE(result.peak.index, 2);
        QVERIFY(std::abs(result.mean - 2) < 1e-12);
    }

    void pedestalsAreTakenOffQuarterByQuarter()
    {
        RegressionOptions<double> options;
        options.pedestals = {1, 2, 3, 4};
        const QVector<double> seven{1, 2, 3, 4, 7, 8, 9};
        // Each quarter has one bin; the last three bins keep their values.
        QCOMPARE(fit(seven, options).correctedSum, 24.0);

        auto values = Profiles::gaussian<double>(32, 12.4, 2.5, 10);
        for (int i = 0; i < 32; ++i)
            values[i] += options.pedestals[i / 8];
        const auto result = fit(values, options);
        QCOMPARE(int(result.status), 0);
        QVERIFY(std::abs(result.mean - 12.4) < 1e-9);
        QVERIFY(std::abs(result.sigma - 2.5) < 1e-9);
    }

    void readingsBelowZeroCarryNoWeight()
    {
        auto values = Profiles::gaussian<double>(32, 16, 2, 10);
        const auto clean = fit(values);
        values[2] = -3;
        values[30] = 0;
        RegressionOptions<double> options;
        options.thresholdFraction = -1; // the run takes them in
        for (int power : {0, 2}) {
            options.weightPower = power;
            const auto result = fit(values, options);
            QCOMPARE(int(result.status), 0);
            QVERIFY(std::abs(result.sigma - clean.sigma) < 1e-9);
        }
    }

    void whateverComesInGivesAStatus()
    {
        const double inf = std::numeric_limits<double>::infinity();
        const QVector<QVector<double>> bad = {
            {0, 1, std::nan(""), 1, 0},
            {0, 1, inf, 1, 0},
            {-1, -2, -1.5, -2, -3},
            {1e300, 2e300, 1e300},
            {1e-320, 2e-320, 1e-320},
            {5, 5, 5, 5, 5},
            {1, inf, inf, inf, 1},
            {0, 1e-300, 1e300, 1e-300},
            QVector<double>(9, -inf),
        };
        for (const auto &values : bad) {
            const auto result = fit(values);
            for (double number : {result.mean, result.sigma, result.height, result.area})
                QVERIFY(std::isfinite(number));
            QVERIFY(result.status == FitStatus::Ok || result.sigma == -1);
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_LogParabolaRegression)
#include "tst_LogParabolaRegression.moc"
