// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/NormalDensity_p.h"
#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/numerics/ProfileNoise.h"
#include "corvale_qt/numerics/ProfileRoutines_p.h"
#include "tests/support/Profiles.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

const float kInf = std::numeric_limits<float>::infinity();
const float kNan = std::numeric_limits<float>::quiet_NaN();

} // namespace

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
        for (const auto &[mean, sigma] : {std::pair(-1.0F, 1.0F), {2.0F, 0.0F}, {2.0F, kNan}}) {
            ProfileFit bad(values, mean, sigma, 2);
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
};

CORVALE_QT_TEST_MAIN(tst_ProfileRoutines)
#include "tst_ProfileRoutines.moc"
