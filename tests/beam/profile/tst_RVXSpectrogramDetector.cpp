// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/SpectrogramPlot_p.h"
#include "corvale_qt/detector/DetectorFile.h"
#include "corvale_qt/units/SiPrefix.h"
#include "tests/beam/profile/BeamDisplay.h"
#include "tests/support/AxisTexts.h"
#include "tests/support/Mouse.h"
#include "tests/support/PaintCounter.h"
#include "tests/support/Pixels.h"
#include "tests/support/Profiles.h"
#include "tests/support/TestMain.h"

#include <cstring>
#include <tuple>

using namespace Corvale_Qt;
using Axis = DetectorLayout::Axis;

namespace {

double gauss(double place, double mean, double sigma)
{
    return std::exp(-0.5 * std::pow((place - mean) / sigma, 2));
}

DetectorDescription harp()
{
    DetectorDescription description;
    description.kind = DetectorKind::Strips;
    description.x = DetectorAxis::at(Profiles::unequalWires, QStringLiteral("mm"));
    description.y = description.x;
    description.density = true;
    return description;
}

DetectorDescription matrix(int rows, int columns, double pitch)
{
    DetectorDescription description;
    description.kind = DetectorKind::Matrix;
    description.x = DetectorAxis::uniform(columns, pitch, QStringLiteral("mm"));
    description.y = DetectorAxis::uniform(rows, pitch, QStringLiteral("mm"));
    return description;
}

//! Returns the readings of a Gaussian beam, taken from the stated positions alone.
QVector<double> beam(const DetectorLayout &layout, QPointF mean, QPointF sigma,
                     double height = 1e-9, double pedestal = 0)
{
    const QVector<double> x = layout.positions(Axis::X), y = layout.positions(Axis::Y);
    QVector<double> readings;
    if (layout.kind() == DetectorKind::Matrix) {
        for (const double row : y)
            for (const double column : x)
                readings << pedestal
                        + height * gauss(column, mean.x(), sigma.x())
                            * gauss(row, mean.y(), sigma.y());
        return readings;
    }
    for (const double place : x)
        readings << pedestal + height * gauss(place, mean.x(), sigma.x());
    for (const double place : y)
        readings << pedestal + height * gauss(place, mean.y(), sigma.y());
    return readings;
}

struct DetectorDisplay : BeamDisplay
{
    explicit DetectorDisplay(const DetectorDescription &description)
        : layout(DetectorLayout::fromDescription(description))
    {
        widget.resize(900, 700);
        widget.setLayout(layout);
        plot = widget.findChild<SpectrogramPlot *>();
    }

    SpectrogramCalc feedBeam(QPointF mean, QPointF sigma, double pedestal = 0)
    {
        return feed(beam(layout, mean, sigma, 1e-9, pedestal));
    }
    QImage canvas()
    {
        widget.grab();
        return plot->canvas()->grab().toImage();
    }
    //! Returns the pixel of a place, in the units of the axes.
    QPointF pixelOf(double x, double y) const
    {
        return widget.devicePixelRatioF()
            * QPointF(plot->transform(QwtPlot::xBottom, x), plot->transform(QwtPlot::yLeft, y));
    }
    //! Returns the middle of what changes in the picture when a box is switched on.
    QPointF middleOf(const char *box)
    {
        check(box, false);
        const QImage without = canvas();
        check(box, true);
        return QRectF(differingArea(canvas(), without)).center();
    }

    DetectorLayout layout;
    SpectrogramPlot *plot;
};

} // namespace

class tst_RVXSpectrogramDetector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aBeamIsWhereItIs_data()
    {
        columns<QString, QPointF, QPointF>("detector", "mean", "sigma");
        row("unequal wires", "harp", QPointF(3.7, -5.2), QPointF(4.1, 6.3));
        row("one millimetre to the right", "harp", QPointF(1, 0), QPointF(5, 5));
        row("one millimetre up", "harp", QPointF(0, 1), QPointF(5, 5));
        row("wires from right to left", "falling", QPointF(3.7, -5.2), QPointF(4.1, 6.3));
        row("matrix", "matrix", QPointF(1, -3), QPointF(5, 8));
        row("matrix in centimetres", "centimetres", QPointF(1, -3), QPointF(5, 8));
    }
    void aBeamIsWhereItIs()
    {
        QFETCH(QString, detector);
        QFETCH(QPointF, mean);
        QFETCH(QPointF, sigma);
        DetectorDescription description = harp();
        double unit = 1;
        if (detector == "falling")
            std::reverse(description.x.positions.begin(), description.x.positions.end());
        if (detector == "matrix")
            description = matrix(32, 48, 1.5);
        if (detector == "centimetres") {
            description = matrix(32, 48, 0.15);
            description.x.unit = description.y.unit = QStringLiteral("cm");
            unit = 10;
        }
        DetectorDisplay display(description);
        display.widget.setProjectionsVisible(false);
        const SpectrogramCalc calc = display.feedBeam(mean / unit, sigma / unit);
        QVERIFY(calc.valid);
        QCOMPARE(display.widget.lengthUnit(Axis::X), QString("mm"));
        QVERIFY(near(calc.meanX, mean.x(), 0.02 * sigma.x()));
        QVERIFY(near(calc.meanY, mean.y(), 0.02 * sigma.y()));
        QVERIFY(near(calc.sigmaX, sigma.x(), 0.02 * sigma.x()));
        QVERIFY(near(calc.sigmaY, sigma.y(), 0.02 * sigma.y()));
        QCOMPARE(display.widget.result().calc.meanX, calc.meanX);
        QCOMPARE(display.validity(), QString("DATA VALID"));

        // The picture shows it there, too: the ellipse, the cross and the brightest cell.
        display.check("checkBox_meanX", false);
        display.check("checkBox_meanY", false);
        display.canvas();
        const QPointF place = display.pixelOf(mean.x() / unit, mean.y() / unit);
        const QPointF ellipse = display.middleOf("checkBox_ellipse");
        QVERIFY(QLineF(ellipse, place).length() < 3 * display.widget.devicePixelRatioF());
        QVERIFY(near(display.middleOf("checkBox_meanX").x(), place.x(), 3));
        QVERIFY(near(display.middleOf("checkBox_meanY").y(), place.y(), 3));
        for (const char *box : {"checkBox_ellipse", "checkBox_meanX", "checkBox_meanY"})
            display.check(box, false);
        display.widget.setColorMap(RVXSpectrogram::Greyscale);
        QVERIFY(qGray(display.canvas().pixel(place.toPoint()))
                > 150); // of 255 in the brightest cell
        QPointF brightest;
        double most = -1;
        const CellEdges x = cellEdges(display.layout, true), y = cellEdges(display.layout, false);
        const DetectorFrame frame = display.widget.shownFrame();
        const BeamImage image = frame.image();
        for (int cell = 0; cell < image.charges.size(); ++cell) {
            if (image.charges[cell] <= most)
                continue;
            most = image.charges[cell];
            brightest = {x.centre(cell % x.count()), y.centre(cell / x.count())};
        }
        if (most > 0)
            QVERIFY(QLineF(brightest * unit, mean).length() < 1.5);
    }

    void invertingMirrorsNumbersAndPicture()
    {
        DetectorDisplay display(harp());
        display.check("checkBox_invertX", true);
        const SpectrogramCalc calc = display.feedBeam({4, -3}, {5, 5});
        QVERIFY(near(calc.meanX, -4, 0.1) && near(calc.meanY, -3, 0.1));
        display.check("checkBox_meanX", false);
        display.check("checkBox_meanY", false);
        const QPointF ellipse = display.middleOf("checkBox_ellipse");
        QVERIFY(QLineF(ellipse, display.pixelOf(-4, -3)).length()
                < 3 * display.widget.devicePixelRatioF());
    }

    void withoutAPitchLengthsAreCells()
    {
        DetectorDescription description;
        description.kind = DetectorKind::Strips;
        description.x = DetectorAxis::counted(24);
        DetectorDisplay display(description);
        QVector<double> readings;
        for (int cell = 1; cell <= 24; ++cell)
            readings << gauss(cell, 9.5, 3);
        const SpectrogramCalc calc = display.feed(readings);
        QVERIFY(near(calc.meanX, 9.5, 0.02) && near(calc.sigmaX, 3, 0.05));
        QCOMPARE(calc.meanY, SpectrogramCalc::invalid); // there is no such plane
        QCOMPARE(display.widget.lengthUnit(Axis::X), QString("cells"));
        QCOMPARE(display.text("doubleSpinBox_meanx"), QString("9.500 cells"));
    }

    void wrongCountsAreRefused()
    {
        DetectorDisplay display(matrix(256, 256, 1));
        QVERIFY(display.feedBeam({20, 30}, {25, 12}).valid);
        const SpectrogramCalc before = display.widget.getCalc();
        for (const int count : {0, 128, 256 * 256 - 1, 256 * 256 + 1}) {
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression("setData ignored: .* readings"));
            QCOMPARE(display.feed(QVector<double>(count, 1.0)).meanX, before.meanX);
        }
        DetectorDescription channels;
        channels.readings = 4;
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("has no places"));
        display.widget.setLayout(DetectorLayout::fromDescription(channels));
        QCOMPARE(display.widget.detectorLayout(), display.layout);
    }

    void verdictsAreSaidOnlyOfWhatDescribesTheData_data()
    {
        const DetectorLayout layout = DetectorLayout::fromDescription(harp());
        QVector<double> hot(32, 0.0);
        hot[4] = hot[20] = 1e-9;
        columns<QVector<double>, QString, QString>("frame", "verdict", "reason");
        row("a beam", beam(layout, {3, 2}, {5, 5}), "DATA VALID", "");
        row("pedestal of 20 %, regression", beam(layout, {3, 2}, {5, 5}, 1e-9, 2e-10),
            "DATA VALID, FIT POOR", "residuals");
        row("flat field", QVector<double>(32, 1e-9), "DATA NOT VALID", "");
        row("dark", QVector<double>(32, 0.0), "DATA NOT VALID", "");
        row("one hot wire alone", hot, "DATA NOT VALID", "");
    }
    void verdictsAreSaidOnlyOfWhatDescribesTheData()
    {
        QFETCH(QString, verdict);
        DetectorDisplay display(harp());
        QVERIFY(display.feedBeam({3, 2}, {5, 5}).valid);
        const SpectrogramCalc calc = display.feed(cell<QVector<double>>("frame"));
        const QStringList lines = display.validity().split('\n');
        QCOMPARE(lines.first(), verdict);
        QCOMPARE(display.widget.verdict().text(), verdict);
        QVERIFY2(display.validity().contains(cell("reason")), qPrintable(display.validity()));
        QCOMPARE(lines.size() > 1, verdict != "DATA VALID");
        QCOMPARE(calc.valid, verdict != "DATA NOT VALID");
        if (!calc.valid) {
            QCOMPARE(calc.meanX, SpectrogramCalc::invalid);
            QCOMPARE(display.text("doubleSpinBox_meanx"), QString("N/A"));
        }
    }

    void presetsAreJudgedIfAsked()
    {
        for (const bool enabled : {false, true}) {
            BeamDisplay display(Detector::Strips);
            display.widget.setVerdictEnabled(enabled);
            const SpectrogramCalc good = display.feed(Frames::strips(4));
            QVERIFY(good.valid && near(good.meanX, 4, 1e-6));
            QCOMPARE(display.validity(), QString("DATA VALID"));
            // A flat field: the fit of the preset succeeds, but describes nothing.
            QVector<double> flat(128, 1e-9);
            for (int i = 0; i < 128; ++i)
                flat[i] += 1e-12 * std::sin(1.7 * i * i);
            const SpectrogramCalc calc = display.feed(flat);
            QCOMPARE(display.widget.shownResult().status == FitStatus::Ok, calc.valid);
            if (enabled)
                QVERIFY(!calc.valid && display.validity().startsWith("DATA NOT VALID\n"));
        }
        BeamDisplay display(Detector::Pixels);
        display.widget.setVerdictEnabled(true);
        QVERIFY(display.feed(Frames::pixels()).valid);
        QVERIFY(!display.feed(QVector<double>(128, 0.0)).valid);
        QVERIFY(display.validity().contains("no peak above"));
    }

    //! Amounts are shown with the prefix that suits each, and have room on the axes; a host reads them in the unit as before.
    void amountsHaveThePrefixThatSuitsThem()
    {
        BeamDisplay display(Detector::Pixels);
        display.widget.resize(900, 700);
        display.widget.show();
        display.feed(Frames::pixels(2e-10));
        const QString plain = display.text("max_QScienceSpinBox");
        const double integral = display.widget.getCalc().integral;
        QVERIFY2(plain.endsWith("e-10 C"), qPrintable(plain));
        display.widget.setSiPrefix(true);
        auto *plot = display.widget.findChild<QwtPlot *>();
        const auto title = [plot] { return plot->axisTitle(QwtPlot::yRight).text(); };
        for (const auto &[peak, text, bar] :
             {std::tuple(2e-10, " pC", "pC"), {3e-6, " \u00b5C", "\u00b5C"}, {7.0, " C", "C"}}) {
            display.feed(Frames::pixels(peak));
            QVERIFY2(display.text("max_QScienceSpinBox").endsWith(text),
                     qPrintable(display.text("max_QScienceSpinBox")));
            QVERIFY(!display.text("integral_QScienceSpinBox").contains('e'));
            QCOMPARE(title(), QString("Intensity (%1)").arg(bar));
            QCOMPARE(cutAxisTexts(*plot), QString());
        }
        display.feed(Frames::pixels(2e-10));
        QCoreApplication::sendPostedEvents();
        const PaintCounter layouts(display.box("max_QScienceSpinBox")->parentWidget(),
                                   QEvent::LayoutRequest);
        display.feed(Frames::pixels(3e-10));
        QCoreApplication::sendPostedEvents();
        QCOMPARE(layouts.count, 0); // another number in the same unit needs no other room
        display.feed(Frames::pixels(2e-10));
        display.box("integral_QScienceSpinBox")->interpretText();
        QCOMPARE(display.box("integral_QScienceSpinBox")->value(), integral);
        display.widget.setValueUnit("mV nC"); // the first one of the quantity counts
        QVERIFY2(display.text("max_QScienceSpinBox").endsWith(" nC"),
                 qPrintable(display.text("max_QScienceSpinBox")));
        QCOMPARE(title(), QString("Intensity (nC)"));
        display.feed(Frames::pixels(3e-6));
        QVERIFY(display.text("integral_QScienceSpinBox").endsWith(" nC"));
        QCOMPARE(title(), QString("Intensity (nC)"));
        display.feed(Frames::pixels(2e-10));
        display.widget.setValueUnit(QString());
        QCOMPARE(title(), QString("Intensity (pC)"));
        display.widget.setSiPrefix(false);
        QCOMPARE(display.text("max_QScienceSpinBox"), plain);
        QCOMPARE(title(), QString("Intensity (C)"));

        DetectorDisplay described(harp());
        described.widget.setIntensityUnit("A");
        described.widget.setSiPrefix(true);
        described.feedBeam({0, 0}, {5, 5});
        QCOMPARE(described.text("max_QScienceSpinBox"),
                 Units::SiPrefix::text(described.widget.getCalc().max, "A"));
    }

    //! The noise of a detector is that of its readings, and the smallest peak is a charge, also while currents are shown.
    void aCurrentIsJudgedLikeItsCharge_data()
    {
        columns<QString, double, bool>("unit", "noise", "isValid");
        row("little noise", "", 1e-12, true);
        row("the noise hides the peak", "", 3e-10, false);
        row("the peak is too small", "nC", 1e-12, false); // 1e-9 nC
    }
    void aCurrentIsJudgedLikeItsCharge()
    {
        QFETCH(double, noise);
        DetectorDescription description = harp();
        description.noise = noise;
        DetectorDisplay display(description);
        display.widget.setIntensityUnit(cell("unit"));
        display.widget.setSampleRate(1e4);
        display.feedBeam({0, 0}, {5, 5});
        const BeamVerdict charge = display.widget.verdict();
        QTEST(charge.validity != BeamValidity::NotValid, "isValid");
        display.widget.currentEnabled(true);
        const BeamVerdict current = display.widget.verdict();
        QCOMPARE(current.validity, charge.validity);
        QCOMPARE(current.reasons, charge.reasons);
        QVERIFY(near(current.peakInNoise / charge.peakInNoise, 1, 1e-9));
    }

    //! A setting takes effect on the frame on the screen at once, and the new numbers are announced.
    void settingsHoldForTheShownFrame()
    {
        for (const bool sidebar : {true, false}) {
            DetectorDisplay display(harp());
            RVXSpectrogram &widget = display.widget;
            widget.sidebarEnabled(sidebar);
            widget.currentEnabled(true);
            const double charge = display.feedBeam({0, 0}, {5, 5}).integral;
            const QSignalSpy told(&widget, &RVXSpectrogram::shownResultChanged);
            widget.setSampleRate(1000);
            QVERIFY(near(widget.getCalc().integral / charge, 1000, 1e-6));
            QVERIFY(near(widget.colorRange().second / widget.getCalc().max, 1, 1e-6));
            QCOMPARE(widget.verdict().validity, BeamValidity::Valid);
            widget.setIntensityUnit("pA"); // 1e-6 pA is below the smallest peak, 1e-12 A
            QCOMPARE(widget.verdict().validity, BeamValidity::NotValid);
            widget.setIntensityUnit("A");
            QCOMPARE(widget.verdict().validity, BeamValidity::Valid);
            widget.SetRegressionOptions(true, {0, 1024, 1e-3, 0}, 1);
            QCOMPARE(widget.verdict().validity, BeamValidity::NotValid);
            QCOMPARE(told.size(), 4);
        }
    }

    void belowTheThresholdNothingOldIsShown()
    {
        for (const bool enabled : {false, true}) {
            BeamDisplay display(Detector::Pixels);
            display.widget.setVerdictEnabled(enabled);
            display.check("checkBox_threshold", true);
            display.box("threshold_QScienceSpinBox")->setValue(1e-10);
            const SpectrogramCalc good = display.feed(Frames::pixels(1e-9));
            QVERIFY(good.valid);
            const SpectrogramCalc calc = display.feed(Frames::pixels(1e-12));
            QCOMPARE(calc.valid, !enabled); // the old numbers stay unless frames are judged
            if (!enabled)
                continue;
            QCOMPARE(calc.meanX, SpectrogramCalc::invalid);
            QVERIFY(display.validity().contains("below the threshold"));
        }
    }

    void deadSaturatedAndUnwiredCells()
    {
        DetectorDescription description = matrix(12, 16, 2);
        description.channels.resize(12 * 16);
        description.channels[5 * 16 + 8].dead = true;
        description.channels[6 * 16 + 8].saturation = 0.9e-9;
        for (int cell = 0; cell < 12 * 16; ++cell)
            description.wiring << (cell == 0 ? -1 : cell);
        DetectorDisplay display(description);
        display.widget.setProjectionsVisible(false);
        display.check("checkBox_ellipse", false);
        QVector<double> readings = beam(display.layout, {0, 0}, {5, 4});
        readings[0] = 1e-7;
        display.feed(readings);
        const BeamVerdict verdict = display.widget.verdict();
        QCOMPARE(verdict.deadCells, 1);
        QCOMPARE(verdict.saturatedCells, 1);
        QVERIFY(verdict.notes.join(' ').contains("left out"));
        const QVector<double> x = display.layout.positions(Axis::X);
        const QVector<double> y = display.layout.positions(Axis::Y);
        QVERIFY(display.plot->hoverText({x[8], y[5]}).endsWith("channel 89, dead"));
        QVERIFY(display.plot->hoverText({x[8], y[6]}).endsWith("channel 105, saturated"));
        QVERIFY(display.plot->hoverText({x[0], y[0]}).endsWith("not wired"));
        // The magenta frame of the saturated cell.
        const QImage picture = display.canvas();
        QRect frame;
        forEachPixel(picture, [&](int column, int line) {
            const QColor color = picture.pixelColor(column, line);
            if (color.red() > 200 && color.blue() > 200 && color.green() < 60)
                frame |= QRect(column, line, 1, 1);
        });
        QVERIFY(frame.contains(display.pixelOf(x[8], y[6]).toPoint()));
    }

    void estimatorsHaveTheirNames()
    {
        DetectorDisplay display(matrix(16, 16, 1));
        auto *box = display.control<QComboBox>("comboBox_estimator");
        for (const auto &[estimator, name] :
             {std::pair(BeamEstimator::CentreOfGravity, "Centre of gravity"),
              std::pair(BeamEstimator::LeastSquares, "Least squares"),
              std::pair(BeamEstimator::LeastSquaresLinear, "Least squares, linear background"),
              std::pair(BeamEstimator::SecondMoment, "Second moment")}) {
            display.widget.setEstimator(estimator);
            QCOMPARE(box->currentText(), QString(name));
        }
    }

    void backgroundAndAverage()
    {
        DetectorDisplay display(matrix(16, 16, 1));
        display.widget.setEstimator(BeamEstimator::CentreOfGravity);
        const QVector<double> dark(256, 2e-10);
        display.widget.takeBackground(2);
        QVERIFY(display.widget.frameProcessing().contains("2 frames to come"));
        display.feed(dark);
        QVERIFY(display.widget.frameProcessing().contains("1 frame to come"));
        display.feed(dark);
        QVERIFY(display.widget.hasBackground());
        const SpectrogramCalc calc = display.feedBeam({1, -1}, {2, 1.5}, 2e-10);
        QVERIFY(near(calc.meanX, 1, 0.01) && near(calc.meanY, -1, 0.01));
        QCOMPARE(display.control<QLabel>("label_processing")->text(),
                 QString("background of 2 frames subtracted"));
        // The frame on the screen follows, since the next one may never come.
        const auto x = [&] { return display.widget.estimate(Axis::X).position.value; };
        for (const bool subtracted : {false, true}) {
            display.widget.setBackgroundSubtracted(subtracted);
            QCOMPARE(std::abs(x() - 1) < 0.1, subtracted);
        }
        display.widget.clearBackground();
        QVERIFY(std::abs(x() - 1) > 0.1);
        QCOMPARE(display.widget.frameProcessing(), QString());
        display.widget.setAveragedFrames(4);
        for (const double height : {1.0, 2.0, 3.0, 6.0, 5.0})
            display.feed(QVector<double>(256, height));
        QCOMPARE(display.widget.shownFrame().values[17], 4.0); // of the last four
        display.widget.setAveragedFrames(1);
        QCOMPARE(display.widget.shownFrame().values[17], 5.0);
        // The controls follow without a change of their own: the numbers are computed, and told, once.
        display.widget.sidebarEnabled(false);
        QSignalSpy updates(&display.widget, &RVXSpectrogram::calcUpdate);
        display.widget.setAveragedFrames(2);
        QCOMPARE(updates.size(), 1);
        display.widget.setBackgroundSubtracted(!display.widget.isBackgroundSubtracted());
        QCOMPARE(updates.size(), 2);
    }

    void coloursFollowTheRangeAndTheLogarithm()
    {
        DetectorDisplay display(matrix(1, 4, 1));
        display.widget.setProjectionsVisible(false);
        display.widget.setColorMap(RVXSpectrogram::Viridis);
        display.feed({1, 10, 100, 1000});
        const auto colorOf = [&](double x) {
            return display.canvas().pixelColor(display.pixelOf(x, 0.2).toPoint());
        };
        QCOMPARE(colorOf(1.3), QColor(0xfd, 0xe7, 0x25)); // the ends of the published map
        display.widget.setLogarithmicColors(true);
        QCOMPARE(colorOf(-1.3), QColor(0x44, 0x01, 0x54));
        QCOMPARE(colorOf(1.3), QColor(0xfd, 0xe7, 0x25));
        // A third of the way; the 85th of the 256 published colours.
        const QColor third = colorOf(-0.3);
        QVERIFY(std::abs(third.red() - 49) <= 2 && std::abs(third.green() - 103) <= 2);
        display.widget.setColorRange(100, 200);
        QCOMPARE(colorOf(0.3), QColor(0x44, 0x01, 0x54));

        // By the controls: ticking the box changes no colour, and the higher number may be typed first.
        using Range = QPair<double, double>;
        auto *typed = display.control<QCheckBox>("checkBox_colorRange");
        auto *low = display.control<QDoubleSpinBox>("spinBox_lowestColor");
        auto *high = display.control<QDoubleSpinBox>("spinBox_highestColor");
        QVERIFY(typed->isChecked() && low->value() == 100 && high->value() == 200);
        typed->click();
        QVERIFY(!low->isEnabled() && !display.widget.hasColorRange());
        typed->click();
        QCOMPARE(display.widget.colorRange(), Range(1, 1000));
        low->setValue(2000);
        QCOMPARE(display.widget.colorRange(), Range(1000, 2000));
        high->setValue(5000);
        QCOMPARE(display.widget.colorRange(), Range(2000, 5000));
    }

    void zoomAndPan()
    {
        DetectorDisplay display(matrix(20, 20, 1));
        display.feedBeam({3, 2}, {2, 2});
        QWidget *canvas = display.plot->canvas();
        display.canvas();
        const QRectF home = display.widget.shownArea();
        QCOMPARE(home, QRectF(-10, -10, 20, 20));
        const QPoint mouse = canvas->rect().center() + QPoint(40, -30);
        const QPointF place(display.plot->invTransform(QwtPlot::xBottom, mouse.x()),
                            display.plot->invTransform(QwtPlot::yLeft, mouse.y()));
        turnWheel(canvas, mouse, 240);
        const QRectF zoomed = display.widget.shownArea();
        QVERIFY(near(zoomed.width(), 20 / 1.25 / 1.25, 1e-6));
        QVERIFY(near(display.plot->invTransform(QwtPlot::xBottom, mouse.x()), place.x(), 0.2));
        QTest::keyClick(canvas, Qt::Key_Right);
        QVERIFY(display.widget.shownArea().left() > zoomed.left());
        for (int i = 0; i < 50; ++i)
            QTest::keyClick(canvas, Qt::Key_Right);
        QCOMPARE(display.widget.shownArea().right(), home.right()); // not beyond the detector
        QTest::keyClick(canvas, Qt::Key_Home);
        QCOMPARE(display.widget.shownArea(), home);
    }

    void frameAndPictureAreSaved()
    {
        QTemporaryDir folder;
        DetectorDisplay display(harp());
        QVERIFY(!display.widget.saveFrame(folder.filePath("none.csv")));
        display.feedBeam({3, 2}, {5, 5});
        QVERIFY(display.widget.saveFrame(folder.filePath("frame.csv")));
        QVERIFY(display.widget.savePicture(folder.filePath("plot.png")));
        QVERIFY(!display.widget.saveFrame(folder.filePath("no such folder/frame.csv")));
        QVERIFY(!QImage(folder.filePath("plot.png")).isNull());
        QFile file(folder.filePath("frame.csv"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
        QCOMPARE(lines[3], QString("axis,position,width,value,flag"));
        const QStringList first = lines[4].split(',');
        QCOMPARE(first[1].toDouble(), Profiles::unequalWires[0]);
        QCOMPARE(first[3].toDouble(), 1e-9 * gauss(Profiles::unequalWires[0], 3, 5));
    }

    void presetsComeBack()
    {
        BeamDisplay plain(Detector::Strips);
        BeamDisplay display;
        display.widget.setLayout(DetectorLayout::fromDescription(harp()));
        display.feed(QVector<double>(32, 1.0));
        display.choose(Detector::Strips);
        QVERIFY(display.widget.detectorLayout().isEmpty());
        plain.feed(Frames::strips(3));
        display.time = plain.time = 50;
        const SpectrogramCalc calc = display.feed(Frames::strips(3));
        const SpectrogramCalc expected = plain.feed(Frames::strips(3));
        QCOMPARE(std::memcmp(&calc, &expected, offsetof(SpectrogramCalc, valid)), 0);
        display.control<QWidget>("frame_timePlot")->hide();
        plain.control<QWidget>("frame_timePlot")->hide();
        QCOMPARE(display.control<QWidget>("frame_plot")->grab().toImage(),
                 plain.control<QWidget>("frame_plot")->grab().toImage());
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXSpectrogramDetector)
#include "tst_RVXSpectrogramDetector.moc"
