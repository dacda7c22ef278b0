// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/ConnectDialog.h"
#include "monitor/dialogs/SettingsDialog.h"
#include "monitor/program/Language.h"
#include "monitor/sources/FileSource.h"
#include "monitor/tape/TapeDeck.h"
#include "monitor/window/Appearance.h"
#include "monitor/window/Baseline.h"
#include "monitor/window/BigNumbers.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/EventLog.h"
#include "monitor/window/ImportDialog.h"
#include "monitor/window/KeptConnections.h"
#include "monitor/window/KeptOptions.h"
#include "monitor/window/LatestValuePanel.h"
#include "monitor/window/MonitorWindow.h"
#include "monitor/window/NoticeLine.h"
#include "monitor/window/ScreenFit.h"
#include "monitor/window/SourceSwitch.h"
#include "monitor/window/StatusField.h"
#include "monitor/window/TapePanel.h"
#include "monitor/window/WindowSettings.h"
#include "tests/monitor/support/Dialogs.h"
#include "tests/monitor/support/ScriptedSession.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/beam/profile/RVXPositionPlot.h>
#include <corvale_qt/models/RVXAbstractPlotDataModel.h>
#include <corvale_qt/scope/RVXScope.h>

#include <qwt_plot.h>

using namespace Monitor;

namespace {

constexpr QSize smallScreen{1024, 600};

struct DoorInTest : ScriptedSession
{
    explicit DoorInTest(const QString &settings)
        : window(session, settings)
    {
        window.resize(smallScreen);
        window.show();
        session.start();
    }
    QAction *action(const char *name) const
    {
        for (QMenu *menu : window.menuBar()->findChildren<QMenu *>())
            for (QAction *entry : menu->actions())
                if (entry->objectName() == QLatin1String(name))
                    return entry;
        for (QMenu *menu : window.findChildren<QMenu *>())
            for (QAction *entry : menu->actions())
                if (entry->objectName() == QLatin1String(name))
                    return entry;
        return nullptr;
    }
    QList<QMenu *> menus() const
    {
        QList<QMenu *> menus;
        for (const QAction *entry : window.menuBar()->actions())
            menus.append(entry->menu());
        for (int i = 0; i < menus.size(); ++i)
            for (const QAction *entry : menus.at(i)->actions())
                if (entry->menu())
                    menus.append(entry->menu());
        return menus;
    }
    QString log() const { return window.findChild<EventLog *>()->textBrowser()->toPlainText(); }
    QString value(int row) const
    {
        return window.findChild<QTableView *>("latestValues")
            ->model()
            ->index(row, 1)
            .data()
            .toString();
    }
    //! Returns the newest value of a channel as the table has it, in the unit of the stream.
    double number(int row) const
    {
        return window.findChild<QTableView *>("latestValues")
            ->model()
            ->index(row, 1)
            .data(Corvale_Qt::RVXAbstractPlotDataModel::NumericValueRole)
            .toDouble();
    }
    QString notice(const char *name) const { return window.findChild<NoticeLine *>(name)->text(); }

    MonitorWindow window;
};

//! Returns the letter after the ampersand, in upper case; a null character without one.
QChar mnemonicOf(QString text)
{
    text.remove("&&");
    const int mark = text.indexOf('&');
    return mark < 0 ? QChar() : text.at(mark + 1).toUpper();
}

//! Returns the keys of the buttons and labels in a window, each as "Alt+A: &Automatic".
QStringList mnemonicsIn(const QWidget *window)
{
    QStringList keys;
    const auto add = [&](const QWidget *part, const QString &text) {
        if (part->window() == window && part->isVisibleTo(window) && !mnemonicOf(text).isNull())
            keys.append(QString("Alt+%1: %2").arg(mnemonicOf(text)).arg(text));
    };
    for (const QAbstractButton *button : window->findChildren<QAbstractButton *>())
        add(button, button->text());
    for (const QLabel *label : window->findChildren<QLabel *>())
        if (label->buddy())
            add(label, label->text());
    for (const QTabBar *bar : window->findChildren<QTabBar *>())
        for (int tab = 0; tab < bar->count(); ++tab)
            add(bar, bar->tabText(tab));
    return keys;
}

//! Returns keys that more than one text in a window claims.
QStringList clashesIn(const QWidget *window)
{
    QMap<QString, QString> owners;
    QStringList clashes;
    for (const QString &mnemonic : mnemonicsIn(window)) {
        const QString key = mnemonic.section(':', 0, 0);
        if (owners.contains(key))
            clashes.append(owners.value(key) + " and " + mnemonic);
        owners.insert(key, mnemonic);
    }
    return clashes;
}

//! Shows what is opened while it lives in one language.
struct InLanguage
{
    explicit InLanguage(const QString &code) { installLanguage(code); }
    ~InLanguage() { installLanguage("en"); }
};

void addLanguages()
{
    QTest::addColumn<QString>("language");
    for (const char *language : {"en", "de", "fr", "ja"})
        QTest::newRow(language) << QString(language);
}

/*! Hears which texts are asked for. It translates none, so that the translators behind it do. */
class TextListener : public QTranslator
{
public:
    TextListener() { QCoreApplication::installTranslator(this); }
    ~TextListener() override { QCoreApplication::removeTranslator(this); }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        m_heard.insert(qMakePair(QString::fromUtf8(context), QString::fromUtf8(text)));
        return QString();
    }
    bool isEmpty() const override { return false; }
    //! Returns the texts that were asked for, each with its context.
    QSet<QPair<QString, QString>> heard() const { return m_heard; }

private:
    mutable QSet<QPair<QString, QString>> m_heard;
};

} // namespace

//! The menus and dialogs of the window, by keyboard and by mouse, on a small screen.
class tst_FrontDoor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void keysAndMnemonicsDoNotClash_data() { addLanguages(); }
    void keysAndMnemonicsDoNotClash()
    {
        QFETCH(QString, language);
        const InLanguage inLanguage(language);
        DoorInTest w(file("keys.xui"));
        QMap<QString, QString> owners;
        QSet<const QAction *> inMenus;
        QStringList clashes;
        const auto claim = [&](const QString &key, const QString &owner) {
            if (owners.contains(key))
                clashes.append(key + ": " + owners.value(key) + ", " + owner);
            owners.insert(key, owner);
        };
        for (const QAction *menu : w.window.menuBar()->actions())
            claim(QString("Alt+") + mnemonicOf(menu->text()), menu->text());
        for (QMenu *menu : w.menus()) {
            for (const QAction *entry : menu->actions()) {
                if (entry->isSeparator())
                    continue;
                const QChar letter = mnemonicOf(entry->text());
                if (!letter.isNull())
                    claim(menu->title() + " " + letter, entry->text());
                for (const QKeySequence &keys : entry->shortcuts())
                    claim(keys.toString(), entry->text());
                inMenus.insert(entry);
            }
        }
        for (const QAction *action : w.window.findChildren<QAction *>())
            for (const QKeySequence &keys : action->shortcuts())
                if (!inMenus.contains(action) && !keys.isEmpty())
                    claim(keys.toString(), action->text() + action->objectName());
        for (const QShortcut *shortcut : w.window.findChildren<QShortcut *>())
            claim(shortcut->key().toString(), shortcut->parent()->objectName());
        for (const QString &mnemonic : mnemonicsIn(&w.window))
            claim(mnemonic.section(':', 0, 0), mnemonic);
        QCOMPARE(clashes.join("; "), QString());
        QVERIFY(owners.size() > 50);
    }

    void mnemonicsOfDialogsDoNotClash_data() { addLanguages(); }
    void mnemonicsOfDialogsDoNotClash()
    {
        QFETCH(QString, language);
        const InLanguage inLanguage(language);
        ManualClock clock;
        SettingsDialog settings(MonitorOptions(), file("dialog.xui"));
        auto *pages = settings.findChild<QTabWidget *>();
        QStringList clashes;
        for (int page = 0; page < pages->count(); ++page) {
            pages->setCurrentIndex(page);
            clashes += clashesIn(&settings);
        }
        ConnectDialog connection(clock, {});
        auto *kinds = connection.findChild<QListWidget *>("kinds");
        for (int row = 0; row < kinds->count(); ++row) {
            kinds->setCurrentRow(row);
            clashes += clashesIn(&connection);
        }
        QCOMPARE(clashes.join("; "), QString());
    }

    /*! A text whose context the catalogs do not know would stay English. The lines of the log and what goes into files are
        English on purpose. */
    void everyTextIsFoundInTheCatalogs()
    {
        const InLanguage german("de");
        QTranslator catalogs[2];
        QVERIFY(catalogs[0].load(":/corvale_qt/translations/corvale_qt_de"));
        QVERIFY(catalogs[1].load(":/corvale_monitor/translations/corvale_monitor_de"));
        const TextListener listener;
        DoorInTest w(file("texts.xui"));
        QCOMPARE(w.action("settings")->text().remove('&'), QString("Einstellungen..."));
        w.source->begin(StreamKind::Pixels, 64);
        w.run(3);
        w.settle();
        ConnectDialog connection(w.clock, {});
        SettingsDialog settings(MonitorOptions(), file("texts.xui"));
        QStringList missing;
        for (const auto &[context, text] : listener.heard()) {
            const QByteArray inContext = context.toUtf8(), source = text.toUtf8();
            const bool isOurs = context.startsWith("Corvale_Qt") || context.startsWith("Monitor");
            const bool isLogged = context == "Monitor::EventLog";
            if (isOurs && !isLogged && !text.isEmpty()
                && catalogs[0].translate(inContext, source).isEmpty()
                && catalogs[1].translate(inContext, source).isEmpty())
                missing.append(context + ": " + text);
        }
        QCOMPARE(missing.join("; "), QString());
        QVERIFY(listener.heard().size() > 300);
    }

    void recordingsAndLogsAreTheSameInEveryLanguage()
    {
        const QString table = file("faults.csv");
        putFile(table,
                "#limits a ,,2,2.5\n#pitch x -1\n#dead "
                "77\ntime_s,a_nA,b_nA\n0,1,2\n1,none,3\n2,3,5\n3,1,2\n");
        const auto run = [&](const QString &language) {
            const InLanguage inLanguage(language);
            QFile::remove(file("said.csv"));
            DoorInTest w(file(qPrintable(language + "-said.xui")));
            w.window.sources().open(table);
            w.record(file("said.csv"));
            w.clock.advance(2.0);
            w.clock.advance(3.0);
            w.session.stopRecording();
            return w.log() + QString::fromUtf8(fileContents(file("said.csv")));
        };
        const QString english = run("en");
        QVERIFY2(english.contains("not used") && english.contains("recording to"),
                 qPrintable(english));
        QCOMPARE(run("ja"), english);
        QCOMPARE(run("de"), english);
    }

    void aSourceIsConnectedByKeyboardAlone()
    {
        DoorInTest w(file("keyboard.xui"));
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
        DoorInTest w(file("replace.xui"));
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
        onNextDialog([](QDialog *question) {
            clickButton(question, "End the recording");
        });
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
        DoorInTest w(file("tape.xui"));
        const QString table = file("tape.csv");
        putFile(table, "time_s,a_nA\n0,1\n1,2\n2,3\n");
        const auto tape = [&] {
            return w.window.findChild<TapePanel *>();
        };
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

    //! Tape, legend, time span and panels leave the plot half of a small window.
    void thePlotHasMostOfASmallWindow()
    {
        DoorInTest w(file("room.xui"));
        const QString table = file("seven.csv");
        putFile(table,
                "time_s,a_nA,b_nA,c_nA,d_nA,e_nA,f_nA,g_nA\n0,1,2,3,4,5,6,7\n1,1,2,3,4,5,6,7\n");
        QVERIFY(w.window.sources().open(table));
        w.clock.advance(2.0);
        w.window.displays().showDisplay("strip");
        w.window.resize(smallScreen);
        const auto *plot = w.window.displays().scope()->findChild<QwtPlot *>();
        QTRY_VERIFY2(plot->height() >= smallScreen.height() / 2,
                     qPrintable(QString::number(plot->height())));
    }

    void aTableOfAnotherProgramIsAskedAboutWhenItIsOpened()
    {
        DoorInTest w(file("import.xui"));
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

    void eachSourceHasItsOwnDetector()
    {
        const QString settings = file("detectors.xui");
        const QString strips = file("strips.json");
        putFile(strips, R"({"detector":1,"kind":"strips","x":{"cells":64,"pitch":2,"unit":"mm"}})");
        WindowSettings(settings).setDetectorFile("sim:strips", strips);
        DoorInTest w(settings);
        QVERIFY(w.window.sources().open("sim:strips"));
        QVERIFY(w.log().contains("the detector is that of " + strips));
        QVERIFY(w.window.sources().open("sim:ic4"));
        w.clock.advance(1.0);
        QVERIFY(w.session.model().header().detector.isEmpty());
        QCOMPARE(w.log().count("the detector is not used"), 0);
    }

    void aFileIsDroppedOnTheWindow()
    {
        DoorInTest w(file("drop.xui"));
        const QString table = file("dropped.csv");
        putFile(table, "time_s,a_nA\n0,1\n1,2\n");
        QMimeData data;
        const auto drop = [&](const QList<QUrl> &urls) {
            data.setUrls(urls);
            QDragEnterEvent enter({100, 100},
                                  Qt::CopyAction,
                                  &data,
                                  Qt::LeftButton,
                                  Qt::NoModifier);
            QCoreApplication::sendEvent(&w.window, &enter);
            QDropEvent event({100, 100}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&w.window, &event);
        };
        drop({QUrl("http://example.org/a.csv")});
        drop({QUrl::fromLocalFile(table), QUrl::fromLocalFile(table)});
        QCoreApplication::processEvents();
        QCOMPARE(w.window.sources().current(), QString());
        drop({QUrl::fromLocalFile(table)});
        QTRY_COMPARE(w.window.sources().current(), table);
    }

    void sourcesAreTried_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QStringList>("told");
        putFile(file("good.csv"), "time_s,left_nA,right_nA\n0,1,2\n1,3,\n");
        putFile(file("bad.csv"), "<html>\n<body>\n");
        QTest::newRow("a table") << file("good.csv")
                                 << QStringList{"The source works",
                                                "  time_s,left_nA,right_nA",
                                                "Read as 2 channels, layout channels",
                                                "t 0 s: left 1 nA, right 2 nA",
                                                "right none nA"};
        QTest::newRow("a file without readings")
            << file("bad.csv") << QStringList{"contains no readings", "  <html>"};
        QTest::newRow("no file") << file("none.csv")
                                 << QStringList{"cannot be opened", "Check the path"};
        QTest::newRow("no source") << "sim:nothing" << QStringList{"there is no simulator"};
    }
    void sourcesAreTried()
    {
        QFETCH(QString, source);
        QFETCH(QStringList, told);
        ManualClock clock;
        SourceTest test(clock);
        test.start(source, {});
        for (const QString &text : told)
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
            "/data/a & b.csv",
            "-"};
        ManualClock clock;
        {
            ConnectDialog dialog(clock, {});
            for (const QString &source : sources) {
                dialog.setSource(source);
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
        const auto type = [&](const char *name, const QString &text) {
            dialog.findChild<QLineEdit *>(QLatin1String(name))->setText(text);
        };
        const auto fault = [&] {
            dialog.accept();
            return dialog.findChild<QLabel *>("fault")->text();
        };
        type("from", "10");
        type("to", "5");
        QVERIFY2(fault().contains("nothing between 10 s and 5 s"), qPrintable(fault()));
        type("to", "20");
        type("low", "-1e-6");
        QVERIFY(fault().contains("two numbers"));
        type("high", "1e-6");
        type("rotation", "often");
        QVERIFY(fault().contains("30min"));
        type("rotation", "1h");
        dialog.findChild<QCheckBox *>("compress")->setChecked(true);
        type("detector", file("no.json"));
        QVERIFY(!fault().isEmpty());
        type("detector", "preset:none");
        QVERIFY2(fault().contains("there are preset:strips64, "), qPrintable(fault()));
        dialog.findChild<QPushButton *>("presets")->menu()->actions().first()->trigger();
        QCOMPARE(dialog.options().detectorFile, QString("preset:strips64"));
        type("minimumSum", "half");
        QVERIFY(fault().contains("is no number"));
        type("minimumSum", "0.5");
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
        QCOMPARE(kept.file.speed, 2.5);
        QCOMPARE(kept.rangeHigh, 1e-6);
        QCOMPARE(kept.language, QString("de"));
        QCOMPARE(kept.rotation, QString("1h"));
        QVERIFY(kept.compress);
        QCOMPARE(kept.minimumSum, 0.5);
        QCOMPARE(kept.detectorFile, QString("preset:strips64"));
        QVERIFY(std::isinf(kept.file.to)); // belongs to one file
    }

    void clearingIsAskedAndUndone()
    {
        DoorInTest w(file("clear.xui"));
        w.source->begin(StreamKind::Channels, 2);
        w.run(20);
        w.settle();
        onNextDialog([](QDialog *question) {
            QVERIFY(
                question->findChild<QLabel *>("qt_msgbox_label")->text().contains("20 samples"));
        });
        w.action("clear")->trigger();
        QCOMPARE(w.session.model().rowCount(), 21);
        onNextDialog([](QDialog *question) {
            clickButton(question, "Remove the samples");
        });
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

        // The same for a period, which is set back too.
        auto *period = w.window.displays().scope()->findChild<QComboBox *>("comboBox_period");
        onNextDialog([](QDialog *question) {
            clickButton(question, "Remove the samples");
        });
        period->setCurrentIndex(2);
        QCOMPARE(w.window.displays().scope()->period(), 1000);
        w.action("undoClear")->trigger();
        QCOMPARE(w.window.displays().scope()->period(), 0);
        QCOMPARE(w.session.model().rowCount(), 24);

        w.window.displays().scope()->clear();
        QVERIFY(w.action("undoClear")->isEnabled());
        w.clock.advance(61.0);
        QVERIFY(!w.action("undoClear")->isEnabled());
    }

    void theZeroReachesEveryDisplay()
    {
        DoorInTest w(file("zero.xui"));
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
        BigNumbers big(w.session,
                       w.window.displays(),
                       *w.window.findChild<LatestValuePanel *>(),
                       nullptr);
        QCOMPARE(big.lines(), QStringList({"left  ZEROED", w.value(0)}));
        QVERIFY2(w.value(0).startsWith("1") && w.value(0).endsWith("nA"), qPrintable(w.value(0)));
        w.action("removeZero")->trigger();
        QCOMPARE(w.number(1), 5.0);
        QVERIFY(w.window.findChild<QLabel *>("valueState")->isHidden());

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

    void screensComeAndGo_data()
    {
        QTest::addColumn<QRect>("frame");
        QTest::addColumn<QRect>("placed");
        QTest::newRow("inside") << QRect(10, 20, 800, 500) << QRect(10, 20, 800, 500);
        QTest::newRow("too large") << QRect(0, 0, 1600, 1000) << QRect(0, 0, 1024, 600);
        QTest::newRow("over two edges") << QRect(-100, 300, 800, 500) << QRect(0, 100, 800, 500);
        QTest::newRow("on the second screen")
            << QRect(1100, 50, 1600, 1000) << QRect(1100, 50, 1600, 1000);
        QTest::newRow("on a screen that is gone")
            << QRect(9000, -900, 800, 500) << QRect(224, 0, 800, 500);
    }
    void screensComeAndGo()
    {
        QFETCH(QRect, frame);
        QTEST(fitted(frame, {QRect(0, 0, 1024, 600), QRect(1024, 0, 1920, 1200)}), "placed");
    }

    void theStatisticsFollowThePalette()
    {
        DoorInTest w(file("palette.xui"));
        auto *page = w.window.findChild<QDockWidget *>("statistics")->widget();
        const QPalette before = QApplication::palette();
        QPalette dark = before;
        for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
            dark.setColor(role, QColor(30, 32, 35));
        for (const QPalette::ColorRole role :
             {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            dark.setColor(role, Qt::white);
        QApplication::setPalette(dark);
        QCoreApplication::processEvents();
        const QImage picture = page->grab().toImage();
        int light = 0;
        for (int y = 0; y < picture.height(); y += 4)
            for (int x = 0; x < picture.width(); x += 4)
                light += picture.pixelColor(x, y).lightness() > 200;
        const int all = picture.width() * picture.height() / 16;
        QApplication::setPalette(before);
        QVERIFY2(light < all / 10, qPrintable(QString("%1 of %2").arg(light).arg(all)));
    }

    //! Every entry of every menu, and what it opens, by keys; everything that is shown has room for its text.
    void nothingIsClippedOnASmallScreen()
    {
        DoorInTest w(file("small.xui"));
        w.source->begin(StreamKind::Strips, 64);
        w.run(3);
        ClippedTexts clipped;
        int dialogs = 0;
        const auto lookAtDialog = [&](const QString &name, QDialog *dialog) {
            ++dialogs;
            QCoreApplication::processEvents();
            if (qobject_cast<QFileDialog *>(dialog))
                return;
            clipped.look(name, dialog);
            clipped.require(name, dialog, smallScreen);
            auto *kinds = dialog->findChild<QListWidget *>("kinds");
            for (int row = 0; kinds && row < kinds->count(); ++row) {
                kinds->setCurrentRow(row);
                QCoreApplication::processEvents();
                clipped.look(kinds->item(row)->text(), dialog);
            }
            auto *tabs = dialog->findChild<QTabWidget *>();
            for (int page = 0; tabs && page < tabs->count(); ++page) {
                tabs->setCurrentIndex(page);
                QCoreApplication::processEvents();
                clipped.look(tabs->tabText(page), dialog);
            }
        };
        const auto lookAtWindows = [&](const QString &name) {
            for (const QWidget *shown : QApplication::topLevelWidgets())
                if (shown->isVisible() && !qobject_cast<const QMenu *>(shown)) {
                    clipped.look(name, shown);
                    clipped.require(name, shown, smallScreen);
                }
        };
        auto *appearance = w.window.findChild<Appearance *>();
        for (const Appearance::Choice choice :
             {Appearance::Choice::Light, Appearance::Choice::Dark}) {
            appearance->choose(choice);
            QCoreApplication::processEvents();
            for (QMenu *menu : w.menus()) {
                clipped.lookAtMenu(menu, smallScreen);
                for (QAction *entry : menu->actions()) {
                    const QString name = entry->objectName();
                    const bool leaves = entry->shortcut() == QKeySequence(QKeySequence::Quit)
                        || name == "closeSource" || name == "print" || name == "fullScreen";
                    if (entry->isSeparator() || entry->menu() || leaves || !entry->isEnabled())
                        continue;
                    onEveryDialog(
                        [&](QDialog *dialog) {
                            lookAtDialog(entry->text(), dialog);
                        },
                        [entry] {
                            entry->trigger();
                        });
                    QCoreApplication::processEvents();
                    lookAtWindows(entry->text());
                    if (entry->isCheckable() && !entry->actionGroup())
                        entry->trigger();
                }
            }
        }
        QVERIFY(dialogs >= 2 * 10 && clipped.looked() > 1000);
        QVERIFY(w.window.rect().contains(w.window.statusBar()->geometry()));
        QCOMPARE(clipped.text(), QString());
    }

    //! Whatever the size of the window, the status line is in it, and what it cuts ends with an ellipsis.
    void theStatusLineStaysInTheWindow()
    {
        DoorInTest w(file("status.xui"));
        w.source->live = true;
        w.source->begin(StreamKind::Channels, 2, "nA");
        w.run(3);
        w.session.setPaused(true);
        const QString path =
            file("a-recording-with-a-name-that-is-longer-than-its-field-is-wide.csv");
        QCOMPARE(w.record(path), QString());
        w.clock.advance(0.3);
        auto *log = w.window.findChild<QDockWidget *>("log");
        auto *scope = w.window.displays().scope();
        const auto *recording = w.window.statusBar()->findChild<StatusField *>("recording");
        const auto *notices = w.window.statusBar()->findChild<StatusField *>("notices");
        for (const QSize &size :
             {QSize(1600, 1000), QSize(800, 440), QSize(1024, 600), QSize(640, 360)}) {
            w.window.resize(size);
            QCoreApplication::processEvents();
            QCOMPARE(w.window.size(), size);
            const QWidget *status = w.window.statusBar();
            QVERIFY(status->isVisible() && w.window.rect().contains(status->geometry()));
            for (const StatusField *field : status->findChildren<StatusField *>())
                QVERIFY2(status->rect().contains(field->geometry()),
                         qPrintable(field->objectName()));
            QVERIFY(notices->shownTexts().first().startsWith("PAUSED"));
            // What is hidden for the plot comes back with the room for it.
            QCOMPARE(log->isVisible(), size.height() >= 700);
            QCOMPARE(scope->areControlsVisible(), size.height() >= 700);
        }
        QVERIFY(recording->shownTexts().first().endsWith(QChar(0x2026)));
        QVERIFY(recording->toolTip().contains("longer-than-its-field"));
        QVERIFY(notices->toolTip().contains("Space"));
        log->toggleViewAction()->trigger(); // the operator wants to see it here
        w.window.resize(1600, 1000);
        w.window.resize(1024, 600);
        QVERIFY(!log->isVisible());
    }

private:
    QString file(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_FrontDoor)
#include "tst_FrontDoor.moc"
