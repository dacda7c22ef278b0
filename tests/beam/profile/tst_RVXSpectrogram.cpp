// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/SpectrogramPlot_p.h"
#include "corvale_qt/widgets/QScienceSpinBox.h"
#include "tests/beam/profile/BeamDisplay.h"
#include "tests/support/Profiles.h"
#include "tests/support/TestMain.h"

#include <qwt_plot_picker.h>

#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>

#include <map>
#include <numeric>

using namespace Corvale_Qt;

/*! A beam on the strip pair, in strips. */
struct StripBeam
{
    double x;
    double sigmaX;
    double y;
    double sigmaY;
    double height;
    double offset = 0; //!< share of the height
    double noise = 0; //!< share of each reading
};
Q_DECLARE_METATYPE(StripBeam)

class tst_RVXSpectrogram : public QObject
{
    Q_OBJECT

private:
    static QString text(BeamDisplay &display, const char *box)
    {
        return display.control<QDoubleSpinBox>(box)->text();
    }
    static double colorRange(BeamDisplay &display)
    {
        return display.widget.findChild<SpectrogramPlot *>()
            ->axisInterval(QwtPlot::yRight)
            .maxValue();
    }

private Q_SLOTS:
    void stripProfiles_data()
    {
        QTest::addColumn<StripBeam>("beam");
        QTest::newRow("middle") << StripBeam{15.5, 3, 15.5, 2, 1e-9};
        QTest::newRow("right and up") << StripBeam{22.3, 2.5, 20.9, 3.5, 4e-12};
        QTest::newRow("left and down, counts") << StripBeam{8.1, 1.2, 9.4, 5, 30000};
        QTest::newRow("narrow") << StripBeam{10.2, 0.6, 21.7, 0.7, 1e-9};
        QTest::newRow("on an offset of 1 %") << StripBeam{18, 2, 12, 4, 1e-9, 0.01};
        QTest::newRow("with 1 % noise") << StripBeam{18.4, 3, 12.6, 4, 1e-9, 0, 0.01};
        QTest::newRow("with both") << StripBeam{13.4, 2.2, 19.6, 3, 1e-10, 0.01, 0.01};
    }
    void stripProfiles()
    {
        QFETCH(StripBeam, beam);
        const auto [x, sigmaX, y, sigmaY, height, offset, noise] = beam;
        BeamDisplay display(Detector::Strips);
        // The fit has no offset: a profile with one must be fitted without its tails.
        const double threshold = offset > 0 ? 0.2 : 0.0;
        display.widget.SetRegressionOptions(true, {threshold, 1024, 1e-15, 0, 2}, 1);
        const QVector<double> frame = Frames::strips(x, sigmaX, y, sigmaY, height, offset * height);
        const SpectrogramCalc calc = display.feed(Profiles::withNoise(frame, noise));

        // Without offset and noise the parabola is exact. An offset o of the height widens the fit
        // by about o / (2 threshold) where it counts most; noise moves mean and width by about its
        // share of a sigma.
        const double tolerance = 1e-9 + 3 * noise + 4 * offset;
        QVERIFY(calc.valid);
        QVERIFY(near(calc.meanX, 2 * (x - 15.5), 2 * sigmaX * tolerance));
        QVERIFY(near(calc.meanY, 2 * (y - 15.5), 2 * sigmaY * tolerance));
        QVERIFY(near(calc.sigmaX / (2 * sigmaX), 1, tolerance));
        QVERIFY(near(calc.sigmaY / (2 * sigmaY), 1, tolerance));
        QVERIFY(near(calc.elongation / (sigmaY / sigmaX), 1, 2 * tolerance));
        QCOMPARE(calc.sigmaMajor, std::max(calc.sigmaX, calc.sigmaY));
        QCOMPARE(calc.sigmaMinor, std::min(calc.sigmaX, calc.sigmaY));
        QCOMPARE(calc.rotation, 0.0);
        const double sum = std::accumulate(frame.begin(), frame.end(), 0.0);
        QVERIFY(near(calc.integral / sum, 1, 1e-9 + noise));
        // The raster spreads the integral over the picture. Its peak is that of a Gaussian of this area, or a little
        // lower because the nearest cell's centre lies beside it.
        const double peak = calc.integral / (2 * M_PI * sigmaX * sigmaY);
        QVERIFY(calc.max < 1.02 * (1 + 3 * tolerance) * peak);
        QVERIFY(calc.max > peak * (1 - 3 * tolerance)
                    * std::exp(-0.125 / sigmaX / sigmaX - 0.125 / sigmaY / sigmaY));
    }

    void eachStripHasItsPlace()
    {
        BeamDisplay display(Detector::Strips);
        for (int i = 1; i < 31; ++i) {
            const SpectrogramCalc calc = display.feed(Frames::strips(i, 0.8, 31 - i, 0.8));
            QVERIFY(near(calc.meanX, 2 * (i - 15.5), 1e-6));
            QVERIFY(near(calc.meanY, 2 * (15.5 - i), 1e-6));
        }
        // Readings without a strip change nothing.
        QVector<double> frame = Frames::strips(15, 3, 15, 3);
        const SpectrogramCalc clean = display.feed(frame);
        for (int i = 32; i < 64; ++i)
            frame[i] = frame[i + 64] = 7;
        const SpectrogramCalc calc = display.feed(frame);
        QCOMPARE(calc.integral, clean.integral);
        QCOMPARE(calc.sigmaY, clean.sigmaY);
    }

    void pixelBeamsMoveTheRightWay()
    {
        BeamDisplay display(Detector::Pixels);
        for (const QPointF &place :
             {QPointF(0, 0), QPointF(6, 0), QPointF(0, 6), QPointF(-5, 4), QPointF(3, -7)}) {
            const SpectrogramCalc calc =
                display.feed(Frames::pixels(place.x(), place.y(), 3.5, 3, 0));
            QVERIFY(calc.valid);
            QVERIFY(near(calc.meanX, place.x(), 0.02));
            QVERIFY(near(calc.meanY, place.y(), 0.02));
            QVERIFY(near(calc.sigmaX, 3.5, 0.05));
            QVERIFY(near(calc.sigmaY, 3, 0.05));
        }
        const SpectrogramCalc turned = display.feed(Frames::pixels(1, -2, 6, 3, 30));
        QVERIFY(near(turned.rotation, 30, 0.5));
        QVERIFY(near(turned.sigmaMajor, 6, 0.1));
        QVERIFY(near(turned.sigmaMinor, 3, 0.1));
        QVERIFY(near(turned.elongation, 2, 0.1));
        QVERIFY(near(turned.max, 1e-9, 2e-10));
    }

    void failedFitsSayWhichAxis()
    {
        BeamDisplay display(Detector::Strips);
        display.feed(Frames::strips(15, 3, 15, 3));
        QCOMPARE(display.control<QLabel>("label_valid")->text(), QString("DATA VALID"));

        // Off the lower edge in Y only.
        const SpectrogramCalc calc = display.feed(Frames::strips(20, 3, -4, 3));
        QVERIFY(!calc.valid);
        QVERIFY(near(calc.meanX, 9, 1e-6));
        QVERIFY(near(calc.sigmaX, 6, 1e-6));
        for (double number : {calc.meanY, calc.sigmaY, calc.sigmaMajor, calc.sigmaMinor})
            QCOMPARE(number, -10000.0);
        QVERIFY(calc.elongation == 0 && calc.rotation == 0);
        QVERIFY(calc.integral > 0);
        QCOMPARE(calc.max, 0.0);
        QCOMPARE(display.control<QLabel>("label_valid")->text(), QString("DATA NOT VALID"));
        QCOMPARE(text(display, "doubleSpinBox_meanx"), QString("9.000 mm"));
        for (const char *box : {"doubleSpinBox_meany",
                                "doubleSpinBox_dy",
                                "doubleSpinBox_major",
                                "doubleSpinBox_minor",
                                "doubleSpinBox_rotation",
                                "doubleSpinBox_elongation",
                                "integral_QScienceSpinBox",
                                "max_QScienceSpinBox"})
            QCOMPARE(text(display, box), QString("N/A"));
    }

    void aFailedFitIsNotValidWhateverTheThreshold()
    {
        BeamDisplay display(Detector::Strips);
        display.control<QDoubleSpinBox>("threshold_QScienceSpinBox")->setValue(1e-12);
        display.check("checkBox_threshold", true);
        QVERIFY(display.feed(Frames::strips(15, 3, 15, 3)).valid);
        // A weak frame is hidden, and the old one stays.
        QVERIFY(near(display.feed(Frames::strips(20, 3, 15, 3, 1e-13)).meanX, -1, 1e-6));
        QVERIFY(!display.feed(Frames::strips(-4, 3, -4, 3)).valid);
        QCOMPARE(display.control<QLabel>("label_valid")->text(), QString("DATA NOT VALID"));
        QCOMPARE(text(display, "doubleSpinBox_meanx"), QString("N/A"));
    }

    void otherReasonsForFailure()
    {
        BeamDisplay display(Detector::Strips);
        QVERIFY(!display.feed(Frames::strips(15, 3, 15, 3, 1e-16)).valid); // the peak is too low
        QVERIFY(!display.feed(Frames::strips(15, 3, 15, 3, -1e-9)).valid);
        display.widget.SetRegressionOptions(true, {0.99, 10, 0, 0}, 0);
        QVERIFY(!display.feed(Frames::strips(15, 3, 15, 3)).valid); // a run of one strip
        display.widget.SetRegressionOptions(true,
                                            {0.99, 10, 0},
                                            0); // too few options: the defaults
        QVERIFY(display.feed(Frames::strips(15, 3, 15, 3)).valid);

        display.widget.setPixelated(true);
        const SpectrogramCalc dark = display.feed(QVector<double>(128, 0.0));
        QVERIFY(!dark.valid);
        for (double number :
             {dark.meanX, dark.meanY, dark.sigmaX, dark.sigmaY, dark.sigmaMajor, dark.sigmaMinor})
            QCOMPARE(number, -10000.0);
        display.control<QDoubleSpinBox>("discriminator_QScienceSpinBox")->setValue(2e-9);
        QVERIFY(!display.feed(Frames::pixels(0, 0, 4, 4, 0, 1e-9)).valid);
    }

    //! The width that is fitted to a Gaussian core on a wide halo depends on the weight of the halo.
    void fitsFollowTheirOptions_data()
    {
        QTest::addColumn<double>("halfWidth");
        QTest::addColumn<double>("power");
        QTest::addColumn<QPointF>("sigmas"); // least and most, in strips; the core's is 1.5
        QTest::newRow("equal weights") << 1024.0 << 0.0 << QPointF(4, 9);
        QTest::newRow("weights by square") << 1024.0 << 2.0 << QPointF(2.5, 3.8);
        QTest::newRow("heavy peak") << 1024.0 << 8.0 << QPointF(1.5, 1.6);
        QTest::newRow("half rounds up to the next power") << 1024.0 << 7.5 << QPointF(1.5, 1.6);
        QTest::newRow("less than half rounds down to none") << 1024.0 << 0.4 << QPointF(4, 9);
        QTest::newRow("three strips on each side") << 3.0 << 0.0 << QPointF(1.5, 1.8);
        QTest::newRow("parts of a strip do not count") << 3.9 << 0.0 << QPointF(1.5, 1.8);
    }
    void fitsFollowTheirOptions()
    {
        QFETCH(double, halfWidth);
        QFETCH(double, power);
        QFETCH(QPointF, sigmas);
        QVector<double> frame = Frames::strips(15.2, 1.5, 16.1, 1.5);
        const QVector<double> halo = Frames::strips(15.2, 9, 16.1, 9, 4e-11);
        for (int i = 0; i < frame.size(); ++i)
            frame[i] += halo[i];
        BeamDisplay display(Detector::Strips);
        display.widget.SetRegressionOptions(true, {0, halfWidth, 1e-15, 0, power}, 1);
        const SpectrogramCalc calc = display.feed(frame);
        QVERIFY(calc.valid);
        for (double sigma : {calc.sigmaX / 2, calc.sigmaY / 2})
            QVERIFY2(sigma > sigmas.x() && sigma < sigmas.y(), qPrintable(QString::number(sigma)));
    }

    void theRotationBoxTellsAnAxis_data()
    {
        QTest::addColumn<double>("degrees");
        QTest::addColumn<bool>("invertX");
        QTest::addColumn<bool>("invertY");
        QTest::addColumn<double>("shown");
        QTest::newRow("level") << 0.0 << false << false << 0.0;
        QTest::newRow("steep") << 60.0 << false << false << 60.0;
        QTest::newRow("steep, mirrored") << 60.0 << true << false << -60.0;
        QTest::newRow("steep, mirrored twice") << 60.0 << true << true << 60.0;
        QTest::newRow("falling steeply") << 120.0 << false << false << -60.0;
        QTest::newRow("upright") << 90.0 << false << false << 90.0;
        QTest::newRow("upright, mirrored") << 90.0 << false << true << 90.0;
        QTest::newRow("diagonal") << 45.0 << false << false << 45.0;
        QTest::newRow("diagonal, mirrored") << 45.0 << false << true << -45.0;
        QTest::newRow("the other diagonal") << 135.0 << false << false << -45.0;
        QTest::newRow("the other diagonal, mirrored twice") << 135.0 << true << true << -45.0;
    }
    void theRotationBoxTellsAnAxis()
    {
        QFETCH(double, degrees);
        QFETCH(bool, invertX);
        QFETCH(bool, invertY);
        QFETCH(double, shown);
        BeamDisplay display(Detector::Pixels);
        display.check("checkBox_invertX", invertX);
        display.check("checkBox_invertY", invertY);
        QVector<double> frame = Frames::pixels(0, 0, 6, 3, degrees);
        if (std::fmod(degrees, 45) == 0) {
            // A beam exactly along a row, a column or a diagonal: one pixel and its mirror image.
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
        const QString box = text(display, "doubleSpinBox_rotation");
        QVERIFY2(box.endsWith(" °"), qPrintable(box));
        QVERIFY(near(box.chopped(2).toDouble(), shown, std::fmod(degrees, 45) == 0 ? 0 : 0.1));
        // calc.rotation is half a turn off, and 0 along a row, a column or a diagonal.
        if (std::fmod(degrees, 45) == 0)
            QCOMPARE(calc.rotation, 0.0);
        else
            QVERIFY(near(calc.rotation, shown < 0 ? shown + 180 : shown - 180, 0.1));
    }

    void allZeroStripsAreDropped()
    {
        BeamDisplay display(Detector::Strips);
        const SpectrogramCalc before = display.feed(Frames::strips(15, 3, 15, 3));
        QTest::ignoreMessage(QtDebugMsg, "2D incoming data is all 0");
        QCOMPARE(display.feed(QVector<double>(128, 0.0)).meanX, before.meanX);
        QTest::ignoreMessage(QtDebugMsg, "2D incoming data is all 0");
        QVERIFY(display.feed({}).valid); // the old one
    }

    void nothingCrashesIt()
    {
        const double inf = std::numeric_limits<double>::infinity();
        for (int layout = 0; layout < 3; ++layout) {
            BeamDisplay display;
            display.widget.resize(700, 500);
            if (layout == 1)
                display.widget.setL408(true);
            if (layout == 2)
                display.widget.setPixelated(true);
            for (const QVector<double> &frame : {QVector<double>{},
                                                 QVector<double>(128, inf),
                                                 QVector<double>(128, std::nan("")),
                                                 QVector<double>(5000, 1e308),
                                                 QVector<double>(40, 1e-320),
                                                 Frames::strips(15, 2, 15, 2, 1e307),
                                                 Frames::pixels(0, 0, 4, 4, 0, 1e300),
                                                 Frames::strips(15, 2, 15, 2, 1e-310)}) {
                for (int scale : {0, 1, 14}) {
                    display.widget.setScale(scale);
                    const SpectrogramCalc calc = display.feed(frame);
                    for (double number : {calc.meanX, calc.sigmaMajor, calc.integral, calc.max})
                        QVERIFY(std::isfinite(number));
                    QVERIFY(!display.widget.grab().isNull());
                }
            }
            display.widget.setData(Frames::strips(15, 2, 15, 2), inf);
            display.widget.setData(Frames::strips(15, 2, 15, 2), 1e300);
            QVERIFY(!display.widget.grab().isNull());
        }
    }

    void itMayGoWhileANumberIsTyped()
    {
        QWidget window;
        auto *display = new BeamDisplay;
        display->widget.setParent(&window);
        display->widget.setPixelated(true);
        display->feed(Frames::pixels(0, 0, 4, 4, 0));
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto *box = display->control<QDoubleSpinBox>("discriminator_QScienceSpinBox");
        const QPointer<QWidget> watched(box);
        box->setFocus();
        QTest::keyClicks(box, "5");
        delete display;
        QVERIFY(!watched);
    }

    void aFrameWithAHoleCountsItAsZero()
    {
        BeamDisplay display(Detector::Pixels);
        QVector<double> frame = Frames::pixels(2, 2, 4, 4, 0);
        frame[40] = 0;
        const SpectrogramCalc zero = display.feed(frame);
        frame[40] = std::nan("");
        QCOMPARE(display.feed(frame).meanX, zero.meanX);
        // The last two readings are not wired, so a frame may lack them.
        frame.resize(126);
        QCOMPARE(display.feed(frame).meanX, zero.meanX);
    }

    void withoutALayoutThereIsNoCalculation()
    {
        BeamDisplay display;
        QVERIFY(!display.feed(Frames::strips(15, 3, 15, 3)).valid);
        QCOMPARE(text(display, "doubleSpinBox_meanx"), QString("NaN"));
        display.widget.setL408(true);
        display.widget.setPixelated(false); // changes nothing, because another layout is chosen
        QVERIFY(display.feed(Frames::strips(15, 3, 15, 3)).valid);
        display.widget.setL408(false);
        display.widget.setPixelated(true);
        QCOMPARE(display.control<QLabel>("label_title")->text(), QString("DW7/DW9 Plot"));
        QVERIFY(display.control<QWidget>("discriminator_QScienceSpinBox")->isEnabled());
        QVERIFY(!display.widget.getCalc().valid); // the other detector's numbers are cleared
        display.widget.setL408(true);
        QCOMPARE(display.control<QLabel>("label_title")->text(), QString("LR40-8 Plot"));
        QVERIFY(!display.control<QWidget>("discriminator_QScienceSpinBox")->isEnabled());
    }

    void invertingMirrorsTheNumbersAtOnce()
    {
        BeamDisplay display(Detector::Pixels);
        const QVector<double> frame = Frames::pixels(4, 3, 6, 3, 30);
        const SpectrogramCalc plain = display.feed(frame);
        display.check("checkBox_invertX", true);
        SpectrogramCalc calc = display.widget.getCalc();
        QCOMPARE(calc.meanX, -plain.meanX);
        QCOMPARE(calc.meanY, plain.meanY);
        QCOMPARE(calc.rotation, -plain.rotation);
        QCOMPARE(text(display, "doubleSpinBox_meanx"),
                 QString::number(-plain.meanX, 'f', 3) + " mm");
        display.check("checkBox_invertY", true);
        QVERIFY(display.widget.getXinverted() && display.widget.getYinverted());
        calc = display.feed(frame);
        QCOMPARE(calc.meanX, -plain.meanX);
        QCOMPARE(calc.meanY, -plain.meanY);
        QCOMPARE(calc.rotation, plain.rotation);
        QCOMPARE(calc.sigmaMajor, plain.sigmaMajor);

        display.widget.setL408(true);
        calc = display.feed(Frames::strips(20, 2, 25, 3));
        QVERIFY(near(calc.meanX, -9, 1e-6));
        QVERIFY(near(calc.meanY, -19, 1e-6));
    }

    void currentsAreChargesTimesTheRate()
    {
        BeamDisplay display(Detector::Pixels);
        display.widget.setSampleRate(50);
        display.widget.setRange(1e-6, 1e-8);
        auto *threshold = display.control<QDoubleSpinBox>("threshold_QScienceSpinBox");
        auto *discriminator = display.control<QDoubleSpinBox>("discriminator_QScienceSpinBox");
        threshold->setValue(3e-11);
        discriminator->setValue(2e-12);
        const QVector<double> frame = Frames::pixels(0, 0, 4, 4, 0);
        const SpectrogramCalc charge = display.feed(frame);
        QVERIFY(text(display, "integral_QScienceSpinBox").endsWith(" C"));

        display.widget.currentEnabled(true);
        QVERIFY(display.widget.getCurrentEnabled());
        // The numbers on the screen and the limits have the new unit at once.
        QVERIFY(near(display.widget.getCalc().integral / charge.integral, 50, 1e-9));
        QVERIFY(text(display, "integral_QScienceSpinBox").endsWith(" A"));
        QVERIFY(text(display, "max_QScienceSpinBox").endsWith(" A"));
        QVERIFY(threshold->text().endsWith(" A") && discriminator->text().endsWith(" A"));
        QVERIFY(near(threshold->value(), 1.5e-9, 1e-20));
        QVERIFY(near(display.widget.getDiscriminator(), 1e-10, 1e-20));
        const SpectrogramCalc current = display.feed(frame);
        QVERIFY(near(current.max / charge.max, 50, 1e-9));
        QVERIFY(near(current.meanX, charge.meanX, 1e-9));

        // Repeating the call, or a new range, does not change them again.
        display.widget.currentEnabled(true);
        display.widget.setRange(2e-6, 2e-8);
        QVERIFY(near(threshold->value(), 1.5e-9, 1e-20));
        display.widget.currentEnabled(false);
        QVERIFY(near(threshold->value(), 3e-11, 1e-22));
        QVERIFY(near(discriminator->value(), 2e-12, 1e-23));
        QVERIFY(near(display.feed(frame).max / charge.max, 1, 1e-9));

        // Frames and limits keep their charges through changes of the rate.
        for (int round = 0; round < 20; ++round) {
            display.widget.currentEnabled(true);
            display.feed(frame);
            display.widget.setSampleRate(round % 2 == 0 ? 30 : 700);
            QCOMPARE(threshold->value(), 3e-11 * (round % 2 == 0 ? 30 : 700));
            display.widget.currentEnabled(false);
            QVERIFY(threshold->value() == 3e-11 && discriminator->value() == 2e-12);
        }
        QVERIFY(near(display.widget.getCalc().max / charge.max, 1, 1e-9));
        // A limit that is typed as a current is a charge as well.
        display.widget.currentEnabled(true);
        threshold->setValue(1.4e-9);
        display.widget.currentEnabled(false);
        QVERIFY(near(threshold->value(), 2e-12, 1e-24));
    }

    void theNewestFrameIsShownInTheEnd()
    {
        BeamDisplay display(Detector::Strips);
        display.feed(Frames::strips(15, 3, 15, 3));
        display.feedBetweenTicks(Frames::strips(18, 3, 15, 3));
        QVERIFY(near(display.feedBetweenTicks(Frames::strips(20, 3, 15, 3)).meanX, -1, 1e-6));
        display.tick();
        QTRY_COMPARE(text(display, "doubleSpinBox_meanx"), QString("9.000 mm"));
        // A frame is not shown in another layout than its own.
        display.feedBetweenTicks(Frames::strips(22, 3, 15, 3));
        display.widget.setPixelated(true);
        display.tick();
        QCoreApplication::processEvents();
        QVERIFY(!display.widget.getCalc().valid);
    }

    void repeatedTimeStampsAreIgnored()
    {
        for (bool sidebar : {true, false}) {
            BeamDisplay display;
            display.widget.setL408(true);
            display.widget.sidebarEnabled(sidebar);
            display.feed(Frames::strips(15, 3, 15, 3));
            display.tick();
            display.widget.setData(Frames::strips(20, 3, 15, 3), display.time);
            QVERIFY(near(display.widget.getCalc().meanX, -1, 1e-6));
            display.widget.setData(Frames::strips(20, 3, 15, 3), display.time + 0.001);
            QVERIFY(near(display.widget.getCalc().meanX, 9, 1e-6));
        }
    }

    void timeThatRunsBackwardsIsTold()
    {
        BeamDisplay display(Detector::Strips);
        display.time = 100;
        display.feed(Frames::strips(15, 3, 15, 3));
        QTest::ignoreMessage(
            QtDebugMsg,
            "Incoming timestamp 51 is less than old timestamp 101 so the Pixelated X/Y plot "
            "has been cleared.");
        display.time = 50;
        const SpectrogramCalc calc = display.feed(Frames::strips(20, 3, 15, 3));
        QVERIFY(near(calc.meanX, 9, 1e-6)); // the frame itself is good
    }

    void theThresholdKeepsTheOldResults()
    {
        BeamDisplay display(Detector::Pixels);
        const SpectrogramCalc strong = display.feed(Frames::pixels(4, 0, 4, 4, 0, 1e-9));
        display.control<QDoubleSpinBox>("threshold_QScienceSpinBox")->setValue(5e-10);
        QVERIFY(!display.control<QWidget>("threshold_QScienceSpinBox")->isEnabled());
        display.check("checkBox_threshold", true);
        QVERIFY(display.control<QWidget>("threshold_QScienceSpinBox")->isEnabled());

        const SpectrogramCalc weak = display.feed(Frames::pixels(-4, 0, 4, 4, 0, 1e-10));
        QCOMPARE(weak.meanX, strong.meanX);
        QCOMPARE(weak.max, strong.max);
        // The redraw is still pending: the next good frame needs no tick.
        const SpectrogramCalc good = display.feedBetweenTicks(Frames::pixels(-4, 0, 4, 4, 0, 1e-9));
        QVERIFY(near(good.meanX, -4, 0.05));
        // That frame used up the tick.
        const SpectrogramCalc same = display.feedBetweenTicks(Frames::pixels(0, 0, 4, 4, 0, 1e-9));
        QVERIFY(near(same.meanX, -4, 0.05));
    }

    void theOwnerIsToldWithoutASideBar()
    {
        BeamDisplay display(Detector::Strips);
        QSignalSpy updates(&display.widget, SIGNAL(calcUpdate()));
        display.feed(Frames::strips(15, 3, 15, 3));
        QCOMPARE(updates.size(), 0);
        display.widget.sidebarEnabled(false);
        QVERIFY(display.control<QWidget>("scrollArea_sidebar")->isHidden());
        display.feed(Frames::strips(20, 3, 15, 3));
        display.feedBetweenTicks(Frames::strips(22, 3, 15, 3));
        QCOMPARE(updates.size(), 1);
        QVERIFY(near(display.widget.getCalc().meanX, 9, 1e-6));
        QCOMPARE(text(display, "doubleSpinBox_meanx"), QString("9.000 mm"));
        // The side bar is up to date as soon as it is shown.
        QCOMPARE(text(display, "doubleSpinBox_dx"), QString("6.000 mm"));
        display.feed(Frames::strips(20, 2, 15, 3));
        display.widget.sidebarEnabled(true);
        QCOMPARE(text(display, "doubleSpinBox_dx"), QString("4.000 mm"));
    }

    void disabledItStopsDrawing()
    {
        BeamDisplay display(Detector::Strips);
        display.feed(Frames::strips(15, 3, 15, 3));
        display.widget.setEnabled(false);
        QVERIFY(!display.control<QWidget>("sidebar")->isEnabled());
        QVERIFY(near(display.feed(Frames::strips(20, 3, 15, 3)).meanX, -1, 1e-6));
        display.widget.setEnabled(true);
        QVERIFY(near(display.feedBetweenTicks(Frames::strips(20, 3, 15, 3)).meanX, 9, 1e-6));
    }

    void scalesGoByIndex()
    {
        BeamDisplay display(Detector::Pixels);
        display.widget.setRange(1e-6, 4e-9);
        for (const auto &[entry, fraction] : std::map<QString, double>{{"100%", 1},
                                                                       {"50%", 0.5},
                                                                       {"1%", 0.01},
                                                                       {"0.5%", 0.005},
                                                                       {".01%", 0.0001}}) {
            display.control<QComboBox>("comboBox_scaling")->setCurrentText(entry);
            display.widget.currentEnabled(false);
            QVERIFY2(near(colorRange(display) / (fraction * 4e-9), 1, 1e-9), qPrintable(entry));
            display.widget.currentEnabled(true);
            QVERIFY2(near(colorRange(display) / (fraction * 1e-6), 1, 1e-9), qPrintable(entry));
        }
    }

    void autoFollowsTheFrameAndNormalizeKeepsIt()
    {
        BeamDisplay display(Detector::Pixels);
        display.widget.setRange(1e-6, 4e-9);
        const double first = display.feed(Frames::pixels(0, 0, 4, 4, 0, 1e-9)).max;
        QVERIFY(near(colorRange(display) / first, 1, 1e-9));
        display.widget.setScale(1);
        display.feed(Frames::pixels(0, 0, 4, 4, 0, 2e-9));
        QVERIFY(near(colorRange(display) / first, 1, 1e-9));
        display.widget.setScale(0); // follows the last frame at once
        QVERIFY(near(colorRange(display) / first, 2, 1e-9));
        display.widget.setScale(99);
        QVERIFY(near(colorRange(display) / 4e-9, 1, 1e-9));
        // The fraction that is kept is that of the full scale in force.
        display.widget.setScale(0);
        display.widget.setSampleRate(20);
        display.widget.currentEnabled(true);
        display.widget.setScale(1);
        QVERIFY(near(colorRange(display) / first, 40, 1e-9));
    }

    void aModeWithoutAFullScaleFollowsTheFrame()
    {
        BeamDisplay display(Detector::Pixels);
        display.widget.setRange(0, 4e-9);
        display.widget.setScale(3);
        QVERIFY(near(colorRange(display) / 2e-9, 1, 1e-9));
        const double max = display.feed(Frames::pixels(0, 0, 4, 4, 0, 1e-9)).max;
        QVERIFY(near(colorRange(display) / 2e-9, 1, 1e-9));
        display.widget.setSampleRate(50);
        display.widget.currentEnabled(true);
        QVERIFY(near(colorRange(display) / max, 50, 1e-9));
        display.feed(Frames::pixels(0, 0, 4, 4, 0, 3e-9));
        QVERIFY(near(colorRange(display) / max, 150, 1e-9));
    }

    void theColourBarNeverMixesUnits()
    {
        BeamDisplay display(Detector::Pixels);
        display.widget.setRange(1e-6, 4e-9);
        display.widget.setSampleRate(50);
        const double max = display.feed(Frames::pixels(0, 0, 4, 4, 0, 1e-9)).max;
        // A frame of another layout has no influence.
        display.widget.setL408(true);
        display.widget.currentEnabled(true);
        QVERIFY(near(colorRange(display) / 1e-6, 1, 1e-9));
        for (const char *box : {"threshold_QScienceSpinBox", "discriminator_QScienceSpinBox"})
            QVERIFY(text(display, box).endsWith(" A"));
        // A frame without a maximum has none either.
        display.widget.currentEnabled(false);
        display.widget.setPixelated(true);
        display.feed(Frames::pixels(0, 0, 4, 4, 0, 1e-9));
        display.feed(QVector<double>(128, 0.0));
        display.widget.currentEnabled(true);
        QVERIFY(near(colorRange(display) / max, 50, 1e-9));
    }

    void onlyTheUsersChoiceIsTold()
    {
        BeamDisplay display;
        QSignalSpy changes(&display.widget, SIGNAL(changedYScale(int)));
        display.widget.setScale(5);
        QCOMPARE(changes.size(), 0);
        QTest::keyClick(display.control<QComboBox>("comboBox_scaling"), Qt::Key_Down);
        QCOMPARE(changes.size(), 1);
        QCOMPARE(changes[0][0].toInt(), 6);
    }

    void badSettingsAreRefused()
    {
        BeamDisplay display(Detector::Pixels);
        display.widget.setScale(2);
        display.widget.setRange(1e-6, 4e-9);
        display.widget.setRange(-1, 1);
        display.widget.setRange(1, std::nan(""));
        QVERIFY(near(colorRange(display) / 4e-9, 1, 1e-9));
        display.widget.setSampleRate(0);
        display.widget.setSampleRate(-3);
        display.widget.currentEnabled(true);
        const SpectrogramCalc atRate1 = display.feed(Frames::pixels(0, 0, 4, 4, 0, 1e-9));
        QVERIFY(near(atRate1.max / 1e-9, 1, 0.3));
        QTest::ignoreMessage(QtDebugMsg, "Spectrogram created for head 3");
        display.widget.setName("head 3");
        display.widget.setName(nullptr);
    }

    void theMouseTellsTheChannel()
    {
        BeamDisplay display;
        auto *plot = display.widget.findChild<SpectrogramPlot *>();
        QCOMPARE(plot->hoverText(QPointF(3, 3)), QString("NULL"));
        display.widget.setPixelated(true);
        QCOMPARE(plot->hoverText(QPointF(3, 3)), QString("NULL"));
        QVector<double> frame(128, 0.0);
        frame[0] = 1.23456789e-9; // row 5, column 6
        frame[93] = 2e-10;
        display.feed(frame);
        QCOMPARE(plot->hoverText(QPointF(6.99, 5.01)), QString("Channel 1: 1.23457e-09"));
        QCOMPARE(plot->hoverText(QPointF(3.5, 12.0)), QString("Channel 94: 2e-10")); // on the edge
        QCOMPARE(plot->hoverText(QPointF(0.5, 0.5)), QString("Out of bounds"));

        display.widget.setL408(true);
        QCOMPARE(plot->hoverText(QPointF(3, 3)), QString("NULL"));
        display.feed(Frames::strips(15, 3, 15, 3));
        QVERIFY(plot->hoverText(QPointF(4.5, 20.2)).startsWith("Index [4][20]: "));
        QVERIFY(plot->findChild<QwtPlotPicker *>());
    }

    void ellipseControlsGoTogether()
    {
        BeamDisplay display;
        QVERIFY(display.control<QWidget>("spinBox_sigma")->isEnabled());
        display.check("checkBox_ellipse", false);
        QVERIFY(!display.control<QWidget>("spinBox_sigma")->isEnabled());
        QCOMPARE(display.control<QLabel>("label_valid")->text(), QString("[+ Data Validity]"));
        for (QDoubleSpinBox *box :
             display.control<QWidget>("groupBox_calculations")->findChildren<QDoubleSpinBox *>())
            QCOMPARE(box->text(), QString("NaN"));
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXSpectrogram)
#include "tst_RVXSpectrogram.moc"
