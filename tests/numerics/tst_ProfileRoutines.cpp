// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/LogParabolaRegression.h"
#include "corvale_qt/numerics/NormalDensity_p.h"
#include "corvale_qt/numerics/PixelMoments.h"
#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/numerics/ProfileMoments.h"
#include "corvale_qt/numerics/ProfileNoise.h"
#include "corvale_qt/numerics/ProfileRoutines_p.h"
#include "corvale_qt/numerics/ThreePointFit.h"
#include "tests/beam/profile/Frames.h"
#include "tests/support/Profiles.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

const float kInf = std::numeric_limits<float>::infinity();
const float kNan = std::numeric_limits<float>::quiet_NaN();

using Readings = std::array<double, RoundPixelDetector::kReadings>;

//! Returns an elongated beam in the middle, with its direction in degrees from the columns towards higher rows.
Readings beam(double major, double minor, double degrees)
{
    const QVector<double> frame = Frames::pixels(0, 0, 3.8 * major, 3.8 * minor, -degrees);
    Readings readings{};
    std::copy(frame.begin(), frame.end(), readings.begin());
    return readings;
}

//! Returns the angle between two axes in radians, 0 to 90 degrees.
double apart(double a, double b)
{
    return std::abs(std::remainder(a - b, M_PI)) * 180 / M_PI;
}

} // namespace

//! What instruments compute of a profile by themselves: moments, a fit of the logarithms, and those of a round pixel detector.
class tst_ProfileRoutines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void momentsOfAGaussian()
    {
        const double area = 4e-9 * 5 * std::sqrt(2 * M_PI);
        for (bool window : {true, false}) {
            ProfileFit fit(Profiles::gaussian<float>(128, 61.3, 5, 4e-9));
            QCOMPARE(int(window ? computeCentreOfGravityInWindow(fit, 40)
                                : computeCentreOfGravityAbove(fit, 0)),
                     0);
            QVERIFY(std::abs(fit.mean - 61.3) < 1e-4);
            QVERIFY(std::abs(fit.sigma - 5) < 1e-4);
            QVERIFY(std::abs(fit.skewness) < 1e-4);
            QVERIFY(std::abs(fit.kurtosis - 3) < 1e-3);
            QVERIFY(std::abs(fit.sum / area - 1) < 1e-5);
            QVERIFY(std::abs(fit.amplitude / area - 1) < 1e-4);
            QVERIFY(std::abs(fit.at(61.3F) / 4e-9 - 1) < 1e-4);
        }
        // The variance is not the square of a rounded sigma.
        int others = 0;
        for (const double sigma : {3.1, 4.3, 5.7, 6.9}) {
            const auto values = Profiles::gaussian<float>(128, 61.3, sigma, 4e-9);
            ProfileFit above(values), three(values), logarithms(values);
            computeCentreOfGravityAbove(above, 0.1F);
            computeGaussabola(three, 0);
            computeRegression(logarithms, {});
            const double variance = momentsAbove(values.constData(), 128, 0.1F).variance;
            const RegressionOptions<float> options;
            const auto threePoints = fitThreePoints(values.constData(), 128, 0.0F);
            // Compared exactly, which QCOMPARE() does not do.
            QVERIFY(above.variance == float(variance));
            QVERIFY(three.variance == float(threePoints.variance));
            QVERIFY(logarithms.variance
                    == fitLogParabola(values.constData(), 128, options).variance);
            for (const ProfileFit *fit : {&above, &logarithms})
                others += fit->variance != fit->sigma * fit->sigma;
        }
        QVERIFY(others > 4); // of both kinds
    }

    void reasonsForFailure()
    {
        const auto gravity = [](const QVector<float> &values) {
            ProfileFit fit(values);
            return int(computeCentreOfGravityAbove(fit, 0.1F));
        };
        QCOMPARE(gravity({1}), -1);
        QCOMPARE(gravity({0, 0, 0, 0}), -4);
        QCOMPARE(gravity({-1, -2, -1}), -4);
        QCOMPARE(gravity({0, 5, 0}), -8); // no width
        QCOMPARE(gravity({0, kNan, 1}), -8);
        QCOMPARE(gravity({1, kInf, 1}), -4); // nothing is above a tenth of it

        // A strong negative reading pulls the centroid out of the window.
        ProfileFit pulled({-9, 0, 0, 0, 10, 1});
        QCOMPARE(int(computeCentreOfGravityInWindow(pulled, 5)), -3);

        const auto gaussabola = [](const QVector<float> &values) {
            ProfileFit fit(values);
            return int(computeGaussabola(fit, 1e-15F));
        };
        QCOMPARE(gaussabola({1, 2}), -1);
        QCOMPARE(gaussabola({0, 0, 0, 0}), -2);
        QCOMPARE(gaussabola({3, 2, 1}), -3);
        QCOMPARE(gaussabola({1, 2, 3}), -3);
        QCOMPARE(gaussabola({1, 2, 2, 1}), 0);
        QCOMPARE(gaussabola({1, kInf, 1}), -8);

        // A missing peak is reported before a peak that is too low.
        ProfileFit regression({0, 0, 0, 0});
        QCOMPARE(int(computeRegression(regression, {})), -3);
    }

    void failuresLeaveNoHalfFit()
    {
        using Compute = std::function<FitStatus(ProfileFit &)>;
        for (const Compute &compute :
             {Compute(std::bind(computeCentreOfGravityAbove, std::placeholders::_1, 0)),
              Compute(std::bind(computeCentreOfGravityInWindow, std::placeholders::_1, 5)),
              Compute(std::bind(computeGaussabola, std::placeholders::_1, 0)),
              Compute(
                  std::bind(computeRegression, std::placeholders::_1, RegressionOptions<float>())),
              Compute(adoptDeviceFit)}) {
            for (const QVector<float> &values : {QVector<float>{},
                                                 {kNan, kNan, kNan, kNan},
                                                 {0, 1, kInf, 2, 0},
                                                 {3e38F, 3.2e38F, 3.1e38F, 3e38F},
                                                 {-1, -5, -1, -2}}) {
                ProfileFit fit(values);
                const FitStatus status = compute(fit);
                QCOMPARE(fit.valid, status == FitStatus::Ok);
                QVERIFY(fit.valid ? fit.sigma > 0 && std::isfinite(fit.amplitude)
                                  : fit.sigma == -1);
                QVERIFY(fit.valid || fit.at(1) == 0);
                if (values.isEmpty())
                    continue; // leaves a record as it was
                // Neither does a record that held a fit before.
                ProfileFit used({1, 2, 4, 2, 1}, 2, 1, 4);
                QCOMPARE(int(compute(used)), 0);
                used.values = values;
                QCOMPARE(used.valid, compute(used) == FitStatus::Ok);
            }
        }
    }

    void regressionFillsTheRecord()
    {
        ProfileFit fit(Profiles::gaussian<float>(64, 30.2, 4, 7e-9, 1e-9));
        fit.pedestals = {1e-9F, 1e-9F, 1e-9F, 1e-9F};
        RegressionOptions<float> options;
        options.thresholdFraction = 0.1F;
        QCOMPARE(int(computeRegression(fit, options)), 0);
        QVERIFY(fit.valid);
        QVERIFY(std::abs(fit.mean - 30.2) < 1e-4);
        QVERIFY(std::abs(fit.at(30.2F) / 7e-9 - 1) < 1e-5);
        QVERIFY(std::abs(fit.variance - 16) < 1e-3);
        QCOMPARE(fit.maxIndex, 30);
        QVERIFY(std::abs(fit.maxValue / 8e-9 - 1) < 1e-2); // as it was read
    }

    void deviceFitsNeedAPlaceAndAWidth()
    {
        const QVector<float> values{0, 1, 2, 1, 0};
        ProfileFit fit(values, 2, 1.5F, 2);
        QVERIFY(!fit.valid);
        QCOMPARE(int(adoptDeviceFit(fit)), 0);
        QVERIFY(std::abs(fit.at(2) - 2) < 1e-6);
        QVERIFY(std::abs(fit.at(3.5F) - 2 * std::exp(-0.5)) < 1e-6);
        for (const auto &[mean, sigma, height] : {std::tuple(-1.0F, 1.0F, 2.0F),
                                                  {2.0F, 0.0F, 2.0F},
                                                  {2.0F, kNan, 2.0F},
                                                  {2.0F, 1e30F, 1e30F}}) { // of an infinite area
            ProfileFit bad(values, mean, sigma, height);
            bad.valid = true; // from before
            QCOMPARE(int(adoptDeviceFit(bad)), -8);
            QVERIFY(!bad.valid);
        }
    }

    void noiseNeedsAValidFit()
    {
        const QVector<float> values{3, 1, 3, 50, 100, 50, 1, 3, 1};
        ProfileFit fit(values, 4, 0.5F, 100);
        QVERIFY(!signalToNoise(fit).computed);
        QCOMPARE(int(adoptDeviceFit(fit)), 0);
        QCOMPARE(signalToNoise(fit).ratio, signalToNoise(values.constData(), 9, 4.0, 0.5).ratio);
        QCOMPARE(signalToNoise(fit).signalCount, 3);
        QCOMPARE(signalToNoise(fit, 5).signalCount, 5);
    }

    void residualsOfAMisfit()
    {
        ProfileFit fit(Profiles::gaussian<float>(32, 16, 2, 50), 16, 2, 50);
        QCOMPARE(int(adoptDeviceFit(fit)), 0);
        QVERIFY(residualNoise(fit, 5) < 1e-6);
        fit.values[14] += 5;
        fit.values[18] -= 10;
        fit.values[25] += 1000; // outside of the window
        QVERIFY(std::abs(residualNoise(fit, 5) - std::sqrt(0.01 + 0.04)) < 1e-5);
    }

    void theDistributionsComplaintEndsHere()
    {
        float area = 7;
        QCOMPARE(int(areaFromHeight(2, 0, 0, 1, area)), 0);
        QVERIFY(std::abs(area - 2 * std::sqrt(2 * M_PI)) < 1e-5);
        area = 7;
        QCOMPARE(int(areaFromHeight(2, 0, 0, 0, area)), -8);
        QCOMPARE(int(areaFromHeight(2, 0, 0, -1, area)), -8);
        QCOMPARE(int(areaFromHeight(2, 0, kInf, 1, area)), -8);
        QCOMPARE(int(areaFromHeight(2, kNan, 0, 1, area)), -8);
        QCOMPARE(int(areaFromHeight(2, 1000, 0, 1, area)), -8); // the density there is 0
        QCOMPARE(area, 7.0F);
    }

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

    void reasonsForNoRegression()
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
            {0, 1, std::nan(""), 1, 0}, {0, 1, inf, 1, 0},          {-1, -2, -1.5, -2, -3},
            {1e300, 2e300, 1e300},      {1e-320, 2e-320, 1e-320},   {5, 5, 5, 5, 5},
            {1, inf, inf, inf, 1},      {0, 1e-300, 1e300, 1e-300}, QVector<double>(9, -inf),
        };
        for (const auto &values : bad) {
            const auto result = fit(values);
            for (double number : {result.mean, result.sigma, result.height, result.area})
                QVERIFY(std::isfinite(number));
            QVERIFY(result.status == FitStatus::Ok || result.sigma == -1);
        }
    }

    void everyPixelIsWhereItIsWired()
    {
        for (int row = -1; row <= 12; ++row) {
            for (int column = -1; column <= 12; ++column)
                QCOMPARE(RoundPixelDetector::readingAt(row, column),
                         PixelWiring::readingAt(row, column));
        }
        for (int reading = 0; reading < RoundPixelDetector::kReadings; ++reading) {
            Readings readings{};
            readings[reading] = 2;
            const PixelMoments moments = computePixelMoments(readings, 0, 1);
            QCOMPARE(moments.valid, PixelWiring::isUsed(reading));
            if (moments.valid)
                QCOMPARE(QPointF(moments.meanX - 6, 6 - moments.meanY),
                         PixelWiring::placeOf(reading));
        }
    }

    void directions()
    {
        for (int degrees = -85; degrees <= 90; degrees += 5) {
            const double direction = degrees * M_PI / 180;
            const PixelMoments moments = computePixelMoments(beam(1.6, 0.8, degrees), 0, 2);
            QVERIFY(moments.valid);
            QVERIFY(std::abs(moments.sigmaMajor - 1.6) < 0.02);
            QVERIFY(std::abs(moments.sigmaMinor - 0.8) < 0.02);
            QVERIFY(std::abs(moments.elongation - 2) < 0.06);
            // The reported rotation is the same axis, except where it stays 0.
            const double reported = moments.rotation != 0 ? moments.rotation : direction;
            QVERIFY2(apart(moments.axisAngle, direction) < 0.5 && apart(reported, direction) < 0.5,
                     qPrintable(QString::number(degrees)));
        }
        // The reported rotation is 0 exactly along a column and exactly on a diagonal.
        Readings upright{};
        for (int row = 4; row < 8; ++row)
            upright[PixelWiring::readingAt(row, 5)] = 1;
        PixelMoments moments = computePixelMoments(upright, 0, 1);
        QCOMPARE(moments.rotation, 0.0);
        QVERIFY(apart(moments.axisAngle, M_PI / 2) < 1e-9);
        QCOMPARE(moments.sigmaMinor, 0.25);
        Readings diagonal{};
        for (int i = 3; i < 9; ++i)
            diagonal[PixelWiring::readingAt(i, i)] = 1;
        moments = computePixelMoments(diagonal, 0, 1);
        QCOMPARE(moments.rotation, 0.0);
        QVERIFY(apart(moments.axisAngle, M_PI / 4) < 1e-9);
    }

    void theDiscriminatorTakesTheTails()
    {
        // A reading as large as the discriminator stays; the one below it goes.
        Readings readings{};
        readings[PixelWiring::readingAt(5, 5)] = 3;
        readings[PixelWiring::readingAt(5, 7)] = 1;
        readings[PixelWiring::readingAt(5, 9)] = std::nextafter(1.0, 0.0);
        const PixelMoments moments = computePixelMoments(readings, 1, 1);
        QCOMPARE(moments.integral, 4.0);
        QCOMPARE(moments.meanX, 6.0);
    }

    void nothingToMeasure()
    {
        PixelMoments moments = computePixelMoments(Readings{}, 0, 1);
        QVERIFY(!moments.valid);
        QCOMPARE(moments.meanX, 6.0);
        QCOMPARE(moments.meanY, 6.0);

        moments = computePixelMoments(beam(2, 2, 0), 0, 3);
        QVERIFY(!moments.valid);
        QCOMPARE(moments.integral, 0.0);

        for (double bad : {1e308, std::nan("")}) {
            Readings readings;
            readings.fill(bad);
            QVERIFY(!computePixelMoments(readings, 0, 1).valid);
        }
    }

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
};

CORVALE_QT_TEST_MAIN(tst_ProfileRoutines)
#include "tst_ProfileRoutines.moc"
