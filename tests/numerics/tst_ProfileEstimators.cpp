// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/BeamEstimator.h"
#include "corvale_qt/numerics/CellScreening.h"
#include "corvale_qt/numerics/FlatField.h"
#include "corvale_qt/numerics/ProfileEstimators.h"
#include "tests/support/CellCharges.h"
#include "tests/support/Profiles.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

using Estimator = std::function<BeamEstimate(const BeamProfile &)>;
Q_DECLARE_METATYPE(Estimator)

namespace {

//! Thin wires, whose readings are densities at their places.
BeamProfile wires(const CellCharges::Density &density)
{
    BeamProfile profile = CellCharges::touching(Profiles::unequalWires, density);
    profile.positions = Profiles::unequalWires;
    profile.widths.fill(0);
    profile.scales.fill(1);
    for (int i = 0; i < profile.count(); ++i)
        profile.readings[i] = density(Profiles::unequalWires[i]);
    return profile;
}

} // namespace

class tst_ProfileEstimators : public QObject
{
    Q_OBJECT

private:
    static void estimators(int count = 6)
    {
        QTest::addColumn<Estimator>("estimate");
        QTest::newRow("centre of gravity")
            << Estimator([](const BeamProfile &profile) { return centreOfGravity(profile); });
        QTest::newRow("three points") << Estimator(threePointGaussian);
        QTest::newRow("regression") << Estimator([](const BeamProfile &profile) {
            LogParabolaOptions options;
            options.thresholdFraction = 0.1;
            return logParabolaGaussian(profile, options);
        });
        QTest::newRow("least squares")
            << Estimator([](const BeamProfile &profile) { return leastSquaresGaussian(profile); });
        if (count < 5)
            return;
        QTest::newRow("half maximum") << Estimator(halfMaximumWidth);
        QTest::newRow("second moment") << Estimator(secondMomentWidth);
    }

private Q_SLOTS:
    void wiresAtUnequalPlaces_data() { estimators(); }
    void wiresAtUnequalPlaces()
    {
        QFETCH(Estimator, estimate);
        const auto beam = CellCharges::gaussian(1.36, 3.93, 7);
        BeamProfile holed =
            CellCharges::strips(32, 2, beam); // cells that are not trusted count for nothing
        for (int hot : {4, 5}) {
            holed.setFlag(hot, CellFlag::Hot);
            holed.readings[hot] = 50;
        }
        const BeamProfile profiles[] = {wires(beam), CellCharges::strips(32, 2, beam), holed};
        for (const BeamProfile &profile : profiles) {
            const BeamEstimate found = estimate(profile);
            QVERIFY(found.isOk());
            QVERIFY(std::abs(found.position.value - 1.36) < 0.02 * 3.93);
            QVERIFY(std::abs(found.sigma.value - 3.93) < 0.03 * 3.93);
            QVERIFY(std::abs(found.height.value / 7 - 1) < 0.05);
            const double background = found.background.value;
            const int parameters = std::isnan(background) || background == 0.0 ? 3 : 4;
            const int cells = profile.count() - profile.flags.count(CellFlag::Hot);
            QCOMPARE(found.quality.degreesOfFreedom, cells - parameters);
            QVERIFY(found.quality.residualRms < 0.05);
        }
    }

    //! R2 by its definition, over the cells that are trusted.
    void howMuchAFitExplains()
    {
        BeamProfile profile = wires(CellCharges::gaussian(1.36, 3.93, 7));
        CellCharges::addNoise(profile, 0.5);
        profile.setFlag(0, CellFlag::Hot);
        profile.readings[0] = 50;
        const BeamEstimate fit = leastSquaresGaussian(profile);
        const auto beam =
            CellCharges::gaussian(fit.position.value, fit.sigma.value, fit.height.value);
        const int cells = profile.count() - 1;
        double mean = 0, spread = 0, residuals = 0;
        for (int i = 1; i <= cells; ++i)
            mean += profile.readings[i] / cells;
        for (int i = 1; i <= cells; ++i) {
            spread += std::pow(profile.readings[i] - mean, 2);
            residuals += std::pow(
                profile.readings[i] - beam(profile.positions[i]) - fit.background.value, 2);
        }
        QVERIFY(std::abs(fit.quality.rSquared - (1 - residuals / spread)) < 1e-9);
    }

    void leastSquaresFollowASlope()
    {
        const auto beam = CellCharges::gaussian(3, 4);
        const BeamProfile profile = CellCharges::touching(
            Profiles::unequalWires, [&](double x) { return 0.5 + 0.02 * x + beam(x); });
        const BeamEstimate fit = leastSquaresGaussian(profile, FitBackground::Linear);
        QVERIFY(std::abs(fit.position.value - 3) < 1e-4 && std::abs(fit.sigma.value - 4) < 1e-4);
        QVERIFY(std::abs(fit.slope - 0.02) < 1e-5);
        QVERIFY(std::abs(fit.background.value - 0.56) < 1e-4); // at the position
        for (const double place : {-20.0, 6.0})
            QVERIFY(std::abs(fit.densityAt(place) - (0.5 + 0.02 * place + beam(place))) < 1e-3);
        QVERIFY(fit.quality.residualRms < 1e-4);
        QCOMPARE(int(leastSquaresGaussian(BeamProfile::uniform({1, 3, 2, 1})).status),
                 int(EstimateStatus::NotEnoughCells));
    }

    //! To first order, the error is the root of the sum of the squares of what the noise of each reading changes.
    void standardErrorsAreDerivatives_data() { estimators(4); } // those without a median
    void standardErrorsAreDerivatives()
    {
        QFETCH(Estimator, estimate);
        const auto beam = CellCharges::gaussian(1.36, 3.93, 7);
        for (BeamProfile profile :
             {wires(beam), CellCharges::touching(Profiles::unequalWires, beam)}) {
            profile.noise = 1e-3;
            const auto numbers = [&](const BeamProfile &changed) {
                const BeamEstimate found = estimate(changed);
                return QVector<Estimate>{found.position, found.sigma, found.height};
            };
            QVector<double> squares(3, 0.0);
            for (int cell = 0; cell < profile.count(); ++cell) {
                BeamProfile up = profile, down = profile;
                up.readings[cell] += 1e-5;
                down.readings[cell] -= 1e-5;
                for (int k = 0; k < 3; ++k)
                    squares[k] +=
                        std::pow((numbers(up)[k].value - numbers(down)[k].value) / 2e-5, 2);
            }
            const QVector<Estimate> found = numbers(profile);
            for (int k = 0; k < 3; ++k) {
                const double ratio = found[k].error / (1e-3 * std::sqrt(squares[k]));
                QVERIFY2(!found[k].hasError() || std::abs(ratio - 1) < 0.02,
                         qPrintable(QString("%1: %2").arg(k).arg(ratio)));
            }
        }
    }

    void leastSquaresAreExactOnAnyCells_data()
    {
        columns<double, double, double>("mean", "sigma", "background");
        QTest::newRow("in the middle") << 1.36 << 3.93 << 0.0;
        QTest::newRow("on a background") << -4.0 << 5.0 << 0.2;
        QTest::newRow("half of it outside") << 26.0 << 4.0 << 0.05;
        QTest::newRow("narrower than a cell") << 1.0 << 1.5 << 0.1;
        QTest::newRow("wider than the detector") << 5.0 << 30.0 << 0.0;
        QTest::newRow("on a large background") << 3.0 << 4.0 << 100.0;
    }
    void leastSquaresAreExactOnAnyCells()
    {
        QFETCH(double, mean);
        QFETCH(double, sigma);
        QFETCH(double, background);
        const auto density = [=](double x) {
            return background + CellCharges::gaussian(mean, sigma)(x);
        };
        for (const double unit : {1e-12, 1.0, 1e9}) {
            BeamProfile profile = CellCharges::touching(Profiles::unequalWires, density);
            for (double &reading : profile.readings)
                reading *= unit;
            const BeamEstimate fit = leastSquaresGaussian(profile);
            QVERIFY(fit.isOk());
            QVERIFY(std::abs(fit.position.value - mean) < 1e-4 * sigma);
            QVERIFY(std::abs(fit.sigma.value / sigma - 1) < 1e-4);
            QVERIFY(std::abs(fit.height.value / unit - 1) < 1e-4);
            QVERIFY(std::abs(fit.background.value / unit - background) < 1e-4);
            QVERIFY(fit.quality.residualRms < 1e-4);
        }
    }

    //! The noise is added anew 100 times; the spread of the results is what the standard error promises.
    void standardErrorsAreTheSpread_data() { estimators(); }
    void standardErrorsAreTheSpread()
    {
        QFETCH(Estimator, estimate);
        constexpr int trials = 100;
        constexpr double noise = 0.01;
        double sum[2] = {}, squares[2] = {}, errors[2] = {};
        for (int trial = 0; trial < trials; ++trial) {
            BeamProfile profile = CellCharges::strips(20, 2, CellCharges::gaussian(0.7, 4));
            profile.noise = noise;
            CellCharges::addNoise(profile, noise, unsigned(trial + 1));
            const BeamEstimate found = estimate(profile);
            QVERIFY(found.isOk());
            const Estimate numbers[2] = {found.position, found.sigma};
            for (int k = 0; k < 2; ++k) {
                sum[k] += numbers[k].value / trials;
                squares[k] += numbers[k].value * numbers[k].value / trials;
                errors[k] += numbers[k].error / trials;
            }
        }
        for (int k = 0; k < 2; ++k) {
            const double spread = std::sqrt(squares[k] - sum[k] * sum[k]);
            QVERIFY2(
                std::abs(errors[k] / spread - 1) < 0.25,
                qPrintable(QString("%1: error %2, spread %3").arg(k).arg(errors[k]).arg(spread)));
        }
    }

    void theSecondMomentStandsNoise_data()
    {
        columns<int, double, double>("strips", "sigma", "noise");
        QTest::addColumn<double>("near"); // the share of the results within a fifth of sigma
        QTest::newRow("cut at the edge") << 32 << 3.0 << 0.01 << 0.98;
        QTest::newRow("little noise") << 64 << 3.0 << 0.01 << 0.98;
        QTest::newRow("on many strips") << 128 << 3.0 << 0.01 << 0.97;
        QTest::newRow("noise of 2 %") << 64 << 4.0 << 0.02 << 0.95;
        QTest::newRow("a narrower beam") << 64 << 3.0 << 0.02 << 0.89;
        QTest::newRow("a wide one") << 64 << 6.0 << 0.02 << 0.98;
        QTest::newRow("noise of 2 %, on many strips") << 128 << 4.0 << 0.02 << 0.9;
    }
    //! The area of integration settles, and an error of the background does not add up over all strips.
    void theSecondMomentStandsNoise()
    {
        QFETCH(int, strips);
        QFETCH(double, sigma);
        constexpr int trials = 100;
        int found = 0, right = 0;
        for (int trial = 0; trial < trials; ++trial) {
            BeamProfile profile = CellCharges::strips(strips, 1, CellCharges::gaussian(0.7, sigma));
            CellCharges::addNoise(profile, cell<double>("noise"), unsigned(trial + 1));
            const BeamEstimate width = secondMomentWidth(profile);
            found += width.isOk();
            right += width.isOk() && std::abs(width.sigma.value / sigma - 1) < 0.2;
        }
        QVERIFY2(found > 0.98 * trials, qPrintable(QString::number(found)));
        QVERIFY2(right > cell<double>("near") * trials, qPrintable(QString::number(right)));
    }

    void withoutKnownNoiseOnlyTheFitHasAnError()
    {
        BeamProfile profile = CellCharges::strips(32, 2, CellCharges::gaussian(3, 4));
        CellCharges::addNoise(profile, 0.01);
        QVERIFY(!centreOfGravity(profile).position.hasError());
        const BeamEstimate fit = leastSquaresGaussian(profile);
        QVERIFY(fit.position.error > 0.005 && fit.position.error < 0.05);
        QVERIFY(std::isnan(fit.quality.reducedChiSquare));
        profile.noise = 0.01;
        const BeamEstimate known = leastSquaresGaussian(profile);
        const double chi = known.quality.reducedChiSquare;
        QVERIFY(chi > 0.4 && chi < 1.8);
        // The residuals tell the noise that makes the reduced chi square 1.
        QVERIFY(std::abs(fit.position.error / (known.position.error * std::sqrt(chi)) - 1) < 1e-6);
    }

    //! ISO 11146: the background of the corners is subtracted, and charge far away does not count.
    void theSecondMomentLeavesOutWhatIsFarAway()
    {
        const auto beam = CellCharges::gaussian(-40, 3);
        const auto far = CellCharges::gaussian(30, 1, 0.02);
        const BeamProfile profile =
            CellCharges::strips(128, 1, [&](double x) { return 0.3 + beam(x) + far(x); });
        const BeamEstimate found = secondMomentWidth(profile);
        QVERIFY(found.isOk() && !found.clipped);
        QVERIFY(std::abs(found.position.value + 40) < 1e-3);
        // Cells of width 1 add 1/12 to the variance.
        QVERIFY(std::abs(found.sigma.value - std::sqrt(9 + 1 / 12.0)) < 1e-3);
        for (const double mean : {4.0, -4.0})
            QVERIFY(secondMomentWidth(CellCharges::strips(32, 1, CellCharges::gaussian(mean, 3)))
                        .clipped);
        // A twentieth of the cells at each end is the background, so that two bad ones do not matter.
        BeamProfile rough = profile;
        for (int end : {0, 1, 126, 127})
            rough.readings[end] += 0.01;
        QVERIFY(std::abs(secondMomentWidth(rough).sigma.value - found.sigma.value) < 1e-3);
    }

    void limitsThatAreMetExactly()
    {
        CentreOfGravityOptions half;
        half.thresholdFraction = 0.5; // what is at the threshold does not count
        QCOMPARE(centreOfGravity(BeamProfile::uniform({0, 2, 4, 3}), half).position.value,
                 17.0 / 7);
        QCOMPARE(int(centreOfGravity(BeamProfile::uniform({-5, 0, 0, 6})).status),
                 int(EstimateStatus::PeakOnEdge));
        BeamProfile unequal = BeamProfile::uniform({1, 2, 4, 2, 1});
        unequal.positions[4] += 0.1;
        LogParabolaOptions options;
        options.thresholdFraction = 0.5; // what is at the threshold belongs to the run
        QVERIFY(logParabolaGaussian(unequal, options).isOk());
        options.halfWidth = 1;
        QVERIFY(logParabolaGaussian(unequal, options).isOk());
        BeamProfile wide = BeamProfile::uniform({1, 2, 3}, 2, 10);
        QVERIFY(wide.isUniform() && wide.lowerEdge() == 9.0 && wide.upperEdge() == 15.0);
        wide.widths[1] = 1;
        QVERIFY(!wide.isUniform());
        // A neighbour without charge has the logarithm of 1e-20.
        const double left = std::log(1e-20), right = std::log(0.5);
        const double shift = (left - right) / (2 * (left + right));
        QVERIFY(std::abs(threePointGaussian(BeamProfile::uniform({0, 0, 1, 0.5, 0})).position.value
                         - 2 - shift)
                < 1e-9);
    }

    void flatFields_data()
    {
        columns<double, double>("blur", "tilt");
        QTest::newRow("sharp") << 1.5 << 0.0;
        QTest::newRow("soft") << 4.0 << 0.0;
        QTest::newRow("tilted") << 1.5 << 0.1;
    }
    //! An edge blurred by a Gaussian falls from 80 % to 20 % within 2 x 0.84162 of its sigma.
    void flatFields()
    {
        QFETCH(double, blur);
        QFETCH(double, tilt);
        const BeamProfile profile = CellCharges::strips(160, 0.5, [=](double x) {
            const double edges =
                (std::erf((x + 25) / blur / M_SQRT2) - std::erf((x - 15) / blur / M_SQRT2)) / 2;
            return edges * (1 + tilt * (x + 5) / 20);
        });
        const FlatField field = flatField(profile);
        QCOMPARE(int(field.status), int(EstimateStatus::Ok));
        QVERIFY(std::abs(field.size.value - 40) < 0.15 + tilt);
        QVERIFY(std::abs(field.centre.value + 5) < 0.05 + 2 * tilt);
        QVERIFY(std::abs(field.lowerPenumbra.value - 2 * 0.84162 * blur) < 0.1 + 4 * tilt);
        QVERIFY(std::abs(field.upperPenumbra.value - 2 * 0.84162 * blur) < 0.1 + 4 * tilt);
        // A tilt of 10 % at the edge is 8 % at the end of the central 80 %.
        const double ofBlur = blur > 2 ? 0.1 : 0.005;
        QVERIFY(std::abs(field.flatness.value - 0.8 * tilt) < ofBlur);
        QVERIFY(std::abs(field.symmetry.value - 2 * 0.8 * tilt) < 0.02);
        QVERIFY(field.isFlatTopped());
    }
    void fieldsWithoutEdgesOrPlateau()
    {
        const FlatField all = flatField(CellCharges::strips(32, 2, [](double) { return 3.0; }));
        QCOMPARE(int(all.status), int(EstimateStatus::PeakOnEdge));
        QVERIFY(all.flatness.value < 1e-9 && std::isnan(all.size.value));
        const BeamProfile beam = CellCharges::strips(64, 1, CellCharges::gaussian(0, 6));
        QVERIFY(!flatField(beam).isFlatTopped());
    }

    //! A histogram says of a beam on wires what it says of one on numbered strips.
    void aFitSaysWhatTheEstimateSays()
    {
        const auto statusOf = [](int wires, const CellCharges::Density &density) {
            const QVector<double> places = Profiles::unequalWires.mid(0, wires);
            return int(
                fitStatusOf(threePointGaussian(CellCharges::touching(places, density)).status));
        };
        QCOMPARE(statusOf(16, CellCharges::gaussian(1, 6)), int(FitStatus::Ok));
        QCOMPARE(statusOf(16, CellCharges::gaussian(-40, 6)), int(FitStatus::PeakOnEdge));
        QCOMPARE(statusOf(2, CellCharges::gaussian(-24, 6)), int(FitStatus::NotEnoughChannels));
        QCOMPARE(statusOf(16, [](double) { return 0.0; }), int(FitStatus::SignalBelowThreshold));
    }

    void hotCellsStandAlone()
    {
        BeamProfile profile = CellCharges::strips(32, 2, CellCharges::gaussian(3, 1.2));
        CellCharges::addNoise(profile, 0.005);
        flagHotCells(profile);
        QVERIFY(profile.flags.isEmpty());
        profile.readings[28] = 0.3;
        flagHotCells(profile);
        QVERIFY(profile.has(28, CellFlag::Hot));
        QCOMPARE(profile.flags.count(CellFlag::Hot), 1);
        QVERIFY(std::abs(profile.withoutHoles().readings[28]) < 0.02);
        // A dead neighbour says nothing, and a single one too little.
        profile.readings[27] = 10;
        profile.flags.fill(CellFlags());
        profile.setFlag(27, CellFlag::Dead);
        flagHotCells(profile);
        QVERIFY(profile.has(28, CellFlag::Hot));
        BeamProfile pair = BeamProfile::uniform({0, 5});
        flagHotCells(pair);
        QVERIFY(pair.flags.isEmpty());
        // On cells of 2 mm, a noise of 0.01 is one of 0.005 in the density; hot is what has eight of it.
        for (const auto &[reading, isHot] : {std::pair(0.07, false), {0.1, true}}) {
            BeamProfile dark = CellCharges::strips(32, 2, [](double) { return 0.0; });
            dark.noise = 0.01;
            dark.readings[9] = reading;
            flagHotCells(dark);
            QCOMPARE(dark.has(9, CellFlag::Hot), isHot);
        }
        // Where readings are suppressed, no noise is known: a small step at the foot of a flank makes no hot cell.
        for (const auto &[reading, isHot] : {std::pair(2.5, false), {5.0, true}}) {
            QVector<double> readings(30, 0.0);
            const double beam[] = {2, 5, 9, 9, 6, 3, 2, reading};
            std::copy(std::begin(beam), std::end(beam), readings.begin() + 6);
            BeamProfile suppressed = BeamProfile::uniform(readings);
            flagHotCells(suppressed);
            QCOMPARE(suppressed.has(13, CellFlag::Hot), isHot);
        }

        std::vector<double> matrix;
        for (int row = 0; row < 64; ++row) {
            for (int column = 0; column < 64; ++column)
                matrix.push_back(CellCharges::gaussian(30, 2)(column)
                                 * CellCharges::gaussian(20, 1)(row));
        }
        QVERIFY(hotCells(matrix.data(), 64, 64).empty());
        matrix[64 * 63 + 63] = 0.5;
        matrix[64 * 40 + 7] = 0.5;
        QCOMPARE(hotCells(matrix.data(), 64, 64), (std::vector<int>{64 * 40 + 7, 64 * 63 + 63}));
    }

    //! Beams of any width and place, with noise of readings and of gains; none of their cells is hot.
    void beamsHaveNoHotCells()
    {
        std::mt19937 generator(11);
        const auto between = [&](double low, double high) {
            return low + (high - low) * generator() / 4294967296.0;
        };
        constexpr int trials = 250;
        for (int trial = 0; trial < trials; ++trial) {
            const int strips = trial % 2 ? 32 : 128;
            const double sigma = between(0.7, 12), mean = between(-strips / 2.0, strips / 2.0);
            const double noise = std::pow(10, between(-4, -1)), ofGain = between(0, 0.03);
            BeamProfile profile =
                CellCharges::strips(strips, 1, CellCharges::gaussian(mean, sigma));
            for (double &reading : profile.readings)
                reading *= 1 + between(-2, 2) * ofGain;
            CellCharges::addNoise(profile, noise, unsigned(trial + 1));
            flagHotCells(profile);
            const QString beam =
                QString("sigma %1, mean %2, noise %3").arg(sigma).arg(mean).arg(noise);
            QVERIFY2(profile.flags.isEmpty(), qPrintable(beam));
        }
        constexpr int side = 32, matrices = 20;
        for (int trial = 0; trial < matrices; ++trial) {
            const double sigma = between(0.7, 8), tilt = between(-0.7, 0.7);
            const double x = between(0, side), y = between(0, side);
            std::vector<double> cells;
            for (int cell = 0; cell < side * side; ++cell) {
                const int column = cell % side, row = cell / side;
                const double u = (column - x) / sigma, v = (row - y) / sigma;
                cells.push_back(std::exp(-0.5 * (u * u + v * v + 2 * tilt * u * v)));
            }
            BeamProfile noisy = BeamProfile::uniform(QVector<double>(cells.begin(), cells.end()));
            CellCharges::addNoise(noisy, std::pow(10, between(-3, -1)), unsigned(trial + 1));
            const std::vector<int> hot = hotCells(noisy.readings.constData(), side, side);
            QVERIFY2(hot.empty(), qPrintable(QString("sigma %1, tilt %2").arg(sigma).arg(tilt)));
        }
    }

    //! One cell reads twice what its higher neighbour does, anywhere from one to four sigmas beside the beam.
    void hotCellsOnAFlankAreFound()
    {
        int found = 0, others = 0, inMatrix = 0;
        constexpr int trials = 62, side = 40;
        for (int trial = 0; trial < trials; ++trial) {
            const double sigma = 1.5 + trial % 7, aside = 1 + 3.0 * (trial % 31) / 31;
            const int cell = 60 + int(std::lround(aside * sigma)) + 1;
            BeamProfile profile = CellCharges::strips(
                128, 1, [&](double x) { return CellCharges::gaussian(60 - 63.5, sigma)(x); });
            CellCharges::addNoise(profile, 0.01, unsigned(trial + 1));
            profile.readings[cell] = 2 * profile.readings[cell - 1] + 0.15;
            flagHotCells(profile);
            found += profile.has(cell, CellFlag::Hot);
            others += profile.flags.count(CellFlag::Hot) - profile.has(cell, CellFlag::Hot);

            std::vector<double> matrix;
            for (int i = 0; i < side * side; ++i) {
                const int column = i % side, row = i / side;
                matrix.push_back(CellCharges::gaussian(15, sigma)(column)
                                 * CellCharges::gaussian(20, 3)(row));
            }
            const int pixel = 20 * side + std::min(15 + cell - 60, side - 3);
            matrix[std::size_t(pixel)] = 2 * matrix[std::size_t(pixel - 1)] + 0.15;
            inMatrix += hotCells(matrix.data(), side, side) == std::vector<int>{pixel};
        }
        QVERIFY2(found > 0.95 * trials, qPrintable(QString::number(found)));
        QCOMPARE(others, 0);
        QCOMPARE(inMatrix, trials);
    }

    //! The beam covers half of the cells, and the estimate is of the noise all the same.
    void noiseIsEstimatedBesideABeam()
    {
        BeamProfile profile = CellCharges::strips(256, 1, CellCharges::gaussian(0, 20));
        CellCharges::addNoise(profile, 0.03);
        QVERIFY(std::abs(estimatedNoise(profile) / 0.03 - 1) < 0.2);
        QCOMPARE(estimatedNoise(BeamProfile::uniform({1, 2, 3, 4})), 0.0);
    }

    void unusableProfilesAreRefused_data() { estimators(); }
    void unusableProfilesAreRefused()
    {
        QFETCH(Estimator, estimate);
        const auto statusOf = [&](const std::function<void(BeamProfile &)> &change) {
            BeamProfile profile = CellCharges::strips(32, 2, CellCharges::gaussian(3, 4));
            change(profile);
            const BeamEstimate found = estimate(profile);
            const FlatField field = flatField(profile);
            return found.status == EstimateStatus::NotUsable
                && field.status == EstimateStatus::NotUsable;
        };
        QVERIFY(statusOf([](BeamProfile &p) { p.readings[3] = qQNaN(); }));
        QVERIFY(statusOf([](BeamProfile &p) { p.positions[3] = p.positions[2]; }));
        QVERIFY(statusOf([](BeamProfile &p) { p.scales[3] = 0; }));
        QVERIFY(statusOf([](BeamProfile &p) { p.flags.resize(3); }));
        QVERIFY(!estimate(BeamProfile()).isOk());
        QVERIFY(!estimate(BeamProfile::uniform({5})).isOk());
        for (double level : {0.0, 7.0, -7.0, 1e308})
            for (int count : {2, 3, 4, 5, 32})
                estimate(BeamProfile::uniform(QVector<double>(count, level))); // must end
    }
};

CORVALE_QT_TEST_MAIN(tst_ProfileEstimators)
#include "tst_ProfileEstimators.moc"
