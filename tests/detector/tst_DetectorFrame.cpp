// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/BeamFrame_p.h"
#include "corvale_qt/detector/BeamVerdict.h"
#include "corvale_qt/detector/DetectorFrame.h"
#include "corvale_qt/numerics/CellScreening.h"
#include "corvale_qt/numerics/PixelMoments.h"
#include "corvale_qt/numerics/ProfileEstimators.h"
#include "tests/support/CellCharges.h"
#include "tests/support/RealReadings.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using Axis = DetectorLayout::Axis;
using Change = std::function<void(BeamProfile &)>;

namespace {

DetectorLayout matrix(int rows, int columns, double pitch,
                      const std::function<void(DetectorDescription &)> &change = {})
{
    DetectorDescription description;
    description.kind = DetectorKind::Matrix;
    description.x = DetectorAxis::uniform(columns, pitch, QStringLiteral("mm"));
    description.y = DetectorAxis::uniform(rows, pitch, QStringLiteral("mm"));
    if (change)
        change(description);
    return DetectorLayout::fromDescription(description);
}

//! Samples a Gaussian whose major axis is turned by \a angle.
QVector<double> turnedBeam(const DetectorLayout &layout, QPointF mean, double major, double minor,
                           double angle, double background = 0)
{
    QVector<double> cells;
    for (double y : layout.positions(Axis::Y)) {
        for (double x : layout.positions(Axis::X)) {
            const double u = (x - mean.x()) * std::cos(angle) + (y - mean.y()) * std::sin(angle);
            const double v = (y - mean.y()) * std::cos(angle) - (x - mean.x()) * std::sin(angle);
            cells << background + std::exp(-0.5 * (u * u / major / major + v * v / minor / minor));
        }
    }
    return cells;
}

DetectorFrame frameOf(const DetectorLayout &layout, const QVector<double> &readings)
{
    return DetectorFrame::of(layout, readings.constData(), readings.size());
}

} // namespace

Q_DECLARE_METATYPE(Change)

namespace {

constexpr double kMean = 3;
constexpr double kSigma = 4;

QVector<BeamEstimate> allEstimates(const BeamProfile &profile)
{
    LogParabolaOptions asInTheMonitor;
    asInTheMonitor.thresholdFraction = 0.1;
    asInTheMonitor.halfWidth = 10;
    return {centreOfGravity(profile),
            threePointGaussian(profile),
            logParabolaGaussian(profile, asInTheMonitor),
            leastSquaresGaussian(profile),
            leastSquaresGaussian(profile, FitBackground::Linear),
            halfMaximumWidth(profile),
            secondMomentWidth(profile)};
}

Change density(const CellCharges::Density &density)
{
    return [density](BeamProfile &profile) { profile = CellCharges::strips(32, 2, density); };
}

//! Adds a share of the peak to each reading.
Change pedestal(double share)
{
    return [share](BeamProfile &profile) {
        for (double &reading : profile.readings)
            reading += 2 * share;
    };
}

//! Adds a background that rises from nothing at the first strip to this share of the peak at the last.
Change slope(double share)
{
    return [share](BeamProfile &profile) {
        for (int i = 0; i < profile.count(); ++i)
            profile.readings[i] += 2 * share * i / (profile.count() - 1);
    };
}

Change cell(int index, double reading, bool dead = false)
{
    return [=](BeamProfile &profile) {
        profile.readings[index] = reading;
        if (dead)
            profile.setFlag(index, CellFlag::Dead);
    };
}

Change saturatedAt(double limit, bool known)
{
    return [=](BeamProfile &profile) {
        for (int i = 0; i < profile.count(); ++i) {
            if (known && profile.readings[i] >= limit)
                profile.setFlag(i, CellFlag::Saturated);
            profile.readings[i] = std::min(profile.readings[i], limit);
        }
    };
}

//! A field of 40 mm with blurred edges.
double flat(double x)
{
    return std::erf((x + 20) / 2) - std::erf((x - 20) / 2);
}

void noise(BeamProfile &profile)
{
    CellCharges::addNoise(profile, 0.02);
}

void darkness(BeamProfile &profile)
{
    profile.readings.fill(0);
    noise(profile);
}

double twoBeams(double x)
{
    return CellCharges::gaussian(-12, kSigma)(x) + CellCharges::gaussian(12, kSigma, 0.7)(x);
}

} // namespace

class tst_DetectorFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    //! The preset reads what the profile display reads, in every bit, for beams anywhere and with noise.
    void theStripPairReadsAsTheDisplayDoes()
    {
        for (unsigned seed = 1; seed <= 50; ++seed) {
            std::mt19937 generator(seed);
            FrameReadings readings{};
            for (double &reading : readings)
                reading = generator() % 1000 * 1e-15;
            for (int i = 0; i < 32; ++i) {
                readings[i] += 1e-11 * std::exp(-0.02 * std::pow(i - double(seed % 20) - 5.3, 2));
                readings[64 + i] += 1e-11 * std::exp(-0.03 * std::pow(i - 16.7, 2));
            }
            const BeamFrame shown =
                computeFrame(ProfileLayout::StripPair, readings, FrameOptions());
            const DetectorFrame frame =
                DetectorFrame::of(DetectorLayout::stripPair(), readings.data(), kFrameReadings);
            LogParabolaOptions options;
            options.minimumPeak = RegressionOptions<double>().minimumPeak;
            const BeamEstimate x = logParabolaGaussian(frame.profile(Axis::X), options);
            const BeamEstimate y = logParabolaGaussian(frame.profile(Axis::Y), options);
            QCOMPARE(x.isOk() && y.isOk(), shown.calc.valid);
            QVERIFY(x.position.value == shown.calc.meanX && x.sigma.value == shown.calc.sigmaX);
            QVERIFY(y.position.value == shown.calc.meanY && y.sigma.value == shown.calc.sigmaY);
        }
    }

    void thePixelMatrixReadsAsTheDisplayDoes()
    {
        std::mt19937 generator(3);
        FrameReadings readings{};
        for (double &reading : readings)
            reading = generator() % 1000 * 1e-12;
        const BeamFrame shown = computeFrame(ProfileLayout::PixelMatrix, readings, FrameOptions());
        const DetectorFrame frame =
            DetectorFrame::of(DetectorLayout::pixelMatrix(), readings.data(), kFrameReadings);
        QCOMPARE(frame.values, shown.raster);
        QCOMPARE(frame.leftOut, 8); // two pins of each connector
        const ImageMoments moments = imageMoments(frame.image());
        QVERIFY(std::abs(moments.meanX - shown.calc.meanX) < 1e-12);
        QVERIFY(std::abs(moments.meanY - shown.calc.meanY) < 1e-12);
        QVERIFY(std::abs(moments.sigmaX - shown.calc.sigmaX) < 1e-12);
        QVERIFY(std::abs(moments.sigmaMajor - shown.calc.sigmaMajor) < 1e-12);
        QVERIFY(std::abs(moments.total / shown.calc.integral - 1) < 1e-12);
        QCOMPARE(moments.max, shown.calc.max);
    }

    void calibrationAndFlags()
    {
        DetectorDescription description;
        description.kind = DetectorKind::Strips;
        description.x = DetectorAxis::at({3, 1, 0}, QStringLiteral("mm"));
        description.readings = 5;
        description.wiring = {4, 0, 2};
        description.channels.resize(5);
        description.channels[4] = {QString(), 2.0, 1.0, 9.0, false};
        description.channels[2].dead = true;
        const DetectorFrame frame =
            frameOf(DetectorLayout::fromDescription(description), {5, 100, 6, -3, 9});
        QCOMPARE(frame.values, QVector<double>({4, 5, 0}));
        QCOMPARE(frame.leftOut, 2);
        QCOMPARE(frame.leftOutSum, 97.0);
        const BeamProfile profile = frame.profile(Axis::X);
        QCOMPARE(profile.readings, QVector<double>({0, 5, 4}));
        QVERIFY(profile.has(0, CellFlag::Dead) && profile.has(2, CellFlag::Saturated));
        // The middle strip collects from 0.5 to 2.
        QCOMPARE(profile.positions, QVector<double>({0, 1.25, 3}));
        QCOMPARE(profile.widths, QVector<double>({1, 1.5, 2}));
        QVERIFY(profile.isUsable());
        QVERIFY(frameOf(frame.layout, {1, 2}).profile(Axis::X).has(0, CellFlag::Dead));
        QCOMPARE(frame.profile(Axis::Y).count(), 0);
        QVERIFY(!imageMoments(frame.image()).isOk());
    }

    void flagsAndNoiseOfPlanes()
    {
        DetectorDescription strips;
        strips.kind = DetectorKind::Strips;
        strips.x = DetectorAxis::uniform(2, 1.0, QStringLiteral("mm"));
        strips.y = DetectorAxis::at({0, 1, 4}, QStringLiteral("mm"));
        strips.readings = 7;
        strips.density = true;
        const auto layout = DetectorLayout::fromDescription(strips);
        const DetectorFrame frame = frameOf(layout, {1, 2, 3, qQNaN(), 5, 0, 6});
        QCOMPARE(frame.leftOut, 1); // a reading of 0 is none that is missed
        const BeamProfile y = frame.profile(Axis::Y);
        QVERIFY(y.flags == QVector<CellFlags>({{}, CellFlag::Dead, {}}));
        QCOMPARE(y.positions, QVector<double>({0, 1, 4})); // densities are samples at their places

        const DetectorLayout wide = matrix(2, 8, 0.5, [](DetectorDescription &d) {
            d.noise = 1;
            d.density = true;
            d.y.pitch = 3;
            d.channels.resize(16);
            d.channels[11].saturation = 7;
            d.channels[1].dead = true;
            d.wiring = {0, 1, 2, 3, 4, 5, 6, 7, -1, 9, 10, 11, 12, 13, 14, 15};
        });
        QVector<double> readings(16, 4.0);
        readings[11] = 7; // at its limit
        const DetectorFrame image = frameOf(wide, readings);
        // The dead cell is the mean of its neighbours that are wired; charges are densities times areas.
        QCOMPARE(image.image().charges[1], 4 * 1.5);
        const BeamProfile x = image.profile(Axis::X);
        QCOMPARE(x.noise, std::sqrt(2.0));
        QCOMPARE(image.profile(Axis::Y).noise, std::sqrt(8.0));
        QVERIFY(x.has(3, CellFlag::Saturated) && !x.has(1, CellFlag::Saturated));
        QVERIFY(image.profile(Axis::Y).has(1, CellFlag::Saturated));
    }

    //! +1 mm reads +1 mm, whichever way the rows and columns run.
    void oneMillimetreIsOneMillimetre()
    {
        for (bool reversed : {false, true}) {
            const DetectorLayout layout = matrix(40, 60, 0.5, [=](DetectorDescription &d) {
                d.x.reversed = d.y.reversed = reversed;
                d.y.offset = 10;
            });
            const auto read = [&](double x, double y) {
                const auto frame = frameOf(layout, turnedBeam(layout, {x, y}, 1.5, 1.0, 0.3));
                const ImageMoments moments = imageMoments(frame.image());
                QCOMPARE(std::round(1e5 * moments.meanX) / 1e5, x);
                QCOMPARE(std::round(1e5 * moments.meanY) / 1e5, y);
                const BeamEstimate ofX = leastSquaresGaussian(frame.profile(Axis::X));
                const BeamEstimate ofY = leastSquaresGaussian(frame.profile(Axis::Y));
                QVERIFY(std::abs(ofX.position.value - x) < 1e-5
                        && std::abs(ofY.position.value - y) < 1e-5);
            };
            read(0, 10);
            read(1, 10);
            read(0, 11);
        }
    }

    void turnedBeams_data()
    {
        QTest::addColumn<double>("angle");
        for (int degrees : {-80, -45, 0, 20, 45, 89})
            QTest::addRow("%d degrees", degrees) << degrees * M_PI / 180;
    }
    void turnedBeams()
    {
        QFETCH(double, angle);
        const DetectorLayout layout = matrix(256, 256, 0.5);
        const DetectorFrame frame =
            frameOf(layout, turnedBeam(layout, {7, -11}, 6, 2.5, angle, 0.2));
        const ImageMoments found = secondMomentImage(frame.image());
        QVERIFY(found.isOk() && !found.clipped);
        QVERIFY(std::abs(found.background * 0.25 - 0.2) < 1e-9);
        QVERIFY(std::abs(found.meanX - 7) < 1e-6 && std::abs(found.meanY + 11) < 1e-6);
        QVERIFY(std::abs(found.sigmaMajor - 6) < 1e-3 && std::abs(found.sigmaMinor - 2.5) < 1e-3);
        QVERIFY(std::abs(found.rotation - angle) < 1e-3);
        // Without the background the moments are those of the whole detector.
        QVERIFY(imageMoments(frame.image()).sigmaX > 30);
    }

    void aDeadCellOfAMatrixIsInterpolated()
    {
        const DetectorLayout layout = matrix(32, 32, 1, [](DetectorDescription &d) {
            d.channels.resize(32 * 32);
            d.channels[16 * 32 + 20].dead = true;
        });
        QVector<double> readings = turnedBeam(layout, {2, 0}, 4, 3, 0);
        readings[16 * 32 + 20] = 1e6;
        const ImageMoments moments = imageMoments(frameOf(layout, readings).image());
        QVERIFY(std::abs(moments.meanX - 2) < 0.01 && std::abs(moments.sigmaX - 4) < 0.02);
        readings.fill(qInf());
        QVERIFY(!imageMoments(frameOf(layout, readings).image()).isOk());
    }

    //! Centroids and widths of real frames, computed by another program (in cells, from 1).
    void realFrames()
    {
        const auto frames = realReadings("lcls-otr-frames/pixels_12x12.csv");
        const auto reference = realReadings("lcls-otr-frames/pixels_reference.csv");
        if (frames.isEmpty())
            QSKIP("There are no real readings in CORVALE_QT_DATA_DIR.");
        DetectorDescription description;
        description.kind = DetectorKind::Matrix;
        description.x = description.y = DetectorAxis::counted(12);
        const DetectorLayout layout = DetectorLayout::fromDescription(description);
        for (int frame = 1; frame < frames.size(); ++frame) {
            QVector<double> readings;
            for (const QString &field : frames[frame].mid(2))
                readings << field.toDouble();
            const ImageMoments found = imageMoments(frameOf(layout, readings).image());
            const QStringList &expected = reference[frame];
            QCOMPARE(found.total, expected[1].toDouble());
            QVERIFY(std::abs(found.meanX - expected[5].toDouble()) < 1e-6);
            QVERIFY(std::abs(found.meanY - expected[6].toDouble()) < 1e-6);
            QVERIFY(std::abs(found.sigmaX - expected[7].toDouble()) < 1e-6);
            QVERIFY(std::abs(found.sigmaY - expected[8].toDouble()) < 1e-6);
        }
    }

    /*! A beam of 3 mm and sigma 4 mm on 32 strips of 2 mm, charge 2 in the fullest strip, and what goes wrong with it. The
        columns are, for each estimator, V for valid, P for a poor fit and - for not valid, and words of a reason. */
    void whatGoesWrongIsTold_data()
    {
        columns<Change, double>("change", "mean");
        QTest::addColumn<QString>(
            "verdicts"); // centre of gravity, three points, regression, fit, fit with slope, FWHM, D4sigma
        QTest::addColumn<QString>("reason"); // of the first that is not valid
        const auto row = [](const char *name, const Change &change, const char *verdicts,
                            const char *reason, double mean = kMean) {
            QTest::newRow(name) << change << mean << verdicts << reason;
        };
        const auto ofBeamAt = [](double mean) {
            return density(CellCharges::gaussian(mean, kSigma));
        };
        const auto even = [](double) { return 1.0; };
        row("nothing", ofBeamAt(kMean), "VVVVVVV", "");
        row("noise", noise, "VVVVVVV", "");
        row("pedestal of 5 %", pedestal(0.05), "PPPVVVV", "the residuals are 17 % of the peak");
        row("pedestal of 20 %", pedestal(0.2), "PPPVVVV", "the residuals are 17 % of the peak");
        row("background rising to 10 %", slope(0.1), "PPPVVVP", "the residuals are");
        row("background rising to 40 %", slope(0.4), "PPPPVP-", "the residuals are");
        row("hot strip beside the beam", cell(3, 6), "PPPPPPP", "37 % of the charge lies in");
        row("hot strip on the flank", cell(14, 6), "PPPPPPP", "39 % of the charge lies in");
        row("half too much at the top", cell(17, 3), "PPPPPPP",
            "the residuals are 8.3 % of the peak");
        row("dead strip at the peak", cell(17, 0, true), "PPPPPPP", "18 % of the charge lies in");
        row("dead strip that nobody named", cell(17, 0), "-------", "the residuals are");
        const char *const flatTopped = "no Gaussian: the beam is flat-topped";
        row("saturated", saturatedAt(1, true), "P-PPPPP", flatTopped);
        row("saturated, limit not stated", saturatedAt(1, false), "P-PPPPP", flatTopped);
        row("at the edge", ofBeamAt(30), "-VVVV--", "the residuals are 20 % of the peak", 30);
        row("beyond the edge", ofBeamAt(36), "-------", "the residuals are 23 % of the peak", 36);
        row("flat field", density(flat), "-------", flatTopped, 0);
        row("flat all over", density(even), "-------", "no peak above 5 times the noise", 0);
        row("dark", darkness, "-------", "no peak above 5 times the noise", 0);
        row("two beams", density(twoBeams), "-------", "the residuals are 29 % of the peak", 0);
    }
    void whatGoesWrongIsTold()
    {
        QFETCH(Change, change);
        BeamProfile profile = CellCharges::strips(32, 2, CellCharges::gaussian(kMean, kSigma));
        change(profile);
        flagHotCells(profile);
        QString verdicts, told = QStringLiteral("| %1").arg(QTest::currentDataTag());
        QStringList reasons;
        for (const BeamEstimate &estimate : allEstimates(profile)) {
            const BeamVerdict verdict = judgeEstimate(profile, estimate);
            verdicts += QStringLiteral("VP-").at(int(verdict.validity));
            const double bias = estimate.position.value - cell<double>("mean");
            const double ratio = estimate.sigma.value / kSigma;
            told += estimate.isOk() ? QStringLiteral(" | %1 / %2 %3")
                                          .arg(bias + 0.0, 0, 'f', 2)
                                          .arg(ratio, 0, 'f', 2)
                                          .arg(verdicts.right(1))
                                    : QStringLiteral(" | none");
            if (verdict.validity != BeamValidity::Valid && reasons.isEmpty())
                reasons = verdict.reasons;
            // What is said to be valid is the truth.
            if (verdict.validity == BeamValidity::Valid)
                QVERIFY2(std::abs(bias) < 0.1 * kSigma && std::abs(ratio - 1) < 0.1,
                         qPrintable(told));
        }
        qInfo("%s |", qPrintable(told));
        QTEST(verdicts, "verdicts");
        QFETCH(QString, reason);
        QVERIFY2(reasons.join("; ").contains(reason), qPrintable(reasons.join("; ")));
        QCOMPARE(reasons.isEmpty(), reason.isEmpty());
    }

    void numbersBesideTheVerdict()
    {
        BeamProfile profile = CellCharges::strips(32, 2, CellCharges::gaussian(30, 4));
        profile.setFlag(2, CellFlag::Dead);
        profile.setFlag(5, CellFlag::Saturated);
        profile.noise = 0.01;
        const BeamVerdict verdict = judgeEstimate(profile, leastSquaresGaussian(profile));
        QCOMPARE(verdict.text(), QString("DATA VALID"));
        QVERIFY(verdict.atEdge);
        // The edge is half a sigma away: 30.85 % of a Gaussian lie beyond.
        QVERIFY(std::abs(verdict.shareOutside - 0.3085) < 1e-3);
        QCOMPARE(verdict.notes.join("; "),
                 QString("the beam is at the edge of the detector; 31 % of the charge lies outside "
                         "of the detector"));
        QVERIFY(std::abs(verdict.peakInNoise - 193) < 3);
        QCOMPARE(verdict.deadCells, 1);
        QCOMPARE(verdict.saturatedCells, 1);
        const BeamProfile lower = CellCharges::strips(32, 2, CellCharges::gaussian(-30, 4));
        QVERIFY(judgeEstimate(lower, leastSquaresGaussian(lower)).atEdge);
        // The baseline of the peak is what a tenth of the cells lie below, so that a wide beam is a peak, too.
        BeamProfile broad = CellCharges::strips(32, 2, CellCharges::gaussian(0, 20));
        broad.noise = 0.01;
        QVERIFY(judgeEstimate(broad, leastSquaresGaussian(broad)).peakInNoise > 120);
    }

    //! With a threshold, a pedestal changes so little that the residuals do not show it; the ends of the profile do.
    void aPedestalIsTold()
    {
        BeamProfile profile = CellCharges::strips(32, 2, CellCharges::gaussian(kMean, 6));
        pedestal(0.05)(profile);
        LogParabolaOptions options;
        const BeamVerdict plain = judgeEstimate(profile, logParabolaGaussian(profile, options));
        QCOMPARE(plain.text(), QString("DATA VALID, FIT POOR"));
        options.thresholdFraction = 0.1;
        options.halfWidth = 10;
        const BeamVerdict cut = judgeEstimate(profile, logParabolaGaussian(profile, options));
        QCOMPARE(cut.text(), QString("DATA VALID, FIT POOR"));
        QVERIFY2(cut.reasons.join("; ").contains("% of the peak is not subtracted, and widens"),
                 qPrintable(cut.reasons.join("; ")));
        VerdictLimits patient;
        patient.background = 0.1;
        QCOMPARE(judgeEstimate(profile, logParabolaGaussian(profile, options), patient).text(),
                 QString("DATA VALID"));
        QCOMPARE(judgeEstimate(profile, leastSquaresGaussian(profile)).notes, QStringList());
    }

    //! Wide guard cells at the ends have little noise in their density, the strips between them have much.
    void theNoiseOfNarrowCellsIsNoBackground()
    {
        int told = 0;
        constexpr int trials = 200;
        for (int trial = 0; trial < trials; ++trial) {
            BeamProfile profile = CellCharges::strips(32, 2, CellCharges::gaussian(kMean, 6));
            for (const int guard : {0, 31}) {
                profile.widths[guard] = profile.intervals[guard] = profile.scales[guard] = 40;
                profile.positions[guard] += guard == 0 ? -19 : 19;
            }
            profile.noise = 0.1;
            CellCharges::addNoise(profile, profile.noise, unsigned(trial + 1));
            LogParabolaOptions options;
            options.thresholdFraction = 0.3;
            told += judgeEstimate(profile, logParabolaGaussian(profile, options))
                        .reasons.join(' ')
                        .contains("a background of");
        }
        QVERIFY2(told <= trials / 50, qPrintable(QString::number(told)));
    }

    //! Among suppressed zeros, a lone cell is a hot one or a very narrow beam: neither is claimed. Two cells are a beam.
    void aLoneCellAmongZerosIsNoBeam()
    {
        const QString told = "all other cells read 0: hot, or a beam narrower than a cell";
        for (const bool alone : {true, false}) {
            BeamProfile profile = CellCharges::strips(32, 2, [](double) { return 0.0; });
            profile.readings[12] = 80;
            profile.readings[13] = alone ? 0 : 40;
            flagHotCells(profile);
            const BeamVerdict verdict = judgeEstimate(profile, centreOfGravity(profile));
            QCOMPARE(verdict.reasons.contains(told), alone);
            QCOMPARE(verdict.hotCells, int(alone));
            QCOMPARE(verdict.validity == BeamValidity::NotValid, alone);
        }
        // In a matrix, two cells of one row are a beam along x, but their row is alone.
        DetectorDescription described;
        described.kind = DetectorKind::Matrix;
        described.x = described.y = DetectorAxis::counted(12);
        described.readings = 144;
        for (const bool alone : {true, false}) {
            std::vector<double> readings(144, 0.0);
            readings[66] = 80;
            readings[67] = alone ? 0 : 60;
            DetectorFrame frame = DetectorFrame::of(DetectorLayout::fromDescription(described),
                                                    readings.data(), int(readings.size()));
            frame.flagHotCellsOfMatrix();
            for (const auto axis : {DetectorLayout::Axis::X, DetectorLayout::Axis::Y}) {
                BeamProfile profile = frame.profile(axis);
                flagHotCells(profile);
                const BeamVerdict verdict = judgeEstimate(profile, centreOfGravity(profile));
                const bool isTold = alone || axis == DetectorLayout::Axis::Y;
                QCOMPARE(verdict.reasons.contains(told), isTold);
                QCOMPARE(verdict.validity == BeamValidity::NotValid, isTold);
            }
        }
    }

    void limitsCanBeSet()
    {
        BeamProfile profile = CellCharges::strips(32, 2, CellCharges::gaussian(3, 4));
        profile.noise = 0.1;
        const BeamEstimate estimate = leastSquaresGaussian(profile);
        VerdictLimits limits;
        limits.peakInNoise = 25;
        QCOMPARE(judgeEstimate(profile, estimate, limits).text(), QString("DATA NOT VALID"));
        limits = {};
        limits.widestSigma = 0.05;
        QCOMPARE(judgeEstimate(profile, estimate, limits).reasons,
                 QStringList("sigma does not fit on the detector"));
        // A limit of 0 refuses the least of what it limits, but nothing that is not there.
        limits = {};
        limits.background = limits.flaggedShare = 0;
        QCOMPARE(judgeEstimate(profile, estimate, limits).reasons, QStringList());
        profile.setFlag(17, CellFlag::Saturated);
        QCOMPARE(judgeEstimate(profile, estimate, limits).validity, BeamValidity::FitPoor);
        profile.readings[3] = qInf();
        QCOMPARE(judgeEstimate(profile, estimate).reasons,
                 QStringList("the readings or their positions are not usable"));
    }
};

CORVALE_QT_TEST_MAIN(tst_DetectorFrame)
#include "tst_DetectorFrame.moc"
