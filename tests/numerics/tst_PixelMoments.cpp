// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/PixelMoments.h"
#include "tests/support/TestMain.h"

#include <QSet>

#include <cmath>

using namespace Corvale_Qt;

namespace {

using Readings = std::array<double, PixelGrid::readings>;

//! An elongated beam; centre from the middle of the first cell, direction from the columns towards higher rows.
Readings beam(double column, double row, double major, double minor, double direction)
{
    Readings readings{};
    for (int cell = 0; cell < PixelGrid::cells; ++cell) {
        const int reading = PixelGrid::readingOfCell(cell);
        if (reading == PixelGrid::unused)
            continue;
        const double x = cell % PixelGrid::size - column;
        const double y = cell / PixelGrid::size - row;
        const double along = x * std::cos(direction) + y * std::sin(direction);
        const double across = y * std::cos(direction) - x * std::sin(direction);
        readings[reading] =
            std::exp(-0.5 * (along * along / major / major + across * across / minor / minor));
    }
    return readings;
}

//! How far two axes point apart, 0 to 90 degrees.
double apart(double a, double b)
{
    const double turn = std::abs(std::remainder(a - b, M_PI));
    return turn * 180 / M_PI;
}

} // namespace

class tst_PixelMoments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theGridIsAMap()
    {
        QSet<int> seen;
        int empty = 0;
        for (int cell = 0; cell < PixelGrid::cells; ++cell) {
            const int reading = PixelGrid::readingOfCell(cell);
            if (reading == PixelGrid::unused) {
                ++empty;
                continue;
            }
            QVERIFY(reading >= 0 && reading < PixelGrid::readings);
            QVERIFY2(!seen.contains(reading), qPrintable(QString::number(reading)));
            seen << reading;
        }
        QCOMPARE(seen.size(), 120);
        QCOMPARE(empty, 24);
        for (int unused : {30, 31, 62, 63, 94, 95, 126, 127})
            QVERIFY(!seen.contains(unused));
        // Four connectors of 30 readings, one for each quarter of the round area, which is the same
        // upside down and left to right.
        for (int cell = 0; cell < PixelGrid::cells; ++cell) {
            const int row = cell / 12;
            const int column = cell % 12;
            const bool used = PixelGrid::readingOfCell(cell) >= 0;
            QCOMPARE(PixelGrid::readingOfCell(row * 12 + 11 - column) >= 0, used);
            QCOMPARE(PixelGrid::readingOfCell((11 - row) * 12 + column) >= 0, used);
            const int quarter = (row < 6 ? 0 : 2) + (row < 6 ? (column < 6) : (column >= 6));
            if (used)
                QCOMPARE(PixelGrid::readingOfCell(cell) / 32, quarter);
        }
        QCOMPARE(PixelGrid::readingOfCell(-1), -1);
        QCOMPARE(PixelGrid::readingOfCell(144), -1);
    }

    void aBeamIsWhereItIs()
    {
        const PixelMoments moments = computePixelMoments(beam(6.3, 4.8, 1.2, 0.9, 0), 0, 1);
        QVERIFY(moments.valid);
        QVERIFY(std::abs(moments.meanX - 6.8) < 0.01);
        QVERIFY(std::abs(moments.meanY - 5.3) < 0.01);
        QVERIFY(std::abs(moments.sigmaX - 1.2) < 0.01);
        QVERIFY(std::abs(moments.sigmaY - 0.9) < 0.01);
        QVERIFY(std::abs(moments.integral - 2 * M_PI * 1.2 * 0.9) < 0.01);
    }

    void directions()
    {
        for (int degrees = -85; degrees <= 90; degrees += 5) {
            const double direction = degrees * M_PI / 180;
            const PixelMoments moments =
                computePixelMoments(beam(5.5, 5.5, 1.6, 0.8, direction), 0, 2);
            QVERIFY(moments.valid);
            QVERIFY(std::abs(moments.sigmaMajor - 1.6) < 0.02);
            QVERIFY(std::abs(moments.sigmaMinor - 0.8) < 0.02);
            QVERIFY(std::abs(moments.elongation - 2) < 0.06);
            QVERIFY2(apart(moments.axisAngle, direction) < 0.5,
                     qPrintable(QString::number(degrees)));
            // The reported rotation is the same axis, but for the two cases where it stays 0.
            if (moments.rotation != 0)
                QVERIFY2(apart(moments.rotation, direction) < 0.5,
                         qPrintable(QString::number(degrees)));
        }
        // Exactly along a column, and exactly diagonal.
        Readings upright{};
        for (int row = 4; row < 8; ++row)
            upright[PixelGrid::readingOfCell(row * 12 + 5)] = 1;
        PixelMoments moments = computePixelMoments(upright, 0, 1);
        QCOMPARE(moments.rotation, 0.0);
        QVERIFY(apart(moments.axisAngle, M_PI / 2) < 1e-9);
        QCOMPARE(moments.sigmaMinor, 0.25);
        Readings diagonal{};
        for (int i = 3; i < 9; ++i)
            diagonal[PixelGrid::readingOfCell(i * 12 + i)] = 1;
        moments = computePixelMoments(diagonal, 0, 1);
        QCOMPARE(moments.rotation, 0.0);
        QVERIFY(apart(moments.axisAngle, M_PI / 4) < 1e-9);
    }

    void theDiscriminatorTakesTheTails()
    {
        const Readings readings = beam(5.5, 5.5, 2, 2, 0);
        const PixelMoments all = computePixelMoments(readings, 0, 1);
        const PixelMoments core = computePixelMoments(readings, 0.5, 1);
        QCOMPARE(core.max, all.max);
        double above = 0;
        for (double reading : readings)
            above += reading >= 0.5 ? reading : 0;
        QVERIFY(std::abs(core.integral - above) < 1e-12);
        QVERIFY(core.sigmaX < all.sigmaX);
    }

    void nothingToMeasure()
    {
        PixelMoments moments = computePixelMoments(Readings{}, 0, 1);
        QVERIFY(!moments.valid);
        QCOMPARE(moments.meanX, 6.0);
        QCOMPARE(moments.meanY, 6.0);

        moments = computePixelMoments(beam(5.5, 5.5, 2, 2, 0), 0, 3);
        QVERIFY(!moments.valid);
        QCOMPARE(moments.integral, 0.0);

        Readings readings{};
        readings.fill(1e308);
        QVERIFY(!computePixelMoments(readings, 0, 1).valid);
        readings.fill(std::nan(""));
        QVERIFY(!computePixelMoments(readings, 0, 1).valid);
    }
};

CORVALE_QT_TEST_MAIN(tst_PixelMoments)
#include "tst_PixelMoments.moc"
