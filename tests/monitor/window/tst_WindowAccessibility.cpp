// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/ConnectDialog.h"
#include "monitor/dialogs/SettingsDialog.h"
#include "monitor/window/Appearance.h"
#include "monitor/window/BigText.h"
#include "monitor/window/EventLog.h"
#include "monitor/window/TriggerDialog.h"
#include "tests/monitor/support/Contrast.h"
#include "tests/monitor/support/Dialogs.h"
#include "tests/monitor/support/FocusMark.h"
#include "tests/monitor/support/WindowInTest.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/scope/RVXScopePlotView.h>

using namespace Monitor;

//! What a person sees, hears and reaches who does not see well, sits far away or has no mouse.
class tst_WindowAccessibility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    //! A screen reader hears the values, the chart and the states of the window.
    void theWindowSpeaks()
    {
        const auto heard = [](QWidget *widget, QAccessible::Text kind) {
            return QAccessible::queryAccessibleInterface(widget)->text(kind);
        };
        SmallWindow w(file("speech.xui"));
        w.source->begin(StreamKind::Channels, 2, "nA");
        w.run(3);
        w.settle();
        w.session.setPaused(true);
        QCOMPARE(heard(w.values(), QAccessible::Name), QString("Latest values"));
        QAccessibleTableInterface *table =
            QAccessible::queryAccessibleInterface(w.values())->tableInterface();
        QCOMPARE(table->cellAt(1, 1)->text(QAccessible::Name), w.value(1));
        QWidget *chart = w.window.displays().scope()->plotView();
        const QString said = heard(chart, QAccessible::Description);
        QVERIFY2(said.startsWith("Strip, live") && said.contains(w.value(1)), qPrintable(said));
        QWidget *states = w.window.statusBar()->findChild<QLabel *>("notices");
        QVERIFY(heard(states, QAccessible::Name).contains("PAUSED"));
        QVERIFY(heard(states, QAccessible::Description).contains("Space"));
    }

    //! Longer names and wider letters need more room beside the values, and give it back.
    void namesOfChannelsCanBeRead()
    {
        SmallWindow w(file("names.xui"));
        QWidget *panel = w.values()->parentWidget();
        const auto leastWidth = [&](const char *name) {
            StreamHeader header;
            header.channels = {{name, "nA"}};
            w.source->begin(header);
            w.source->give(1.0, {2.0});
            w.settle();
            return panel->minimumSizeHint().width();
        };
        const int narrow = leastWidth("a");
        QVERIFY(leastWidth("the strip far left") > narrow);
        QCOMPARE(leastWidth("a"), narrow);
        leastWidth("strip");
        QFont spread = panel->font(); // as high as before, so that no row changes
        spread.setLetterSpacing(QFont::AbsoluteSpacing, 5.0);
        panel->setFont(spread);
        const int ofSpread = panel->minimumSizeHint().width();
        QCOMPARE(leastWidth("strip"), ofSpread);
    }

    void theTriggerIsSetByKeyboard()
    {
        WindowInTest w(file("trigger.xui"));
        w.source->begin(StreamKind::Channels, 2, "nA");
        w.run(300);
        QVERIFY(QTest::qWaitForWindowActive(&w.window));
        QTest::keyClick(&w.window, Qt::Key_F7);
        QCOMPARE(w.window.displays().currentDisplay(), QString("scope"));
        auto *dialog = w.window.findChild<TriggerDialog *>();
        QVERIFY(dialog->isVisible());
        const auto type = [&](const char *field, const char *text) {
            auto *edit = dialog->findChild<QLineEdit *>(field);
            edit->selectAll();
            QTest::keyClicks(edit, text);
        };
        QTest::keyClick(dialog->findChild<QComboBox *>("mode"), 'N'); // Normal
        QTest::keyClick(dialog->findChild<QComboBox *>("channel"), Qt::Key_Down);
        QTest::keyClick(dialog->findChild<QComboBox *>("edge"), 'F');
        type("level", "1000.5");
        type("hysteresis", "0.5");
        type("holdOff", "2");
        const auto *view = w.window.displays().scope()->plotView();
        const Corvale_Qt::SweepTrigger trigger = view->trigger();
        QCOMPARE(trigger.mode, Corvale_Qt::SweepTrigger::Mode::Normal);
        QCOMPARE(trigger.channel, 2);
        QCOMPARE(trigger.edge, Corvale_Qt::SweepTrigger::Edge::Falling);
        QCOMPARE(QPointF(trigger.level, trigger.hysteresis), QPointF(1000.5, 0.5));
        QCOMPARE(trigger.holdOff, 2.0);
        QCOMPARE(dialog->findChild<QLabel *>("state")->text(), QString("Armed"));
        type("level", "1,5");
        QVERIFY(dialog->findChild<QLabel *>("state")->text().contains("decimal point"));
        QCOMPARE(view->trigger().level, 1.0); // what was typed before the comma
    }

    //! Text and symbols stand out from what is behind them, in the window and on the pages of its settings.
    void everythingStandsOut_data()
    {
        QTest::addColumn<int>("choice");
        QTest::newRow("as the desktop") << int(Appearance::Choice::Desktop);
        QTest::newRow("light") << int(Appearance::Choice::Light);
        QTest::newRow("dark") << int(Appearance::Choice::Dark);
    }
    void everythingStandsOut()
    {
        WindowInTest w(file("contrast.xui"));
        w.source->begin(StreamKind::Strips, 64);
        w.run(3);
        w.session.setPaused(true); // a state that the window marks
        w.window.findChild<Appearance *>()->choose(Appearance::Choice(cell<int>("choice")));
        QCoreApplication::processEvents();
        int looked = 0;
        QStringList pale = paleParts(&w.window, looked);
        SettingsDialog settings(MonitorOptions(), file("contrast.xui"));
        settings.show();
        auto *pages = settings.findChild<QTabWidget *>();
        for (int page = 0; page < pages->count(); ++page) {
            pages->setCurrentIndex(page);
            pale += paleParts(&settings, looked);
        }
        ConnectDialog connection(w.clock, {});
        connection.show();
        auto *kinds = connection.findChild<QListWidget *>("kinds");
        for (int row = 0; row < kinds->count(); ++row) {
            kinds->setCurrentRow(row);
            pale += paleParts(&connection, looked);
        }
        const auto *log = w.window.findChild<EventLog *>();
        const QRgb page = log->textBrowser()->palette().color(QPalette::Base).rgb();
        QVERIFY(contrast(log->errorColor().rgb(), page) > 4.5);
        QVERIFY(contrast(log->warningColor().rgb(), page) > 4.5);
        BigText old;
        old.resize(400, 200);
        old.setLines({"left", "1.5 nA"});
        old.setFaint(true);
        QVERIFY(contrastIn(old.grab().toImage()) > 4.5);
        QCOMPARE(pale.join('\n'), QString());
        QVERIFY2(looked > 60, qPrintable(QString::number(looked)));
    }

    void theFocusIsSeen_data()
    {
        QTest::addColumn<int>("choice");
        QTest::newRow("as the desktop") << int(Appearance::Choice::Desktop);
        QTest::newRow("light") << int(Appearance::Choice::Light);
        QTest::newRow("dark") << int(Appearance::Choice::Dark);
    }
    void theFocusIsSeen()
    {
        WindowInTest w(file("focus.xui"));
        w.source->begin(StreamKind::Strips, 64);
        w.run(3);
        w.session.setPaused(true);
        w.window.findChild<Appearance *>()->choose(Appearance::Choice(cell<int>("choice")));
        QTRY_VERIFY((w.window.activateWindow(), QApplication::activeWindow() == &w.window));
        QTabWidget *pages = &w.window.displays();
        QSet<QWidget *> seen;
        QStringList unseen;
        for (int page = 0; page < pages->count(); ++page) {
            pages->setCurrentIndex(page);
            w.window.setFocus(); // the tabs may have had the focus from the beginning
            pages->tabBar()->setFocus(Qt::TabFocusReason);
            QSet<QWidget *> stops;
            for (QWidget *stop = pages->tabBar(); !stops.contains(stop);
                 stop = QApplication::focusWidget()) {
                stops.insert(stop);
                const double mark = focusContrast(stop);
                if (mark < 3.0) // WCAG 2.1, 1.4.11
                    unseen.append(QString("%1 %2: %3")
                                      .arg(stop->metaObject()->className(), stop->objectName())
                                      .arg(mark, 0, 'f', 2));
                press(Qt::Key_Tab);
            }
            seen += stops;
        }
        // A click needs no mark: the pointer is there.
        QTest::mouseClick(w.values()->viewport(), Qt::LeftButton);
        QCOMPARE(QApplication::focusWidget(), w.values());
        QVERIFY(!w.window.findChild<QWidget *>("focusRing"));
        QCOMPARE(unseen.join('\n'), QString());
        QVERIFY2(seen.size() > 40, qPrintable(QString::number(seen.size())));
    }

    //! Figures are read from afar if they are as high as a 200th of the distance.
    void bigNumbersAreReadFromAfar_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<double>("metres");
        const QStringList beam{"Beam  DATA VALID, FIT POOR",
                               QString("X -12.34 mm\t\u03c3 12.34 mm"),
                               QString("Y -12.34 mm\t\u03c3 12.34 mm")};
        QTest::newRow("a channel, as it opens")
            << QSize(1000, 455) << QStringList{"left", "-123.456 nA"} << 5.0;
        QTest::newRow("the beam, as it opens") << QSize(1000, 455) << beam << 3.0;
        QTest::newRow("the beam on the smallest screen")
            << WindowInTest::smallScreen << beam << 4.0;
        QTest::newRow("the beam on a usual screen") << QSize(1920, 1040) << beam << 5.0;
    }
    void bigNumbersAreReadFromAfar()
    {
        QFETCH(QSize, size);
        QFETCH(QStringList, lines);
        QFETCH(double, metres);
        constexpr double pixel = 25.4e-3 / 96; // m
        BigText text;
        text.resize(size);
        text.setLines(lines);
        const QImage picture = text.grab().toImage();
        const double perPixel = 200 * pixel / picture.devicePixelRatio();
        const auto hasInk = [&picture](int y) {
            for (int x = 0; x < picture.width(); ++x)
                if (qGray(picture.pixel(x, y)) < 100)
                    return true;
            return false;
        };
        int highest = 0;
        for (int y = 0, ink = 0; y < picture.height(); ++y) {
            ink = hasInk(y) ? ink + 1 : 0;
            highest = std::max(highest, ink);
        }
        QVERIFY2(highest * perPixel >= metres, qPrintable(QString::number(highest * perPixel)));

        // Other figures do not change the size, and a longer number is not cut. A long title takes nothing from them.
        const int before = text.pixelSize();
        QStringList titled = lines;
        titled[0] += " SIMULATED, BACKGROUND SUBTRACTED";
        text.setLines(titled);
        QCOMPARE(text.pixelSize(), before);
        QStringList others = lines;
        text.setLines(others.replaceInStrings("4", "1"));
        QCOMPARE(text.pixelSize(), before);
        text.setLines(others.replaceInStrings("-", "")); // a sign that goes makes a little room
        QCOMPARE(text.pixelSize(), before);
        text.setLines(others.replaceInStrings("1", "111111111"));
        QVERIFY(text.pixelSize() < before);
    }

private:
    QString file(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_WindowAccessibility)
#include "tst_WindowAccessibility.moc"
