// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/PixelMoments.h"
#include "tests/beam/profile/Frames.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

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

class tst_PixelMoments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
};

CORVALE_QT_TEST_MAIN(tst_PixelMoments)
#include "tst_PixelMoments.moc"
