// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/SpectrogramPlot_p.h"
#include "corvale_qt/widgets/QScienceSpinBox.h"
#include "tests/beam/profile/BeamDisplay.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

#include <qwt_plot_picker.h>

#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>

#include <map>
#include <numeric>

using namespace Corvale_Qt;

namespace {

struct Display : BeamDisplay
{
    using BeamDisplay::BeamDisplay;

    QDoubleSpinBox *box(const char *name) { return control<QDoubleSpinBox>(name); }
    QString text(const char *name) { return box(name)->text(); }
    QString validity() { return control<QLabel>("label_valid")->text(); }
    SpectrogramPlot *plot() { return widget.findChild<SpectrogramPlot *>(); }
    bool colorBarEndsAt(double value)
    {
        return near(plot()->axisInterval(QwtPlot::yRight).maxValue() / value, 1, 1e-9);
    }
    //! Returns the X mean that is shown, in whole millimetres.
    int mean() const { return qRound(widget.getCalc().meanX); }
};

//! Returns a beam on the strips at \a x mm from the middle.
QVector<double> stripBeam(double x, double height = 1e-9)
{
    return Frames::strips(15.5 + x / 2, 3, 15, 3, height);
}

//! Returns a round beam in the middle of the pixels.
QVector<double> pixelBeam(double height = 1e-9)
{
    return Frames::pixels(0, 0, 4, 4, 0, height);
}

//! Prints the numbers of a calculation, rounded to thousandths of a millimetre.
QString numbers(const SpectrogramCalc &calc)
{
    QStringList texts{calc.valid ? "valid:" : "not valid:"};
    for (double number : {calc.meanX,
                          calc.meanY,
                          calc.sigmaX,
                          calc.sigmaY,
                          calc.sigmaMajor,
                          calc.sigmaMinor,
                          calc.elongation,
                          calc.rotation})
        texts << QString::number(std::round(1000 * number) / 1000 + 0.0);
    return texts.join(' ');
}

} // namespace

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
        QFETCH(double, x);
        QFETCH(double, sigmaX);
        QFETCH(double, y);
        QFETCH(double, sigmaY);
        QFETCH(double, height);
        QFETCH(QString, shown);
        Display display(Detector::Strips);
        QVector<double> frame = Frames::strips(x, sigmaX, y, sigmaY, height);
        const double sum = std::accumulate(frame.begin(), frame.end(), 0.0);
        for (int i = 32; i < 64; ++i)
            frame[i] = frame[i + 64] = 7 * height; // readings without a strip change nothing
        const SpectrogramCalc calc = display.feed(frame);
        QCOMPARE(numbers(calc), "valid: " + shown);
        QVERIFY(near(calc.integral / sum, 1, 1e-9));
        // The raster spreads the integral over the picture. Its peak is that of a Gaussian of this area, or a little
        // lower because the nearest cell's centre lies beside it.
        const double ofPeak = calc.max / (calc.integral / (2 * M_PI * sigmaX * sigmaY));
        QVERIFY(ofPeak < 1.02);
        QVERIFY(ofPeak > std::exp(-0.125 / sigmaX / sigmaX - 0.125 / sigmaY / sigmaY) - 1e-6);
    }

    void pixelBeamsMoveTheRightWay()
    {
        Display display(Detector::Pixels);
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

    void failedFitsSayWhichAxis()
    {
        Display display(Detector::Strips);
        display.feed(stripBeam(0));
        QCOMPARE(display.validity(), QString("DATA VALID"));
        // Off the lower edge in Y only.
        const SpectrogramCalc calc = display.feed(Frames::strips(20, 3, -4, 3));
        QCOMPARE(numbers(calc), QString("not valid: 9 -10000 6 -10000 -10000 -10000 0 0"));
        QVERIFY(calc.integral > 0 && calc.max == 0);
        QCOMPARE(display.validity(), QString("DATA NOT VALID"));
        QCOMPARE(display.text("doubleSpinBox_meanx"), QString("9.000 mm"));
        for (const char *box : {"doubleSpinBox_meany",
                                "doubleSpinBox_dy",
                                "doubleSpinBox_major",
                                "doubleSpinBox_minor",
                                "doubleSpinBox_rotation",
                                "doubleSpinBox_elongation",
                                "integral_QScienceSpinBox",
                                "max_QScienceSpinBox"})
            QCOMPARE(display.text(box), QString("N/A"));
        // A failed fit is not valid whatever the threshold, while a weak frame is hidden by it.
        display.box("threshold_QScienceSpinBox")->setValue(1e-12);
        display.check("checkBox_threshold", true);
        QVERIFY(display.feed(stripBeam(-1)).valid);
        display.feed(stripBeam(9, 1e-13));
        QCOMPARE(display.mean(), -1);
        QVERIFY(!display.feed(stripBeam(-39)).valid);
        QCOMPARE(display.text("doubleSpinBox_meanx"), QString("N/A"));
    }

    void otherReasonsForFailure()
    {
        Display display(Detector::Strips);
        QVERIFY(!display.feed(stripBeam(0, 1e-16)).valid); // the peak is too low
        display.widget.SetRegressionOptions(true, {0.99, 10, 0, 0}, 0);
        QVERIFY(!display.feed(stripBeam(0)).valid); // a run of one strip
        display.widget.SetRegressionOptions(true, {0.99, 10, 0}, 0); // too few: the defaults
        QVERIFY(display.feed(stripBeam(0)).valid);

        display.choose(Detector::Pixels);
        QCOMPARE(numbers(display.feed(QVector<double>(128, 0.0))),
                 QString("not valid: -10000 -10000 -10000 -10000 -10000 -10000 0 0"));
        display.box("discriminator_QScienceSpinBox")->setValue(2e-9);
        QVERIFY(!display.feed(pixelBeam()).valid);
    }

    //! The width that is fitted to a Gaussian core on a wide halo depends on the weight of the halo.
    void fitsFollowTheirOptions()
    {
        QVector<double> frame = Frames::strips(15.2, 1.5, 16.1, 1.5);
        const QVector<double> halo = Frames::strips(15.2, 9, 16.1, 9, 4e-11);
        for (int i = 0; i < frame.size(); ++i)
            frame[i] += halo[i];
        Display display(Detector::Strips);
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
        QFETCH(bool, invertX);
        QFETCH(bool, invertY);
        QFETCH(double, shown);
        Display display(Detector::Pixels);
        display.check("checkBox_invertX", invertX);
        display.check("checkBox_invertY", invertY);
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

    void nothingCrashesIt()
    {
        const double inf = std::numeric_limits<double>::infinity();
        for (Detector detector : {Detector::None, Detector::Strips, Detector::Pixels}) {
            Display display(detector);
            display.widget.resize(700, 500);
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
            for (double time : {inf, 1e300})
                display.widget.setData(stripBeam(0), time);
            QVERIFY(!display.widget.grab().isNull());
        }
    }

    void itMayGoWhileANumberIsTyped()
    {
        QWidget window;
        auto *display = new Display(Detector::Pixels);
        display->widget.setParent(&window);
        display->feed(pixelBeam());
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const QPointer<QWidget> box(display->box("discriminator_QScienceSpinBox"));
        box->setFocus();
        QTest::keyClicks(box, "5");
        delete display;
        QVERIFY(!box);
    }

    void framesWithHoles()
    {
        Display display(Detector::Pixels);
        QVector<double> frame = Frames::pixels(2, 2, 4, 4, 0);
        frame[40] = 0;
        const QString withZero = numbers(display.feed(frame));
        frame[40] = std::nan("");
        QCOMPARE(numbers(display.feed(frame)), withZero);
        frame.resize(126); // the last two readings are not wired
        QCOMPARE(numbers(display.feed(frame)), withZero);
        // Strips without any reading are dropped.
        display.choose(Detector::Strips);
        display.feed(stripBeam(9));
        for (const QVector<double> &dark : {QVector<double>(128, 0.0), QVector<double>()}) {
            QTest::ignoreMessage(QtDebugMsg, "2D incoming data is all 0");
            display.feed(dark);
            QCOMPARE(display.mean(), 9);
        }
    }

    void withoutALayoutThereIsNoCalculation()
    {
        Display display;
        QVERIFY(!display.feed(stripBeam(0)).valid);
        QCOMPARE(display.validity(), QString("[+ Data Validity]"));
        for (QDoubleSpinBox *box :
             display.control<QWidget>("groupBox_calculations")->findChildren<QDoubleSpinBox *>())
            QCOMPARE(box->text(), QString("NaN"));
        display.widget.setL408(true);
        display.widget.setPixelated(false); // changes nothing, because another layout is chosen
        QVERIFY(display.feed(stripBeam(0)).valid);
        const auto *title = display.control<QLabel>("label_title");
        for (bool pixels : {true, false}) {
            display.choose(pixels ? Detector::Pixels : Detector::Strips);
            QCOMPARE(title->text(), QString(pixels ? "DW7/DW9 Plot" : "LR40-8 Plot"));
            QCOMPARE(display.box("discriminator_QScienceSpinBox")->isEnabled(), pixels);
            QVERIFY(!display.widget.getCalc().valid); // the other detector's numbers are cleared
        }
    }

    void invertingMirrorsTheNumbersAtOnce()
    {
        Display display(Detector::Pixels);
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

    void currentsAreChargesTimesTheRate()
    {
        Display display(Detector::Pixels);
        display.widget.setSampleRate(50);
        display.widget.setRange(1e-6, 1e-8);
        auto *threshold = display.box("threshold_QScienceSpinBox");
        auto *discriminator = display.box("discriminator_QScienceSpinBox");
        threshold->setValue(3e-11);
        discriminator->setValue(2e-12);
        const SpectrogramCalc charge = display.feed(pixelBeam());
        const auto unitsAre = [&](const QString &unit) {
            return display.text("integral_QScienceSpinBox").endsWith(unit)
                && display.text("max_QScienceSpinBox").endsWith(unit)
                && threshold->text().endsWith(unit) && discriminator->text().endsWith(unit);
        };
        QVERIFY(unitsAre(" C"));
        display.widget.currentEnabled(true);
        // The numbers on the screen and the limits have the new unit at once.
        QVERIFY(display.widget.getCurrentEnabled() && unitsAre(" A"));
        QVERIFY(near(display.widget.getCalc().integral / charge.integral, 50, 1e-9));
        QVERIFY(near(threshold->value(), 1.5e-9, 1e-20));
        QVERIFY(near(display.widget.getDiscriminator(), 1e-10, 1e-20));
        const SpectrogramCalc current = display.feed(pixelBeam());
        QVERIFY(near(current.max / charge.max, 50, 1e-9));
        QVERIFY(near(current.meanX, charge.meanX, 1e-9));
        // Repeating the call, or a new range, does not change them again.
        display.widget.currentEnabled(true);
        display.widget.setRange(2e-6, 2e-8);
        QVERIFY(near(threshold->value(), 1.5e-9, 1e-20));
        display.widget.currentEnabled(false);
        QVERIFY(near(display.feed(pixelBeam()).max / charge.max, 1, 1e-9));

        // Frames and limits keep their charges through changes of the rate.
        for (int round = 0; round < 20; ++round) {
            display.widget.currentEnabled(true);
            display.feed(pixelBeam());
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
        Display display(Detector::Strips);
        display.feed(stripBeam(-1));
        display.feedBetweenTicks(stripBeam(5));
        display.feedBetweenTicks(stripBeam(9));
        QCOMPARE(display.mean(), -1);
        display.tick();
        QTRY_COMPARE(display.text("doubleSpinBox_meanx"), QString("9.000 mm"));
        // A frame is not shown in another layout than its own.
        display.feedBetweenTicks(stripBeam(13));
        display.widget.setPixelated(true);
        display.tick();
        QCoreApplication::processEvents();
        QVERIFY(!display.widget.getCalc().valid);
    }

    void timeStampsThatDoNotRise()
    {
        for (bool sidebar : {true, false}) {
            Display display(Detector::Strips);
            display.widget.sidebarEnabled(sidebar);
            display.feed(stripBeam(-1));
            display.tick();
            display.widget.setData(stripBeam(9), display.time); // ignored
            QCOMPARE(display.mean(), -1);
            display.widget.setData(stripBeam(9), display.time + 0.001);
            QCOMPARE(display.mean(), 9);
        }
        Display display(Detector::Strips);
        display.time = 100;
        display.feed(stripBeam(-1));
        QTest::ignoreMessage(
            QtDebugMsg,
            "Incoming timestamp 51 is less than old timestamp 101 so the Pixelated X/Y plot "
            "has been cleared.");
        display.time = 50;
        display.feed(stripBeam(9));
        QCOMPARE(display.mean(), 9); // the frame itself is good
    }

    void theThresholdKeepsTheOldResults()
    {
        Display display(Detector::Pixels);
        const QString strong = numbers(display.feed(Frames::pixels(4, 0, 4, 4, 0)));
        auto *threshold = display.box("threshold_QScienceSpinBox");
        threshold->setValue(5e-10);
        QVERIFY(!threshold->isEnabled());
        display.check("checkBox_threshold", true);
        QVERIFY(threshold->isEnabled());
        QCOMPARE(numbers(display.feed(Frames::pixels(-4, 0, 4, 4, 0, 1e-10))), strong);
        // The redraw is still pending: the next good frame needs no tick, and uses it up.
        for (int x : {-4, 0}) {
            display.feedBetweenTicks(Frames::pixels(x, 0, 4, 4, 0));
            QCOMPARE(display.mean(), -4);
        }
    }

    void theOwnerIsToldWithoutASideBar()
    {
        Display display(Detector::Strips);
        QSignalSpy updates(&display.widget, SIGNAL(calcUpdate()));
        display.feed(stripBeam(-1));
        QCOMPARE(updates.size(), 0);
        display.widget.sidebarEnabled(false);
        QVERIFY(display.control<QWidget>("scrollArea_sidebar")->isHidden());
        display.feed(stripBeam(9));
        display.feedBetweenTicks(stripBeam(13));
        QCOMPARE(updates.size(), 1);
        QCOMPARE(display.mean(), 9);
        // The side bar is up to date as soon as it is shown.
        QCOMPARE(display.text("doubleSpinBox_dx"), QString("6.000 mm"));
        display.feed(Frames::strips(20, 2, 15, 3));
        display.widget.sidebarEnabled(true);
        QCOMPARE(display.text("doubleSpinBox_dx"), QString("4.000 mm"));
    }

    void disabledItStopsDrawing()
    {
        Display display(Detector::Strips);
        display.feed(stripBeam(-1));
        display.widget.setEnabled(false);
        QVERIFY(!display.control<QWidget>("sidebar")->isEnabled());
        display.feed(stripBeam(9));
        QCOMPARE(display.mean(), -1);
        display.widget.setEnabled(true);
        display.feedBetweenTicks(stripBeam(9));
        QCOMPARE(display.mean(), 9);
    }

    void scalesGoByIndex()
    {
        Display display(Detector::Pixels);
        display.widget.setRange(1e-6, 4e-9);
        display.widget.setRange(-1, 1); // refused
        display.widget.setRange(1, std::nan(""));
        for (const auto &[entry, fraction] : std::map<QString, double>{{"100%", 1},
                                                                       {"50%", 0.5},
                                                                       {"1%", 0.01},
                                                                       {"0.5%", 0.005},
                                                                       {".01%", 0.0001}}) {
            display.control<QComboBox>("comboBox_scaling")->setCurrentText(entry);
            display.widget.currentEnabled(false);
            QVERIFY2(display.colorBarEndsAt(fraction * 4e-9), qPrintable(entry));
            display.widget.currentEnabled(true);
            QVERIFY2(display.colorBarEndsAt(fraction * 1e-6), qPrintable(entry));
        }
    }

    void autoFollowsTheFrameAndNormalizeKeepsIt()
    {
        Display display(Detector::Pixels);
        display.widget.setRange(1e-6, 4e-9);
        const double first = display.feed(pixelBeam()).max;
        QVERIFY(display.colorBarEndsAt(first));
        display.widget.setScale(1);
        display.feed(pixelBeam(2e-9));
        QVERIFY(display.colorBarEndsAt(first));
        display.widget.setScale(0); // follows the last frame at once
        QVERIFY(display.colorBarEndsAt(2 * first));
        display.widget.setScale(99);
        QVERIFY(display.colorBarEndsAt(4e-9));
        // The fraction that is kept is that of the full scale in force.
        display.widget.setScale(0);
        display.widget.setSampleRate(20);
        display.widget.currentEnabled(true);
        display.widget.setScale(1);
        QVERIFY(display.colorBarEndsAt(40 * first));
    }

    void aModeWithoutAFullScaleFollowsTheFrame()
    {
        Display display(Detector::Pixels);
        display.widget.setRange(0, 4e-9);
        display.widget.setScale(3);
        const double max = display.feed(pixelBeam()).max;
        QVERIFY(display.colorBarEndsAt(2e-9));
        display.widget.setSampleRate(50);
        display.widget.currentEnabled(true);
        QVERIFY(display.colorBarEndsAt(50 * max));
        display.feed(pixelBeam(3e-9));
        QVERIFY(display.colorBarEndsAt(150 * max));
    }

    void theColourBarNeverMixesUnits()
    {
        Display display(Detector::Pixels);
        display.widget.setRange(1e-6, 4e-9);
        display.widget.setSampleRate(50);
        const double max = display.feed(pixelBeam()).max;
        // A frame of another layout has no influence.
        display.widget.setL408(true);
        display.widget.currentEnabled(true);
        QVERIFY(display.colorBarEndsAt(1e-6));
        for (const char *box : {"threshold_QScienceSpinBox", "discriminator_QScienceSpinBox"})
            QVERIFY(display.text(box).endsWith(" A"));
        // A frame without a maximum has none either.
        display.widget.currentEnabled(false);
        display.widget.setPixelated(true);
        display.feed(pixelBeam());
        display.feed(QVector<double>(128, 0.0));
        display.widget.currentEnabled(true);
        QVERIFY(display.colorBarEndsAt(50 * max));
    }

    void onlyTheUsersChoiceIsTold()
    {
        Display display;
        QSignalSpy changes(&display.widget, SIGNAL(changedYScale(int)));
        display.widget.setScale(5);
        QCOMPARE(changes.size(), 0);
        QTest::keyClick(display.control<QComboBox>("comboBox_scaling"), Qt::Key_Down);
        QCOMPARE(changes, QList<QVariantList>{{6}});
    }

    void badSettingsAreRefused()
    {
        Display display(Detector::Pixels);
        display.widget.setSampleRate(0);
        display.widget.setSampleRate(-3);
        display.widget.currentEnabled(true); // at a rate of 1
        QVERIFY(near(display.feed(pixelBeam()).max / 1e-9, 1, 0.3));
        QTest::ignoreMessage(QtDebugMsg, "Spectrogram created for head 3");
        display.widget.setName("head 3");
        display.widget.setName(nullptr);
    }

    void theMouseTellsTheChannel()
    {
        Display display;
        const SpectrogramPlot *plot = display.plot();
        for (Detector detector : {Detector::None, Detector::Pixels, Detector::Strips}) {
            display.choose(detector);
            QCOMPARE(plot->hoverText(QPointF(3, 3)), QString("NULL"));
        }
        display.feed(stripBeam(0));
        QVERIFY(plot->hoverText(QPointF(4.5, 20.2)).startsWith("Index [4][20]: "));
        display.choose(Detector::Pixels);
        QVector<double> frame(128, 0.0);
        frame[0] = 1.23456789e-9; // row 5, column 6
        frame[93] = 2e-10;
        display.feed(frame);
        QCOMPARE(plot->hoverText(QPointF(6.99, 5.01)), QString("Channel 1: 1.23457e-09"));
        QCOMPARE(plot->hoverText(QPointF(3.5, 12.0)), QString("Channel 94: 2e-10")); // on the edge
        QCOMPARE(plot->hoverText(QPointF(0.5, 0.5)), QString("Out of bounds"));
        QVERIFY(plot->findChild<QwtPlotPicker *>());
    }

    void ellipseControlsGoTogether()
    {
        Display display;
        for (bool isShown : {true, false}) {
            display.check("checkBox_ellipse", isShown);
            QCOMPARE(display.control<QWidget>("spinBox_sigma")->isEnabled(), isShown);
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXSpectrogram)
#include "tst_RVXSpectrogram.moc"
