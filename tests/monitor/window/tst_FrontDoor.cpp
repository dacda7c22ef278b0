// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/RunReport.h"
#include "monitor/dialogs/ConnectDialog.h"
#include "monitor/dialogs/SettingsDialog.h"
#include "monitor/readings/StreamDetector.h"
#include "monitor/sources/FileSource.h"
#include "monitor/tape/TapeDeck.h"
#include "monitor/window/Baseline.h"
#include "monitor/window/BigNumbers.h"
#include "monitor/window/CrashNotice.h"
#include "monitor/window/ImportDialog.h"
#include "monitor/window/KeptConnections.h"
#include "monitor/window/KeptOptions.h"
#include "monitor/window/LatestValuePanel.h"
#include "monitor/window/SourceSwitch.h"
#include "monitor/window/TapePanel.h"
#include "monitor/window/WindowSettings.h"
#include "tests/monitor/support/Dialogs.h"
#include "tests/monitor/support/WindowInTest.h"
#include "tests/support/Files.h"
#include "tests/support/Mouse.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/beam/profile/RVXPositionPlot.h>
#include <corvale_qt/beam/profile/RVXSpectrogram.h>
#include <corvale_qt/models/RVXPlotHistory.h>
#include <corvale_qt/scope/RVXScopePlotView.h>

using namespace Monitor;

//! The menus and dialogs by which sources are opened and settings are made, by keyboard and by mouse.
class tst_FrontDoor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void aSourceIsConnectedByKeyboardAlone()
    {
        SmallWindow w(file("keyboard.xui"));
        QVERIFY(QTest::qWaitForWindowActive(&w.window));
        press(Qt::Key_F, Qt::AltModifier);
        QTRY_VERIFY(QApplication::activePopupWidget());
        onNextDialog([](QDialog *dialog) {
            QVERIFY(QTest::qWaitForWindowActive(dialog));
            dialog->findChild<QListWidget *>("kinds")->setFocus();
            press(Qt::Key_Home);
            press(Qt::Key_Tab);
            press(Qt::Key_Down); // the pixel detector
            press(Qt::Key_Return);
        });
        press(Qt::Key_C);
        QCOMPARE(w.window.sources().current(), QString("sim:pixels"));
        QVERIFY(w.session.source().isSimulated());
        QVERIFY(w.window.windowTitle().startsWith("sim:pixels"));

        w.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w.window));
        press(Qt::Key_F, Qt::AltModifier);
        QTRY_VERIFY(QApplication::activePopupWidget());
        press(Qt::Key_L);
        QVERIFY(w.session.source().isNone());
        QVERIFY(w.notice("sourceNotice").contains("File > Open..."));
        QVERIFY(!w.action("closeSource")->isEnabled());
    }

    //! A change of the source ends the recording, after a question, and leaves nothing of the former source.
    void anotherSourceReplacesTheFirst()
    {
        SmallWindow w(file("replace.xui"));
        const QString table = file("two.csv");
        putFile(table, "time_s,left_nA,right_nA\n0,1,2\n0.1,3,4\n0.2,5,6\n0.3,5,6\n0.4,5,6\n");
        w.source->live = true;
        w.source->begin(StreamKind::Channels, 3);
        w.run(5);
        w.source->begin(StreamKind::Channels, 3); // as after a reconnection, which is a gap
        w.run(1);
        QCOMPARE(w.session.gaps(), qint64(1));
        w.session.setPaused(true);
        QCOMPARE(w.record(file("record.csv")), QString());
        onNextDialog([&](QDialog *question) {
            QVERIFY(
                question->findChild<QLabel *>("qt_msgbox_label")->text().contains("record.csv"));
        });
        QVERIFY(!w.window.sources().open(table)); // cancelled: all stays
        QVERIFY(w.session.recorder());
        onNextDialog([](QDialog *question) { clickButton(question, "End the recording"); });
        QVERIFY(w.window.sources().open(table));
        QVERIFY(!w.session.recorder());
        QVERIFY(w.log().contains("record.csv ended"));
        QVERIFY(!w.session.isPaused());
        w.clock.advance(1.0);
        QCOMPARE(w.session.model().NumberOfChannels(), 2);
        QCOMPARE(w.session.statistics().readings(), qint64(5));
        QCOMPARE(w.session.gaps(), qint64(0));
        QCOMPARE(w.number(0), 5.0);
        QVERIFY(!w.session.isStale());

        for (int i = 0; i < 20; ++i)
            QVERIFY(w.window.sources().open(i % 2 ? "sim:ic4" : "sim:strips"));
        w.clock.advance(1.5);
        QCOMPARE(w.session.model().NumberOfChannels(), 4);
        QCOMPARE(w.window.sources().recent().mid(0, 3),
                 QStringList({"sim:ic4", "sim:strips", table}));

        onNextDialog([](QDialog *message) {
            QVERIFY(message->findChild<QLabel *>("qt_msgbox_label")
                        ->text()
                        .contains("tcp://HOST:PORT"));
        });
        QVERIFY(!w.window.sources().open("tcp://nowhere"));
        QCOMPARE(w.window.sources().current(), QString("sim:ic4"));
    }

    //! A file has a tape, and no other source has; the operator's choice to hide it holds for the next file.
    void theTapeComesAndGoesWithItsFile()
    {
        SmallWindow w(file("tape.xui"));
        const QString table = file("tape.csv");
        putFile(table, "time_s,a_nA\n0,1\n1,2\n2,3\n");
        const auto tape = [&] { return w.window.findChild<TapePanel *>(); };
        QVERIFY(!tape() && !w.action("showTape")->isEnabled());
        for (int i = 0; i < 3; ++i) {
            QVERIFY(w.window.sources().open(table));
            QVERIFY(tape()->isVisible() && w.action("showTape")->isEnabled());
        }
        w.clock.advance(0.1);
        tape()->deck().pause();
        tape()->deck().stepForwards();
        w.clock.advance(0.1);
        QVERIFY(w.session.model().rowCount() > 1);
        w.action("showTape")->trigger();
        QVERIFY(!tape()->isVisible());
        QVERIFY(w.window.sources().open("sim:strips"));
        QVERIFY(!tape() && !w.action("showTape")->isEnabled());
        w.clock.advance(0.1);
        QVERIFY(w.window.sources().open(table));
        QVERIFY(!tape()->isVisible());
        w.window.sources().close();
        QVERIFY(!tape());
    }

    void aTableOfAnotherProgramIsAskedAboutWhenItIsOpened()
    {
        SmallWindow w(file("import.xui"));
        const QString table = file("other.csv");
        putFile(table, "time;a [nA]\n0,0;1,5\n0,1;2,5\n0,2;3,5\n");
        int questions = 0;
        for (const bool wanted : {false, true, true}) {
            if (questions < 2)
                onNextDialog([&](QDialog *dialog) {
                    ++questions;
                    QVERIFY(qobject_cast<ImportDialog *>(dialog));
                    if (wanted)
                        dialog->accept();
                });
            QCOMPARE(w.window.sources().open(table), wanted);
            QCOMPARE(w.window.sources().current(), wanted ? table : QString());
        }
        QCOMPARE(questions, 2); // the answer is kept for such a header
        w.clock.advance(1.0);
        QCOMPARE(w.number(0), 3.5);
    }

    //! An answer that was wrong is given anew, by keys, for the open table and for others like it.
    void aWrongAnswerIsCorrected()
    {
        SmallWindow w(file("again.xui"));
        const QString table = file("again.csv"), like = file("like.csv");
        putFile(table, "time_s,a_nA,b_nA\n0,1,5\n0.1,2,5\n0.2,3,5\n");
        putFile(like, "time_s,a_nA,b_nA\n0,7,8\n0.1,8,9\n");
        QVERIFY(!w.action("readAgain")->isEnabled());
        QVERIFY(w.window.sources().open(table)); // nothing is asked: it is a usual table
        QVERIFY(w.action("readAgain")->isEnabled());
        const auto readAgain = [&](const QString &present, bool wanted) {
            w.window.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&w.window));
            press(Qt::Key_F, Qt::AltModifier);
            QTRY_VERIFY(QApplication::activePopupWidget());
            onNextDialog([=](QDialog *dialog) {
                auto *import = qobject_cast<ImportDialog *>(dialog);
                QCOMPARE(import->options().text(), present);
                ImportOptions other;
                other.timeColumn = 3;
                import->setOptions(other);
                if (wanted)
                    import->accept();
            });
            press(Qt::Key_G);
        };
        readAgain(QString(), false);
        QVERIFY(!w.log().contains("Read again as"));
        readAgain(QString(), true);
        QVERIFY(w.log().contains("--import \"time=3\""));
        QCOMPARE(w.window.sources().current(), table);
        w.clock.advance(0.1);
        QCOMPARE(w.number(1), 3.0); // "a", behind the time that is a channel now
        readAgain("time=3", false); // the dialog begins with the answer that was given
        QVERIFY(w.window.sources().open(like));
        QVERIFY(w.log().contains("--import \"time=3\""));
        w.clock.advance(0.1);
        QCOMPARE(w.number(1), 7.0);
        QVERIFY(w.window.sources().open("sim:ic4"));
        QVERIFY(!w.action("readAgain")->isEnabled());
    }

    void eachSourceHasItsOwnDetector()
    {
        const QString settings = file("detectors.xui");
        const QString strips = file("strips.json");
        putFile(strips, R"({"detector":1,"kind":"strips","x":{"cells":64,"pitch":2,"unit":"mm"}})");
        WindowSettings(settings).setDetectorFile("sim:strips", strips);
        SmallWindow w(settings);
        QVERIFY(w.window.sources().open("sim:strips"));
        QVERIFY(w.log().contains("the detector is that of " + strips));
        QVERIFY(w.window.sources().open("sim:ic4"));
        w.clock.advance(1.0);
        QVERIFY(w.session.model().header().detector.isEmpty());
        QCOMPARE(w.log().count("the detector is not used"), 0);
    }

    void aFileIsDroppedOnTheWindow()
    {
        SmallWindow w(file("drop.xui"));
        const QString table = file("dropped.csv");
        putFile(table, "time_s,a_nA\n0,1\n1,2\n");
        QMimeData data;
        const auto drop = [&](const QList<QUrl> &urls, Qt::DropActions offered) {
            data.setUrls(urls);
            const QPoint place(100, 100);
            QDragEnterEvent enter(place, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
            QCoreApplication::sendEvent(&w.window, &enter);
            QDropEvent event(place, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
            QCoreApplication::sendEvent(&w.window, &event);
            // A program that is told of a move removes the file.
            return enter.isAccepted() && enter.dropAction() == Qt::CopyAction && event.isAccepted()
                && event.dropAction() == Qt::CopyAction;
        };
        const Qt::DropActions any = Qt::CopyAction | Qt::MoveAction;
        QVERIFY(!drop({QUrl("http://example.org/a.csv")}, any));
        QVERIFY(!drop({QUrl::fromLocalFile(table), QUrl::fromLocalFile(table)}, any));
        QVERIFY(!drop({QUrl::fromLocalFile(table)}, Qt::MoveAction));
        QCoreApplication::processEvents();
        QCOMPARE(w.window.sources().current(), QString());
        QVERIFY(drop({QUrl::fromLocalFile(table)}, any));
        QTRY_COMPARE(w.window.sources().current(), table);
    }

    void sourcesAreTried_data()
    {
        columns<QString, QStringList>("source", "told");
        putFile(file("good.csv"), "time_s,left_nA,right_nA\n0,1,2\n1,3,\n");
        putFile(file("bad.csv"), "<html>\n<body>\n");
        QTest::newRow("a table") << file("good.csv")
                                 << QStringList{"The source works", "  time_s,left_nA,right_nA",
                                                "Read as 2 channels, layout channels",
                                                "t 0 s: left 1 nA, right 2 nA", "right none nA"};
        QTest::newRow("a file without readings")
            << file("bad.csv") << QStringList{"contains no readings", "  <html>"};
        QTest::newRow("no file") << file("none.csv")
                                 << QStringList{"cannot be opened", "Check the path"};
        QTest::newRow("no source") << "sim:nothing" << QStringList{"there is no simulator"};
    }
    void sourcesAreTried()
    {
        ManualClock clock;
        SourceTest test(clock);
        test.start(cell("source"), {});
        for (const QString &text : cell<QStringList>("told"))
            QTRY_VERIFY2(test.report().contains(text), qPrintable(test.report()));
    }

    void connectionsAreKept()
    {
        const QString settingsFile = file("kept.xui");
        const QStringList sources = {
            "sim:ic4?seed=7",
            "tcp://10.0.0.7:5001?ask=READ%3F%26%20x&every=100ms&silence=30s",
            "tcp-listen://0.0.0.0:77?silence=2s",
            "serial:/dev/ttyUSB7?baud=9600",
            file("a & b.csv"),
            "-"};
        putFile(file("a & b.csv"), "time_s,a_nA\n0,1\n");
        ManualClock clock;
        {
            ConnectDialog dialog(clock, {});
            const auto *report = dialog.findChild<QPlainTextEdit *>("report");
            for (const QString &source : sources) {
                dialog.setSource(source);
                QCOMPARE(report->toPlainText(), QString()); // and nothing of another source
                dialog.setOpenSource(source);
                clickButton(&dialog, "Test");
                const bool isOnce = report->toPlainText().contains("is open");
                QCOMPARE(isOnce, source.contains("tcp") || source.contains("tty"));
                QCOMPARE(dialog.source(), source);
                dialog.findChild<QComboBox *>("names")->setEditText("of " + source);
                clickButton(&dialog, "Keep");
            }
            WindowSettings settings(settingsFile);
            keepConnections(dialog.kept(), settings);
        }
        ConnectDialog dialog(clock, {});
        dialog.setKept(keptConnections(WindowSettings(settingsFile)));
        QCOMPARE(dialog.kept().size(), sources.size());
        auto *names = dialog.findChild<QComboBox *>("names");
        names->setCurrentIndex(3);
        Q_EMIT names->activated(3);
        QCOMPARE(dialog.source(), sources.at(3));
        clickButton(&dialog, "Forget");
        QCOMPARE(dialog.kept().size(), sources.size() - 1);
    }

    void settingsAreCheckedAndKept()
    {
        const QString settingsFile = file("options.xui");
        SettingsDialog dialog(MonitorOptions(), settingsFile);
        dialog.show();
        auto *pages = dialog.findChild<QTabWidget *>();
        const bool fillsTheScreen = dialog.height() >= dialog.screen()->availableSize().height();
        for (int page = 0; page < pages->count();
             ++page) { // each is seen whole, where the screen has the room
            pages->setCurrentIndex(page);
            QCoreApplication::processEvents();
            const auto *scrolled = qobject_cast<QScrollArea *>(pages->widget(page));
            QVERIFY(fillsTheScreen || !scrolled || scrolled->verticalScrollBar()->maximum() == 0);
        }
        const auto type = [&](const char *name, const QString &text) {
            dialog.findChild<QLineEdit *>(QLatin1String(name))->setText(text);
        };
        const auto fault = [&] {
            dialog.accept();
            return dialog.findChild<QLabel *>("fault")->text();
        };
        type("from", "10");
        type("to", "5");
        QVERIFY2(fault().contains("nothing between 10 and 5"), qPrintable(fault()));
        type("to", "20");
        type("low", "-1e-6");
        QVERIFY(fault().contains("two numbers"));
        type("high", "1e-6");
        type("rotation", "often");
        QVERIFY(fault().contains("30min"));
        type("rotation", "1h");
        dialog.findChild<QComboBox *>("segments")->setCurrentIndex(1);
        type("detector", file("no.json"));
        QVERIFY(!fault().isEmpty());
        type("detector", "preset:none");
        QVERIFY2(fault().contains("there are preset:strips64, "), qPrintable(fault()));
        dialog.findChild<QPushButton *>("presets")->menu()->actions().first()->trigger();
        QCOMPARE(dialog.options().detectorFile, QString("preset:strips64"));
        type("minimumSum", "half");
        QVERIFY(fault().contains("is not a number"));
        type("minimumSum", "0.5");
        auto *residuals = dialog.findChild<QDoubleSpinBox *>("residual_rms");
        residuals->setValue(30.0); // in percent
        dialog.findChild<QDoubleSpinBox *>("peak_in_noise")->setValue(8.0);
        QCOMPARE(dialog.options().verdictLimits.peakInNoise, 8.0);
        residuals->clearFocus();
        turnWheel(residuals, residuals->rect().center(), -120);
        QCOMPARE(residuals->value(), 30.0); // the wheel scrolls the page
        clickButton(&dialog, "Usual limits");
        QVERIFY(dialog.options().verdictLimits == Corvale_Qt::VerdictLimits());
        residuals->setValue(7.5);
        dialog.findChild<QDoubleSpinBox *>("speed")->setValue(2.5);
        auto *languages = dialog.findChild<QComboBox *>("language");
        languages->setCurrentIndex(languages->findText("Deutsch"));
        QCOMPARE(fault(), QString());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        {
            WindowSettings settings(settingsFile);
            keepOptions(dialog.options(), settings);
        }
        const MonitorOptions kept = keptOptions(WindowSettings(settingsFile));
        {
            // What another build of the program knows stays as it was chosen.
            MonitorOptions hdf5;
            hdf5.segments = SegmentForm::Hdf5;
            const SettingsDialog untouched(hdf5, settingsFile);
            QCOMPARE(int(untouched.options().segments), int(SegmentForm::Hdf5));
        }
        QCOMPARE(kept.file.speed, 2.5);
        QCOMPARE(kept.rangeHigh, 1e-6);
        QCOMPARE(kept.language, QString("de"));
        QCOMPARE(kept.rotation, QString("1h"));
        QCOMPARE(int(kept.segments), int(SegmentForm::Zstd));
        QCOMPARE(kept.minimumSum, 0.5);
        QCOMPARE(kept.verdictLimits.residualRms, 0.075);
        QCOMPARE(kept.verdictLimits.background, Corvale_Qt::VerdictLimits().background);
        QCOMPARE(kept.detectorFile, QString("preset:strips64"));
        QVERIFY(std::isinf(kept.file.to)); // belongs to one file
    }

    void aCrashIsToldUntilTheNoticeIsClosed()
    {
        WindowInTest w(file("crash.xui"));
        FormerRun run;
        run.crashed = QDateTime(QDate(2026, 3, 1), QTime(12, 0), Qt::UTC);
        run.reason = "signal 11 <b>(SIGSEGV)</b>";
        run.report = file("report.txt");
        putFile(run.report, "corvale-monitor 2\n");
        auto *notice =
            new CrashNotice(run, "/data/a.csv", "/data/a-2.csv", w.window.centralWidget());
        w.window.addNotice(notice);
        QCOMPARE(w.notice("crashNotice"),
                 QString("The program crashed at 2026-03-01 12:00:00 UTC: signal 11 "
                         "<b>(SIGSEGV)</b>. It was recording to /data/a.csv; the recording goes "
                         "on in /data/a-2.csv."));
        QTest::mouseClick(notice->findChild<QWidget *>("showReport"), Qt::LeftButton);
        auto *report = w.window.findChild<QDialog *>("report");
        QVERIFY(report && report->isVisible() && !report->isModal());
        QCOMPARE(report->findChild<QPlainTextEdit *>()->toPlainText(),
                 QString("corvale-monitor 2\n"));
        report->close();
        for (auto *button : notice->findChildren<QAbstractButton *>())
            if (button->text() == "Close")
                button->click();
        QCOMPARE(w.notice("crashNotice"), QString());
    }

    //! Profile and histogram are judged by the limits of the settings at once, unless the detector states its own.
    void verdictLimitsHoldAtOnce()
    {
        SmallWindow w(file("verdicts.xui"));
        const auto *profile = w.window.displays().profile(); // the scope has one of its own
        const auto *scope = w.window.displays().scope()->plotView();
        std::vector<double> wavy(64); // a Gaussian with a ripple of a tenth of its peak
        for (int i = 0; i < 64; ++i)
            wavy[std::size_t(i)] =
                100 * std::exp(-0.5 * std::pow((i % 32 - 15.5) / 4, 2)) + (i % 2 ? 10 : -10);
        MonitorOptions patient;
        patient.verdictLimits = {0.5, 0.1, 1, 1, 1, 0, 1};
        for (const bool hasOwn : {false, true}) {
            Corvale_Qt::DetectorDescription strips = countedStrips(32, 32);
            strips.verdictLimitsStated = hasOwn;
            StreamHeader header;
            header.kind = StreamKind::Strips;
            header.channels = StreamHeader::defaultChannels(header.kind, 64);
            header.setDetector(Corvale_Qt::DetectorLayout::fromDescription(strips));
            w.window.sources().setOptions(MonitorOptions());
            w.source->begin(header);
            w.source->give(hasOwn ? 2.0 : 1.0, wavy); // a frame of the same time would be ignored
            w.settle();
            QTRY_VERIFY(profile->shownResult().frame > (hasOwn ? 1 : 0));
            QVERIFY(profile->verdict().validity != Corvale_Qt::BeamValidity::Valid);
            w.window.sources().setOptions(patient);
            QCOMPARE(profile->verdict().validity == Corvale_Qt::BeamValidity::Valid, !hasOwn);
            QVERIFY((scope->detectorLayout().description().verdictLimits == patient.verdictLimits)
                    == !hasOwn);
            const auto *numbers = w.window.displays().findChild<QLabel *>("profileNumbers");
            QVERIFY2(numbers->text().startsWith(profile->verdict().text() + (hasOwn ? ";" : "\n")),
                     qPrintable(numbers->text()));
        }
        // A beam that is no beam any more has no position.
        w.source->begin(StreamKind::Strips, 64);
        w.source->give(3.0, wavy);
        w.settle();
        QTRY_VERIFY(profile->verdict().validity == Corvale_Qt::BeamValidity::Valid);
        const auto *position =
            w.window.displays().findChild<Corvale_Qt::RVXPositionPlot *>("position");
        QTRY_VERIFY(!position->showsNoBeam());
        MonitorOptions strict;
        strict.verdictLimits.peakInNoise = 1e6;
        w.window.sources().setOptions(strict);
        QVERIFY(position->showsNoBeam());
    }

    void clearingIsAskedAndUndone()
    {
        SmallWindow w(file("clear.xui"));
        w.source->begin(StreamKind::Channels, 2);
        w.run(20);
        w.settle();
        onNextDialog([](QDialog *question) {
            QVERIFY(
                question->findChild<QLabel *>("qt_msgbox_label")->text().contains("20 samples"));
        });
        w.action("clear")->trigger();
        QCOMPARE(w.session.model().rowCount(), 21);
        onNextDialog([](QDialog *question) { clickButton(question, "Remove the samples"); });
        w.action("clear")->trigger();
        QCOMPARE(w.session.model().rowCount(), 1);
        QVERIFY(w.notice("cleared").contains("20 readings"));
        w.run(3);
        w.settle();
        w.action("undoClear")->trigger();
        QCOMPARE(w.session.model().rowCount(), 24);
        QCOMPARE(w.session.model().receivedValue(1, 1), 1000.0);
        QCOMPARE(w.session.model().receivedValue(23, 1), 1022.0);
        QVERIFY(w.notice("cleared").isEmpty() && !w.action("undoClear")->isEnabled());

        // Clearing twice, and in a pause, takes nothing from what comes back, nor from the days before.
        w.session.model().setCapacity(10);
        const auto *history = Corvale_Qt::RVXPlotHistory::of(&w.session.model());
        w.window.displays().scope()->clear();
        w.run(2);
        w.settle();
        w.session.setPaused(true);
        w.run(3);
        w.settle();
        w.window.displays().scope()->clear();
        QVERIFY(std::isnan(history->oldest()));
        w.session.setPaused(false);
        w.run(1);
        w.settle();
        w.action("undoClear")->trigger();
        history = Corvale_Qt::RVXPlotHistory::of(&w.session.model());
        QCOMPARE(w.session.model().rowCount(), 11);
        QCOMPARE(w.session.model().receivedValue(10, 1), 1028.0);
        QCOMPARE(history->interval(0, history->endBlock(0) - 1).rows, 19);

        // The same for a period, which is set back too.
        auto *period = w.window.displays().scope()->findChild<QComboBox *>("comboBox_period");
        onNextDialog([](QDialog *question) { clickButton(question, "Remove the samples"); });
        period->setCurrentIndex(2);
        QCOMPARE(w.window.displays().scope()->period(), 1000);
        w.action("undoClear")->trigger();
        QCOMPARE(w.window.displays().scope()->period(), 0);
        QCOMPARE(w.session.model().rowCount(), 11);

        w.window.displays().scope()->clear();
        QVERIFY(w.action("undoClear")->isEnabled());
        w.clock.advance(61.0);
        QVERIFY(!w.action("undoClear")->isEnabled());
    }

    //! A slow instrument's sweep takes minutes, and an empty chart must not look as if nothing came.
    void theFirstSweepIsWaitedFor()
    {
        SmallWindow w(file("sweep.xui"));
        w.source->begin(StreamKind::Channels, 1);
        Corvale_Qt::RVXScope *scope = w.window.displays().scope();
        scope->setPlotMode(Corvale_Qt::RVXScope::ScopeMode);
        const auto *notice = w.window.findChild<QLabel *>("sweepNotice");
        const int length = scope->plotView()->sweepLength();
        QStringList told;
        for (int i = 0; i < length; ++i) {
            w.source->give(double(i), {1.0});
            w.settle();
            if (i == 2 || i == length - 2)
                told += notice->text().section('(', 1);
        }
        QCOMPARE(told.join('|'), QString("3 of %1)|%2 of %1)").arg(length).arg(length - 1));
        QVERIFY(length > 100 && notice->isHidden());
        scope->clear();
        QVERIFY(notice->isHidden()); // and nothing is said of no readings
        w.source->give(1e4, {1.0});
        w.settle();
        QVERIFY(!notice->isHidden());
        scope->setPlotMode(Corvale_Qt::RVXScope::StripMode);
        QVERIFY(notice->isHidden());
    }

    void theZeroReachesEveryDisplay()
    {
        SmallWindow w(file("zero.xui"));
        StreamHeader header;
        for (const char *name : {"left", "right", "up", "down"})
            header.channels.append(Channel{name, "nA"});
        w.source->begin(header);
        w.source->give(1.0, {2, 2, 2, 2});
        w.settle();
        w.action("zero")->trigger();
        w.source->give(2.0, {3, 5, 3, 3}); // 1 and 3 above the zero: half the sum apart
        w.settle();
        QCOMPARE(w.number(1), 3.0);
        auto *position = w.window.displays().findChild<Corvale_Qt::RVXPositionPlot *>();
        QVERIFY(position);
        QTRY_VERIFY(w.window.findChild<QLabel *>("valueState")->text() == "ZEROED");
        QCOMPARE(position->findChild<QLabel *>("stateBadge")->text(), QString("ZEROED"));
        BigNumbers big(w.session, w.window.displays(), *w.window.findChild<LatestValuePanel *>(),
                       nullptr);
        QCOMPARE(big.lines(), QStringList({"left  ZEROED", w.value(0)}));
        QVERIFY2(w.value(0).startsWith("1") && w.value(0).endsWith("nA"), qPrintable(w.value(0)));
        big.show();
        QTest::keyClick(&big, Qt::Key_Escape);
        QVERIFY(!big.isVisible());
        w.action("removeZero")->trigger();
        QCOMPARE(w.number(1), 5.0);
        QVERIFY(w.window.findChild<QLabel *>("valueState")->isHidden());

        // The mean of a single reading equals its zero.
        w.session.model().Clear();
        w.source->give(2.5, {1, 0, 0, 0});
        w.settle();
        w.action("zero")->trigger();
        w.action("background")->trigger();
        QCOMPARE(w.window.displays().baseline()->text(), QString("BACKGROUND SUBTRACTED"));

        w.session.model().Clear();
        for (int i = 0; i < 100; ++i)
            w.source->give(3.0 + i, {double(i % 2), 0, 0, 0});
        w.settle();
        w.action("background")->trigger();
        QCOMPARE(w.window.displays().baseline()->text(), QString("BACKGROUND SUBTRACTED"));
        QCOMPARE(w.number(0), 0.5); // the last was 1, the mean is 0.5
        QCOMPARE(w.window.displays().scope()->averaging(), 1);
        // Another source has another zero.
        QVERIFY(w.window.sources().open("sim:ic4"));
        QCOMPARE(w.window.displays().baseline()->text(), QString());
    }

private:
    QString file(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_FrontDoor)
#include "tst_FrontDoor.moc"
