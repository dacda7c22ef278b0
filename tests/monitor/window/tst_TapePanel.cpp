// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/session/Companions.h"
#include "monitor/session/Session.h"
#include "monitor/sources/FileSource.h"
#include "monitor/tape/TapeDeck.h"
#include "monitor/window/ImportDialog.h"
#include "monitor/window/MonitorWindow.h"
#include "monitor/window/TapePanel.h"
#include "monitor/window/TapeSketch.h"
#include "monitor/window/TapeText.h"
#include "monitor/window/TapeTimeline.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/support/Files.h"
#include "tests/support/Mouse.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/scope/RVXScopePlotView.h>

using namespace Monitor;

//! What a person does with a file: the tape in the window, and the question how a table is read.
class tst_TapePanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    //! The deck by keyboard and mouse, as a person uses it.
    void theTapeIsPlayedByHand()
    {
        const QString path = m_dir.filePath("tape.csv");
        QByteArray table = "#corvale 1\n#channels a\n#unit nA\n";
        for (int i = 0; i <= 10000; ++i)
            table +=
                QByteArray::number(0.01 * i, 'f', 2) + ',' + QByteArray::number(i % 100) + '\n';
        putFile(path, table);
        ManualClock clock;
        Session session(clock, std::make_unique<FileSource>(clock, path, FileSource::Options()));
        MonitorWindow window(session, m_dir.filePath("tape.xui"));
        window.resize(1024, 600);
        window.show();
        session.start();
        auto *panel = window.findChild<TapePanel *>();
        QVERIFY(panel);
        auto &deck = static_cast<TapeDeck &>(panel->deck());
        TapeTimeline &line = panel->timeline();
        QTRY_VERIFY((clock.advance(0.02), deck.isIndexed()));
        QTRY_VERIFY(line.width() > window.width() / 2);
        const auto near = [&](double position) {
            clock.advance(0.02);
            const double one = deck.length() / line.width();
            return std::abs(deck.position() - position) < 1.5 * one + 0.05;
        };
        QTest::mouseClick(panel->findChild<QToolButton *>("tapePlay"), Qt::LeftButton);
        QVERIFY(!deck.isPlaying());

        const int y = line.height() / 3;
        QTest::mouseClick(&line, Qt::LeftButton, {}, {line.xOf(50.0), y});
        QVERIFY(near(50.0));
        QVERIFY(session.model().rowCount() > 4000); // with the past
        QTest::mousePress(&line, Qt::LeftButton, {}, {line.xOf(20.0), y});
        moveMouse(&line, {line.xOf(30.0), y}, Qt::LeftButton);
        QTest::mouseRelease(&line, Qt::LeftButton, {}, {line.xOf(30.0), y});
        QVERIFY(near(30.0));
        QVERIFY(!deck.loop());
        QTest::mousePress(&line, Qt::LeftButton, Qt::ShiftModifier, {line.xOf(60.0), y});
        moveMouse(&line, {line.xOf(40.0), y}, Qt::LeftButton);
        QTest::mouseRelease(&line, Qt::LeftButton, Qt::ShiftModifier, {line.xOf(40.0), y});
        QVERIFY(deck.loop() && std::abs(deck.loop()->from - 40.0) < 0.5
                && std::abs(deck.loop()->to - 60.0) < 0.5);
        deck.clearLoop();
        QVERIFY(near(40.0)); // where what is repeated begins

        window.activateWindow();
        line.setFocus();
        const double before = deck.position();
        QTest::keyClick(&line, Qt::Key_Right);
        QVERIFY(near(before + 1.0));
        QTest::keyClick(&line, Qt::Key_Left, Qt::ShiftModifier);
        QVERIFY(near(before - 9.0));
        QTest::keyClick(&line, Qt::Key_BracketLeft);
        QTest::keyClick(&line, Qt::Key_End);
        QVERIFY(near(100.0));
        QTest::keyClick(&line, Qt::Key_Home);
        QVERIFY(near(0.0));
        QTest::keyClick(&line, Qt::Key_Period);
        QTest::keyClick(&line, Qt::Key_Period);
        QCOMPARE(deck.spot().time, 0.02);
        QTest::keyClick(&line, Qt::Key_Comma);
        clock.advance(0.02);
        QCOMPARE(deck.spot().time, 0.01);
        QVERIFY(deck.loop().has_value());
        QTest::keyClick(&line, Qt::Key_Backspace);
        QVERIFY(!deck.loop().has_value());
        auto *speed = panel->findChild<QComboBox *>("tapeSpeed");
        QTest::keyClick(speed, Qt::Key_End);
        QCOMPARE(deck.speed(), 0.0);
        QTest::keyClick(speed, Qt::Key_Home);
        QCOMPARE(deck.speed(), 0.1);
        QTest::keyClick(&line, Qt::Key_Return);
        QVERIFY(deck.isPlaying());
        for (const QWidget *part : panel->findChildren<QToolButton *>())
            QVERIFY(!part->accessibleName().isEmpty());
        QVERIFY(!line.accessibleName().isEmpty());

        // A tape that waits is not stale.
        deck.pause();
        clock.advance(10.0);
        QVERIFY(!session.isStale());
    }

    void numbersOnTheTape()
    {
        TapeReadout readout;
        readout.time = 312.0;
        readout.number = 312;
        readout.count = 935;
        QCOMPARE(TapeText::place(readout, 934.0), QString("reading 312 of 935"));
        readout.isSpot = true;
        QCOMPARE(TapeText::place(readout, 934.0), QString("spot 312 of 935"));
        QCOMPARE(TapeText::numberStep(934.0, 8), 200.0);
        QCOMPARE(TapeText::numberStep(3.0, 8), 1.0);
    }

    void timesOnTheTape_data()
    {
        columns<double, double, QString, QString>("seconds", "length", "text", "exact");
        row("short", 0.25, 0.5, "0.2500 s", "0.250 s");
        row("before the zero", -65.0, 200.0, "-1:05", "-1:05.000");
        row("since 1970", 1772366400.25, 1000.0, "1772366400 s", "1772366400.250 s");
        row("seconds", 12.345, 50.0, "12.35 s", "12.345 s");
        row("minutes", 185.25, 1000.0, "3:05", "3:05.250");
        row("hours", 3723.9, 10000.0, "1:02:03", "1:02:03.900");
        row("a fraction that becomes a minute", 59.9999, 1000.0, "0:59", "1:00.000");
    }
    void timesOnTheTape()
    {
        QFETCH(double, seconds);
        QFETCH(double, length);
        QTEST(TapeText::time(seconds, length), "text");
        QTEST(TapeText::exactTime(seconds, length), "exact");
    }

    //! Beside the texts of times stand times that are round on a clock, not in the decimal system.
    void stepsOnTheTape()
    {
        const struct
        {
            double length;
            int most;
            double step;
        } cases[] = {{0.3, 8, 0.05},     {50.0, 6, 10.0},         {170.0, 6, 30.0},
                     {1035.0, 6, 300.0}, {5.0 * 3600, 6, 3600.0}, {604800.0, 5, 2.0 * 86400}};
        for (const auto &given : cases)
            QCOMPARE(TapeText::timeStep(given.length, given.most), given.step);
    }

    //! What the controls say is what the table becomes, and what is asked once is remembered.
    void aTableOfAnotherProgramIsAskedAbout()
    {
        const QString path = m_dir.filePath("other.csv");
        putFile(path, "left_nA;right_nA\n1,5;2\n2,5;3\n");
        ImportDialog dialog(path);
        auto *rows = dialog.findChild<QTableWidget *>("importRows");
        auto *open = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Open);
        QVERIFY(dialog.findChild<QLabel *>("importReason")
                    ->text()
                    .contains("no column holds the time"));
        QVERIFY(!open->isEnabled());
        QCOMPARE(rows->item(1, 0)->text() + ' ' + rows->item(1, 1)->text(), QString("? 2.5"));
        QCOMPARE(dialog.focusWidget()->objectName(), QString("importInterval"));
        QTest::keyClicks(dialog.focusWidget(), "1ms");
        QVERIFY(open->isEnabled());
        QCOMPARE(rows->rowCount(), 2);
        QCOMPARE(rows->horizontalHeaderItem(1)->text(), QString("left (nA)"));
        QCOMPARE(rows->item(1, 0)->text() + ' ' + rows->item(1, 1)->text(), QString("0.001 2.5"));
        QCOMPARE(dialog.options().text(),
                 QString("delimiter=semicolon,decimal=comma,interval=0.001"));
        auto *decimal = dialog.findChild<QComboBox *>("importDecimal");
        decimal->setCurrentIndex(0);
        QCOMPARE(rows->item(0, 1) ? rows->item(0, 1)->text() : QString("none"), QString("none"));
        decimal->setCurrentIndex(1);

        WindowSettings settings(m_dir.filePath("import.xui"));
        QTimer::singleShot(0, this, [] {
            auto *asked = qobject_cast<ImportDialog *>(QApplication::activeModalWidget());
            QTest::keyClicks(asked->findChild<QLineEdit *>("importInterval"), "2ms");
            asked->accept();
        });
        const auto first = ImportDialog::optionsFor(path, &settings);
        QVERIFY(first && first->interval == 2e-3);
        const QString other = m_dir.filePath("of the same kind.csv");
        putFile(other, "left_nA;right_nA\n4,5;6\n");
        const auto again = ImportDialog::optionsFor(other, &settings); // without a question
        QVERIFY(again && again->text() == first->text());
        // The same names above times of another kind, which the answer for the first file cannot read.
        for (const char *times :
             {"2026-11-22T10:00:00;1,5\n2026-11-22T10:00:01;2,5\n", "10;1,5\n11;2,5\n"}) {
            putFile(other, QByteArray("when;a_nA\n") + times);
            bool isAsked = false;
            QTimer::singleShot(0, this, [&isAsked] {
                isAsked = true;
                qobject_cast<QDialog *>(QApplication::activeModalWidget())->accept();
            });
            QVERIFY(ImportDialog::optionsFor(other, &settings) && isAsked);
        }
        putFile(path, "time_s,a\n0,1\n");
        QVERIFY(ImportDialog::optionsFor(path, &settings)->isUsual());
    }

    //! Two recordings that overlap have one tape, charts that end at the same moment, and no tape too many when one is closed.
    void recordingsOfAWindowShareATape()
    {
        const auto table = [](const char *second, int rows) {
            QByteArray text = QByteArray("#corvale 1\n#channels a\n#unit nA\n#t0 2026-11-22T14:00:")
                + second + ".000Z\n";
            for (int i = 0; i <= rows; ++i)
                text += QByteArray::number(0.1 * i, 'f', 1) + ',' + QByteArray::number(i % 50)
                    + (i == rows / 2 ? "\n#event half\n" : "\n");
            return text;
        };
        putFile(m_dir.filePath("lead.csv"), table("10", 200));
        putFile(m_dir.filePath("halo.csv"), table("05", 150));
        ManualClock clock;
        const auto source = [&](const QString &name) {
            return std::make_unique<FileSource>(clock, m_dir.filePath(name), FileSource::Options());
        };
        Session session(clock, source("lead.csv"));
        MonitorWindow window(session, m_dir.filePath("shared.xui"));
        window.resize(1024, 900);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        session.start();
        window.companions().add({"halo", "halo.csv"}, source("halo.csv")).start();
        auto *panel = window.findChild<TapePanel *>();
        QTRY_VERIFY((clock.advance(0.02), panel->deck().isIndexed()));
        QCOMPARE(panel->deck().length(), 25.0);
        QCOMPARE(panel->timeline().xOf(25.0) - panel->timeline().xOf(0.0),
                 panel->timeline().width() - 2 * TapeSketch::margin - 1);
        panel->deck().pause();
        const auto times = [&] {
            QStringList texts{panel->findChild<QLabel *>("tapePosition")->text()};
            for (const Companions::Member &member : window.companions().members()) {
                const MultichannelDeviceModel &model = member.session->model();
                texts += QString::number(model.doubleData(model.rowCount() - 1, 0));
            }
            QStringList ends; // of the charts, in no order
            for (const auto *view : window.findChildren<Corvale_Qt::RVXScopePlotView *>())
                ends += QString::number(view->timeEnd());
            ends.sort();
            texts += ends;
            return texts.join(' ');
        };
        panel->deck().seek(12.05); // 7.05 s after the lead began
        clock.advance(0.2);
        QCOMPARE(times(), QString("7.050 s 7 12 12 7"));
        panel->deck().seek(22.0); // the other has ended
        clock.advance(0.2);
        QCOMPARE(times(), QString("17.000 s 17 15 17 22"));
        QTest::mouseClick(&panel->timeline(), Qt::LeftButton, {}, {panel->timeline().xOf(2.0), 10});
        clock.advance(0.2);
        QCOMPARE(session.model().rowCount(), 1); // it has not begun
        // The click gave it the focus, whose mark does not cover what is shown.
        QTRY_VERIFY(panel->timeline().hasFocus());
        const QImage shown = panel->timeline().grab().toImage();
        const QPoint place(panel->timeline().xOf(3.0), TapeSketch::flagHeight + 4);
        QCOMPARE(shown.pixelColor(place * shown.devicePixelRatio()),
                 panel->timeline().palette().color(QPalette::Base));
        window.companions().closeAll();
        panel = window.findChild<TapePanel *>();
        QVERIFY(dynamic_cast<TapeDeck *>(&panel->deck()));
        QCOMPARE(window.findChildren<TapePanel *>().size(), 1);
    }

private:
    QTemporaryDir m_dir;
};

CORVALE_QT_TEST_MAIN(tst_TapePanel)
#include "tst_TapePanel.moc"
