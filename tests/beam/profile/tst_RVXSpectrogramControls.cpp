// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/SpectrogramPlot_p.h"
#include "corvale_qt/detector/DetectorLayout.h"
#include "tests/beam/profile/BeamDisplay.h"
#include "tests/support/TestMain.h"

#include <qwt_plot_picker.h>

#include <QHash>

#include <functional>

using namespace Corvale_Qt;

namespace {

struct Display : BeamDisplay
{
    using BeamDisplay::BeamDisplay;

    SpectrogramPlot *plot() { return widget.findChild<SpectrogramPlot *>(); }
    //! Returns the end of the colour bar with three digits.
    QString colorBar()
    {
        return QString::number(plot()->axisInterval(QwtPlot::yRight).maxValue(), 'g', 3);
    }
    //! Returns the X mean that is shown, in whole millimetres.
    QString mean() const
    {
        const SpectrogramCalc calc = widget.getCalc();
        return calc.valid ? QString::number(qRound(calc.meanX)) : QString("none");
    }

    /*! Does what \a script says, step by step: "strips; frame 9; between 5" chooses the strips, and feeds a beam at 9 mm
        with a tick and one at 5 mm without. A beam's second number is its height; "again" repeats the last time. */
    void act(const QString &script)
    {
        for (const QString &line : script.split("; ")) {
            const QStringList words = line.split(' ');
            const auto deed = deeds.constFind(words[0]);
            if (deed == deeds.constEnd())
                qFatal("a display cannot %s", qPrintable(line));
            (*deed)({words.value(1), words.value(1).toDouble(), words.value(2).toDouble()});
        }
    }

private:
    //! What follows the first word of a step: a word, which may be a number, and a second number.
    struct Step
    {
        QString word;
        double one;
        double two;
    };

    void show(const Step &step, double later)
    {
        time += later;
        const double height = step.two > 0 ? step.two : 1e-9;
        widget.setData(isOnPixels ? Frames::pixels(height) : Frames::strips(step.one, height),
                       time);
    }
    void chooseDetector(bool pixels)
    {
        isOnPixels = pixels;
        choose(pixels ? Detector::Pixels : Detector::Strips);
    }

    const QHash<QString, std::function<void(const Step &)>> deeds = {
        {"frame", [this](const Step &step) { tick(), show(step, 1); }},
        {"between", [this](const Step &step) { show(step, 1); }},
        {"again", [this](const Step &step) { show(step, 0); }},
        {"strips", [this](const Step &) { chooseDetector(false); }},
        {"pixels", [this](const Step &) { chooseDetector(true); }},
        {"dark", [this](const Step &) { feed(QVector<double>(128, 0.0)); }},
        {"tick", [this](const Step &) { tick(), QCoreApplication::processEvents(); }},
        {"enabled", [this](const Step &step) { widget.setEnabled(step.one != 0); }},
        {"sidebar", [this](const Step &step) { widget.sidebarEnabled(step.one != 0); }},
        {"threshold",
         [this](const Step &step) {
             box("threshold_QScienceSpinBox")->setValue(step.one);
             check("checkBox_threshold", true);
         }},
        {"range", [this](const Step &step) { widget.setRange(step.one, step.two); }},
        {"rate", [this](const Step &step) { widget.setSampleRate(step.word.toInt()); }},
        {"current", [this](const Step &step) { widget.currentEnabled(step.one != 0); }},
        {"scale", [this](const Step &step) { widget.setScale(step.word.toInt()); }},
        {"entry",
         [this](const Step &step) {
             control<QComboBox>("comboBox_scaling")->setCurrentText(step.word);
         }},
    };
    bool isOnPixels = false;
};

} // namespace

//! Which frame is shown, in which unit and on which scale, and what the controls do.
class tst_RVXSpectrogramControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingCrashesIt()
    {
        const double inf = std::numeric_limits<double>::infinity();
        for (Detector detector : {Detector::None, Detector::Strips, Detector::Pixels}) {
            Display display(detector);
            display.widget.resize(700, 500);
            for (const QVector<double> &frame :
                 {QVector<double>{}, QVector<double>(128, inf), QVector<double>(128, std::nan("")),
                  QVector<double>(5000, 1e308), QVector<double>(40, 1e-320),
                  Frames::strips(15, 2, 15, 2, 1e307), Frames::pixels(0, 0, 4, 4, 0, 1e300),
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
                display.widget.setData(Frames::strips(0), time);
            QVERIFY(!display.widget.grab().isNull());
        }
    }

    void itMayGoWhileANumberIsTyped()
    {
        QWidget window;
        auto *display = new Display(Detector::Pixels);
        display->widget.setParent(&window);
        display->feed(Frames::pixels());
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const QPointer<QWidget> box(display->box("discriminator_QScienceSpinBox"));
        box->setFocus();
        QTest::keyClicks(box, "5");
        delete display;
        QVERIFY(!box);
    }

    void withoutALayoutThereIsNoCalculation()
    {
        Display display;
        QVERIFY(!display.feed(Frames::strips(0)).valid);
        QCOMPARE(display.validity(), QString("[+ Data Validity]"));
        for (QDoubleSpinBox *box :
             display.control<QWidget>("groupBox_calculations")->findChildren<QDoubleSpinBox *>())
            QCOMPARE(box->text(), QString("NaN"));
        display.widget.setL408(true);
        display.widget.setPixelated(false); // changes nothing, because another layout is chosen
        QVERIFY(display.feed(Frames::strips(0)).valid);
        const auto *title = display.control<QLabel>("label_title");
        for (bool pixels : {true, false}) {
            display.choose(pixels ? Detector::Pixels : Detector::Strips);
            QCOMPARE(title->text(), QString(pixels ? "DW7/DW9 Plot" : "LR40-8 Plot"));
            QCOMPARE(display.box("discriminator_QScienceSpinBox")->isEnabled(), pixels);
            QVERIFY(!display.widget.getCalc().valid); // the other detector's numbers are cleared
        }
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
        const SpectrogramCalc charge = display.feed(Frames::pixels());
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
        const SpectrogramCalc current = display.feed(Frames::pixels());
        QVERIFY(near(current.max / charge.max, 50, 1e-9));
        QVERIFY(near(current.meanX, charge.meanX, 1e-9));
        // Repeating the call, or a new range, does not change them again.
        display.widget.currentEnabled(true);
        display.widget.setRange(2e-6, 2e-8);
        QVERIFY(near(threshold->value(), 1.5e-9, 1e-20));
        display.widget.currentEnabled(false);
        QVERIFY(near(display.feed(Frames::pixels()).max / charge.max, 1, 1e-9));

        // Frames and limits keep their charges through changes of the rate.
        for (int round = 0; round < 20; ++round) {
            display.widget.currentEnabled(true);
            display.feed(Frames::pixels());
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

    void whichFrameIsShown_data()
    {
        columns<QString, QString>("script", "mean");
        row("a frame between two ticks waits", "frame -1; between 5; between 9", "-1");
        row("the newest is shown at the tick", "frame -1; between 5; between 9; tick", "9");
        row("not in another layout than its own", "frame -1; between 9; pixels; tick", "none");
        row("a repeated time stamp is ignored", "frame -1; tick; again 9", "-1");
        row("also without a side bar", "sidebar 0; frame -1; tick; again 9", "-1");
        row("without a side bar", "sidebar 0; frame -1; tick; between 9", "9");
        row("a disabled display keeps its frame", "frame -1; enabled 0; frame 9", "-1");
        row("enabled, it shows the next", "frame -1; enabled 0; frame 9; enabled 1; between 5",
            "5");
        const QString weak = "frame -1; threshold 1e-10; frame 9 1e-10";
        row("one below the threshold is hidden", weak, "-1");
        row("the next one needs no tick", weak + "; between 9", "9");
        row("but uses it up", weak + "; between 9; between 5", "9");
        row("a failed fit is shown below any threshold", weak + "; frame -39", "none");
    }
    void whichFrameIsShown()
    {
        QFETCH(QString, mean);
        Display display(Detector::Strips);
        display.act(cell("script"));
        QTRY_COMPARE(display.mean(), mean);
    }

    void timeThatRunsBackwardsIsTold()
    {
        Display display(Detector::Strips);
        display.time = 100;
        display.act("frame -1");
        QTest::ignoreMessage(
            QtDebugMsg,
            "Incoming timestamp 51 is less than old timestamp 101 so the Pixelated X/Y plot "
            "has been cleared.");
        display.time = 50;
        display.act("frame 9");
        QCOMPARE(display.mean(), QString("9")); // the frame itself is good
    }

    void whereTheColourBarEnds_data()
    {
        columns<QString, QString>("script", "end");
        const QString ranges = "range 1e-6 4e-9; range -1 1; range 1 nan; "; // two are refused
        row("50 % of a charge", ranges + "entry 50%", "2e-09");
        row(".01 % of a charge", ranges + "entry .01%", "4e-13");
        row("1 % of a current", ranges + "current 1; entry 1%", "1e-08");
        row("100 % of a current", ranges + "entry 100%; current 1", "1e-06");
        row("an unknown scale is all of it", ranges + "scale 99", "4e-09");
        row("follows the frame", ranges + "frame 0", "7.98e-10");
        row("keeps what it had", ranges + "frame 0; scale 1; frame 0 2e-9", "7.98e-10");
        row("follows again", ranges + "frame 0; scale 1; frame 0 2e-9; scale 0", "1.6e-09");
        row("keeps its share", ranges + "frame 0 2e-9; rate 20; current 1; scale 1", "3.19e-08");
        row("without a full scale", "range 0 4e-9; frame 0; scale 3; rate 50; current 1",
            "3.99e-08");
        row("with one", "range 0 4e-9; frame 0; scale 3; rate 50", "2e-09");
        row("without one, the next frame",
            "range 0 4e-9; scale 3; rate 50; current 1; frame 0 3e-9", "1.2e-07");
        row("after a frame of another layout", ranges + "frame 0; strips; current 1", "1e-06");
        row("after a dark one", ranges + "rate 50; frame 0; dark; current 1", "3.99e-08");
    }
    void whereTheColourBarEnds()
    {
        Display display;
        display.act("pixels; " + cell("script"));
        QTEST(display.colorBar(), "end");
    }

    void theOwnerIsToldWithoutASideBar()
    {
        Display display(Detector::Strips);
        QSignalSpy updates(&display.widget, SIGNAL(calcUpdate()));
        display.feed(Frames::strips(-1));
        QCOMPARE(updates.size(), 0);
        display.widget.sidebarEnabled(false);
        QVERIFY(display.control<QWidget>("scrollArea_sidebar")->isHidden());
        display.feed(Frames::strips(9));
        display.feedBetweenTicks(Frames::strips(13));
        QCOMPARE(updates.size(), 1);
        QCOMPARE(display.mean(), QString("9"));
        // Settings that compute the shown frame anew.
        const auto updatesOf = [&](const std::function<void()> &change) {
            updates.clear();
            change();
            return updates.size();
        };
        auto *invert = display.control<QCheckBox>("checkBox_invertX");
        QCOMPARE(updatesOf([&] { invert->setChecked(true); }), 1);
        QCOMPARE(display.mean(), QString("-9"));
        for (const auto &[current, told] :
             {std::pair(true, 1), std::pair(true, 0), std::pair(false, 1)})
            QCOMPARE(updatesOf([&, current = current] { display.widget.currentEnabled(current); }),
                     told);
        QCOMPARE(updatesOf([&] {
                     display.widget.setVerdictEnabled(true);
                     display.widget.setEstimator(BeamEstimator::LeastSquares);
                 }),
                 2);
        display.widget.setVerdictEnabled(false);
        invert->setChecked(false);
        // The side bar is up to date as soon as it is shown.
        QCOMPARE(display.text("doubleSpinBox_dx"), QString("6.000 mm"));
        display.feed(Frames::strips(20, 2, 15, 3));
        display.widget.sidebarEnabled(true);
        QCOMPARE(display.text("doubleSpinBox_dx"), QString("4.000 mm"));
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
        QVERIFY(near(display.feed(Frames::pixels()).max / 1e-9, 1, 0.3));
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
        display.feed(Frames::strips(0));
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

    void controlsThatNoDetectorObeysAreHidden_data()
    {
        columns<int, int>("columns", "rows");
        QTest::addColumn<QString>("offered");
        QTest::newRow("x only") << 8 << 0 << "x";
        QTest::newRow("y only") << 0 << 8 << "y";
        QTest::newRow("both") << 8 << 8 << "x y both";
    }
    void controlsThatNoDetectorObeysAreHidden()
    {
        QFETCH(int, columns);
        QFETCH(int, rows);
        DetectorDescription description;
        description.kind = DetectorKind::Strips;
        description.x = columns > 0 ? DetectorAxis::counted(columns) : DetectorAxis();
        description.y = rows > 0 ? DetectorAxis::counted(rows) : DetectorAxis();
        Display display;
        // Which groups are shown; with a question mark if only some of a group are.
        const auto offered = [&display] {
            const std::pair<const char *, const char *> groups[] = {
                {"x", "_(meanx|dx|.*X)$"},
                {"y", "_(meany|dy|.*Y)$"},
                {"both",
                 "_(major|minor|rotation|elongation|ellipse|sigma|arrow|[xy]origin)|origin_"},
                {"preset", "discriminator"}};
            QStringList names;
            for (const auto &[name, pattern] : groups) {
                const auto found =
                    display.widget.findChildren<QWidget *>(QRegularExpression(pattern));
                const auto hidden = std::count_if(found.begin(), found.end(),
                                                  [](QWidget *one) { return one->isHidden(); });
                if (found.size() < 2 || hidden < found.size())
                    names << name + QString(hidden > 0 ? "?" : "");
            }
            return names.join(' ');
        };
        const QString all = offered();
        QCOMPARE(all, QString("x y both preset"));
        display.widget.setLayout(DetectorLayout::fromDescription(description));
        QTEST(offered(), "offered");
        display.choose(Detector::Strips);
        QCOMPARE(offered(), all);
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

CORVALE_QT_TEST_MAIN(tst_RVXSpectrogramControls)
#include "tst_RVXSpectrogramControls.moc"
