// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/BeamFrame_p.h"
#include "corvale_qt/detector/DetectorFrame.h"
#include "corvale_qt/numerics/PixelMoments.h"
#include "corvale_qt/numerics/ProfileEstimators.h"
#include "tests/support/CellCharges.h"
#include "tests/support/RealReadings.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using Axis = DetectorLayout::Axis;

namespace {

DetectorLayout matrix(int rows,
                      int columns,
                      double pitch,
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
QVector<double> turnedBeam(const DetectorLayout &layout,
                           QPointF mean,
                           double major,
                           double minor,
                           double angle,
                           double background = 0)
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
};

CORVALE_QT_TEST_MAIN(tst_DetectorFrame)
#include "tst_DetectorFrame.moc"
