// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/beam/profile/BeamDisplay.h"
#include "tests/support/RunningTimers.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

//! Prints the numbers of a calculation, rounded to thousandths of a millimetre.
QString numbers(const SpectrogramCalc &calc)
{
    QStringList texts{calc.valid ? "valid:" : "not valid:"};
    for (double number : {calc.meanX, calc.meanY, calc.sigmaX, calc.sigmaY, calc.sigmaMajor,
                          calc.sigmaMinor, calc.elongation, calc.rotation})
        texts << QString::number(std::round(1000 * number) / 1000 + 0.0);
    return texts.join(' ');
}

} // namespace

//! The numbers of a frame, as they are calculated and as the side bar shows them.
class tst_RVXSpectrogram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stripProfiles_data()
    {
        columns<double, double, double, double>("x", "sigmaX", "y", "sigmaY"); // in strips
        columns<double, QString>("height", "shown"); // means, sigmas, axes, elongation, rotation
        row("middle", 15.5, 3.0, 15.5, 2.0, 1e-9, "0 0 6 4 6 4 0.667 0");
        row("right and up", 22.3, 2.5, 20.9, 3.5, 4e-12, "13.6 10.8 5 7 7 5 1.4 0");
        row("left and down, counts", 8.1, 1.25, 9.4, 5.0, 3e4, "-14.8 -12.2 2.5 10 10 2.5 4 0");
        row("narrow", 10.2, 0.6, 21.7, 0.75, 1e-9, "-10.6 12.4 1.2 1.5 1.5 1.2 1.25 0");
    }
    void stripProfiles()
    {
        QFETCH(double, sigmaX);
        QFETCH(double, y);
        QFETCH(double, sigmaY);
        QFETCH(double, height);
        BeamDisplay display(Detector::Strips);
        QVector<double> frame = Frames::strips(cell<double>("x"), sigmaX, y, sigmaY, height);
        const double sum = std::accumulate(frame.begin(), frame.end(), 0.0);
        for (int i = 32; i < 64; ++i)
            frame[i] = frame[i + 64] = 7 * height; // readings without a strip change nothing
        const SpectrogramCalc calc = display.feed(frame);
        QCOMPARE(numbers(calc), "valid: " + cell("shown"));
        QVERIFY(near(calc.integral / sum, 1, 1e-9));
        // The raster spreads the integral over the picture. Its peak is that of a Gaussian of this area, or a little
        // lower because the nearest cell's centre lies beside it.
        const double ofPeak = calc.max / (calc.integral / (2 * M_PI * sigmaX * sigmaY));
        QVERIFY(ofPeak < 1.02);
        QVERIFY(ofPeak > std::exp(-0.125 / sigmaX / sigmaX - 0.125 / sigmaY / sigmaY) - 1e-6);
    }

    void pixelBeamsMoveTheRightWay()
    {
        BeamDisplay display(Detector::Pixels);
        for (const QPointF &place : {QPointF(-5, 4), QPointF(3, -7)}) {
            const SpectrogramCalc calc =
                display.feed(Frames::pixels(place.x(), place.y(), 3.5, 3, 0));
            QVERIFY(calc.valid && near(calc.meanX, place.x(), 0.02));
            QVERIFY(near(calc.meanY, place.y(), 0.02));
            QVERIFY(near(calc.sigmaX, 3.5, 0.05) && near(calc.sigmaY, 3, 0.05));
        }
        const SpectrogramCalc turned = display.feed(Frames::pixels(1, -2, 6, 3, 30));
        QVERIFY(near(turned.rotation, 30, 0.5) && near(turned.elongation, 2, 0.1));
        QVERIFY(near(turned.sigmaMajor, 6, 0.1) && near(turned.sigmaMinor, 3, 0.1));
        QVERIFY(near(turned.max, 1e-9, 2e-10));
    }

    void theTimerRestsWhileNoFrameComes()
    {
        BeamDisplay display(Detector::Strips);
        for (int i = 0; i < 2; ++i) {
            display.tick();
            display.tick();
            QCOMPARE(runningTimers(display.widget), 0);
            display.feedBetweenTicks(Frames::strips(0));
            QCOMPARE(runningTimers(display.widget), 1);
        }
    }

    void failedFitsSayWhichAxis()
    {
        BeamDisplay display(Detector::Strips);
        display.feed(Frames::strips(0));
        QCOMPARE(display.validity(), QString("DATA VALID"));
        // Off the lower edge in Y only.
        const SpectrogramCalc calc = display.feed(Frames::strips(20, 3, -4, 3));
        QCOMPARE(numbers(calc), QString("not valid: 9 -10000 6 -10000 -10000 -10000 0 0"));
        QVERIFY(calc.integral > 0 && calc.max == 0);
        QCOMPARE(display.validity(), QString("DATA NOT VALID"));
        QCOMPARE(display.text("doubleSpinBox_meanx"), QString("9.000 mm"));
        const QByteArray boxes = "doubleSpinBox_meany doubleSpinBox_dy doubleSpinBox_major "
                                 "doubleSpinBox_minor doubleSpinBox_rotation "
                                 "doubleSpinBox_elongation integral_QScienceSpinBox "
                                 "max_QScienceSpinBox";
        for (const QByteArray &box : boxes.split(' '))
            QCOMPARE(display.text(box), QString("N/A"));
    }

    void otherReasonsForFailure()
    {
        BeamDisplay display(Detector::Strips);
        QVERIFY(!display.feed(Frames::strips(0, 1e-16)).valid); // the peak is too low
        display.widget.SetRegressionOptions(true, {0.99, 10, 0, 0}, 0);
        QVERIFY(!display.feed(Frames::strips(0)).valid); // a run of one strip
        display.widget.SetRegressionOptions(true, {0.99, 10, 0}, 0); // too few: the defaults
        QVERIFY(display.feed(Frames::strips(0)).valid);

        display.choose(Detector::Pixels);
        QCOMPARE(numbers(display.feed(QVector<double>(128, 0.0))),
                 QString("not valid: -10000 -10000 -10000 -10000 -10000 -10000 0 0"));
        display.box("discriminator_QScienceSpinBox")->setValue(2e-9);
        QVERIFY(!display.feed(Frames::pixels()).valid);
    }

    //! The width that is fitted to a Gaussian core on a wide halo depends on the weight of the halo.
    void fitsFollowTheirOptions()
    {
        QVector<double> frame = Frames::strips(15.2, 1.5, 16.1, 1.5);
        const QVector<double> halo = Frames::strips(15.2, 9, 16.1, 9, 4e-11);
        for (int i = 0; i < frame.size(); ++i)
            frame[i] += halo[i];
        BeamDisplay display(Detector::Strips);
        const auto sigma = [&](double halfWidth, double power) {
            display.widget.SetRegressionOptions(true, {0, halfWidth, 1e-15, 0, power}, 1);
            return display.feed(frame).sigmaX; // the core's is 3 mm
        };
        QVERIFY(sigma(1024, 0) > 8 && sigma(1024, 0) < 18);
        QVERIFY(sigma(1024, 2) > 5 && sigma(1024, 2) < 7.6);
        QVERIFY(sigma(1024, 8) > 3 && sigma(1024, 8) < 3.2);
        QCOMPARE(sigma(1024, 7.5), sigma(1024, 8)); // powers are rounded
        QCOMPARE(sigma(1024, 0.4), sigma(1024, 0));
        QVERIFY(sigma(3, 0) > 3 && sigma(3, 0) < 3.6);
        QCOMPARE(sigma(3.9, 0), sigma(3, 0)); // parts of a strip do not count
    }

    void theRotationBoxTellsAnAxis_data()
    {
        columns<double, bool, bool, double>("degrees", "invertX", "invertY", "shown");
        row("steep, mirrored", 60.0, true, false, -60.0);
        row("steep, mirrored twice", 60.0, true, true, 60.0);
        row("falling steeply", 120.0, false, false, -60.0);
        row("level", 0.0, false, false, 0.0);
        row("upright, mirrored", 90.0, false, true, 90.0);
        row("diagonal", 45.0, false, false, 45.0);
        row("diagonal, mirrored", 45.0, false, true, -45.0);
        row("the other diagonal, mirrored twice", 135.0, true, true, -45.0);
    }
    void theRotationBoxTellsAnAxis()
    {
        QFETCH(double, degrees);
        QFETCH(double, shown);
        BeamDisplay display(Detector::Pixels);
        display.check("checkBox_invertX", cell<bool>("invertX"));
        display.check("checkBox_invertY", cell<bool>("invertY"));
        QVector<double> frame = Frames::pixels(0, 0, 6, 3, degrees);
        const bool isExact = std::fmod(degrees, 45) == 0;
        if (isExact) { // along a row, a column or a diagonal: one pixel and its mirror image
            frame.fill(0);
            const double turn = degrees * M_PI / 180;
            const QPointF step(std::round(1.2 * std::cos(turn)), std::round(1.2 * std::sin(turn)));
            for (int reading = 0; reading < 128; ++reading) {
                const QPointF place = PixelWiring::placeOf(reading) - QPointF(0.5, 0.5);
                if (PixelWiring::isUsed(reading) && (place == step || place == -step))
                    frame[reading] = 1e-9;
            }
        }
        const SpectrogramCalc calc = display.feed(frame);
        const QString box = display.text("doubleSpinBox_rotation");
        QVERIFY2(box.endsWith(" °"), qPrintable(box));
        QVERIFY(near(box.chopped(2).toDouble(), shown, isExact ? 0 : 0.1));
        // calc.rotation is half a turn off, and 0 along a row, a column or a diagonal.
        const double halfATurnOff = shown < 0 ? shown + 180 : shown - 180;
        QVERIFY(near(calc.rotation, isExact ? 0 : halfATurnOff, isExact ? 0 : 0.1));
    }

    void framesWithHoles()
    {
        BeamDisplay display(Detector::Pixels);
        QVector<double> frame = Frames::pixels(2, 2, 4, 4, 0);
        frame[40] = 0;
        const QString withZero = numbers(display.feed(frame));
        frame[40] = std::nan("");
        QCOMPARE(numbers(display.feed(frame)), withZero);
        frame.resize(126); // the last two readings are not wired
        QCOMPARE(numbers(display.feed(frame)), withZero);
        // Strips without any reading are dropped.
        display.choose(Detector::Strips);
        display.feed(Frames::strips(9));
        for (const QVector<double> &dark : {QVector<double>(128, 0.0), QVector<double>()}) {
            QTest::ignoreMessage(QtDebugMsg, "2D incoming data is all 0");
            display.feed(dark);
            QCOMPARE(qRound(display.widget.getCalc().meanX), 9);
        }
    }

    void invertingMirrorsTheNumbersAtOnce()
    {
        BeamDisplay display(Detector::Pixels);
        const QVector<double> frame = Frames::pixels(4, 3, 6, 3, 30);
        SpectrogramCalc plain = display.feed(frame);
        const QString meanX = QString::number(-plain.meanX, 'f', 3) + " mm";
        display.check("checkBox_invertX", true);
        plain.meanX = -plain.meanX;
        plain.rotation = -plain.rotation;
        QCOMPARE(numbers(display.widget.getCalc()), numbers(plain));
        QCOMPARE(display.text("doubleSpinBox_meanx"), meanX);
        display.check("checkBox_invertY", true);
        plain.meanY = -plain.meanY;
        plain.rotation = -plain.rotation;
        QCOMPARE(numbers(display.feed(frame)), numbers(plain));
        QVERIFY(display.widget.getXinverted() && display.widget.getYinverted());
        display.choose(Detector::Strips);
        QCOMPARE(numbers(display.feed(Frames::strips(20, 2, 25, 3))),
                 QString("valid: -9 -19 4 6 6 4 1.5 0"));
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXSpectrogram)
#include "tst_RVXSpectrogram.moc"
