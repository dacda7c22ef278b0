// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/EventLog.h"
#include "monitor/window/MonitorWindow.h"
#include "monitor/window/NoticeLine.h"
#include "monitor/window/PictureExport.h"
#include "monitor/window/RecordAction.h"
#include "tests/monitor/support/ScriptedSession.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QClipboard>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>

using namespace Monitor;

namespace {

struct WindowInTest : ScriptedSession
{
    explicit WindowInTest(const QString &settings)
        : window(session, settings)
    {
        window.resize(1200, 800);
        window.show();
        session.start();
    }
    QString status(const char *name) const
    {
        QString text = window.statusBar()->findChild<QLabel *>(QLatin1String(name))->text();
        static const QRegularExpression tags(QStringLiteral("<[^>]*>"));
        return text.remove(tags).replace(QStringLiteral("&nbsp;"), QStringLiteral(" ")).trimmed();
    }
    QString log() const { return window.findChild<EventLog *>()->textBrowser()->toPlainText(); }
    QTableView *values() const
    {
        return window.findChild<QTableView *>(QStringLiteral("latestValues"));
    }
    QString value(int row) const { return values()->model()->index(row, 1).data().toString(); }
    QStringList tabs() const
    {
        QStringList titles;
        for (int i = 0; i < window.displays().count(); ++i)
            titles.append(window.displays().tabText(i));
        return titles;
    }
    QString notice() const
    {
        return window.findChild<NoticeLine *>(QStringLiteral("sourceNotice"))->text();
    }

    MonitorWindow window;
};

} // namespace

//! The window by its own events, on a source and a clock that the test moves.
class tst_MonitorWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(m_folder.isValid()); }

    void aTabStandsWhileTheDataHasItsLayout()
    {
        WindowInTest w(settings("tabs.xui"));
        QCOMPARE(w.tabs(), QStringList({"Scope"}));
        w.source->begin(StreamKind::Strips, 64, QStringLiteral("pC"));
        QCOMPARE(w.tabs(), QStringList({"Scope", "2D profile", "Position"}));
        QCOMPARE(w.window.displays().currentDisplay(), QStringLiteral("profile"));
        w.source->begin(StreamKind::Spots, 5);
        QCOMPARE(w.tabs(), QStringList({"Scope", "Spot map"}));
        w.source->begin(StreamKind::Pixels, 144);
        QCOMPARE(w.tabs(), QStringList({"Scope", "2D profile", "Position"}));
        w.source->begin(StreamKind::Pixels, 9); // no detector that the display knows
        QCOMPARE(w.tabs(), QStringList({"Scope"}));
        QCOMPARE(w.window.displays().currentDisplay(), QStringLiteral("histogram"));
        w.source->begin(StreamKind::Channels, 4);
        QCOMPARE(w.tabs(), QStringList({"Scope"}));
        QCOMPARE(w.window.displays().currentDisplay(), QStringLiteral("strip"));
        QVERIFY(!w.window.displays().showDisplay(QStringLiteral("spots")));
        QVERIFY(w.window.displays().showDisplay(QStringLiteral("scope")));
    }

    void aDisplayThatIsOutComesBackWhenItsDataGo()
    {
        WindowInTest w(settings("out.xui"));
        w.source->begin(StreamKind::Strips, 64);
        w.window.displays().popOut(1);
        QCOMPARE(w.tabs(), QStringList({"Scope", "Position"}));
        w.source->begin(StreamKind::Strips, 64);
        QCOMPARE(w.window.displays().poppedOutPages().size(), 1);
        w.source->begin(StreamKind::Channels, 4);
        QCOMPARE(w.window.displays().poppedOutPages().size(), 0);
        QCOMPARE(w.tabs(), QStringList({"Scope"}));
    }

    void spacePausesWhereverTheFocusIs()
    {
        WindowInTest w(settings("pause.xui"));
        w.source->begin(StreamKind::Channels, 3);
        w.run(4);
        QVERIFY(QTest::qWaitForWindowActive(&w.window));
        w.values()->setFocus();
        w.values()->setCurrentIndex(w.values()->model()->index(1, 0));
        QTest::keyClick(w.values(), Qt::Key_Space);
        QVERIFY(w.session.isPaused());
        QCOMPARE(w.values()->model()->index(1, 0).data(Qt::CheckStateRole).toInt(),
                 int(Qt::Checked));
        const QString before = w.value(0);
        w.run(6);
        QCOMPARE(w.value(0), before);
        w.clock.advance(0.25);
        QCOMPARE(w.status("notices"), QStringLiteral("PAUSED, 6 readings wait"));
        QTest::keyClick(&w.window, Qt::Key_Space);
        QVERIFY(!w.session.isPaused());
        QCOMPARE(w.status("notices"), QString());
        QCOMPARE(w.value(0), QStringLiteral("9"));
        QCOMPARE(w.session.model().rowCount(), 11);
    }

    void silenceMarksValuesAndStatus()
    {
        WindowInTest w(settings("stale.xui"));
        w.source->begin(StreamKind::Channels, 2);
        w.run(10);
        QCOMPARE(w.value(1), QStringLiteral("1009"));
        w.clock.advance(1.0);
        QCOMPARE(w.value(1), QStringLiteral("old: 1009"));
        QVERIFY(w.status("notices").contains(QLatin1String("STALE")));
        QVERIFY(w.log().contains(QLatin1String("WARNING the source is silent")));
        w.run(1);
        w.clock.advance(0.1);
        QCOMPARE(w.value(1), QStringLiteral("1010"));
        QVERIFY(!w.status("notices").contains(QLatin1String("STALE")));
        QVERIFY(w.log().contains(QLatin1String("readings arrive again")));
    }

    void enterTogglesAChannel()
    {
        WindowInTest w(settings("enter.xui"));
        w.source->begin(StreamKind::Channels, 3);
        w.run(2);
        QVERIFY(QTest::qWaitForWindowActive(&w.window));
        w.values()->setFocus();
        w.values()->setCurrentIndex(w.values()->model()->index(1, 1));
        const auto state = [&] {
            return w.session.model().index(0, 2).data(Qt::CheckStateRole).toInt();
        };
        QTest::keyClick(w.values(), Qt::Key_Return);
        QCOMPARE(state(), int(Qt::Unchecked));
        QTest::keyClick(w.values(), Qt::Key_Return);
        QCOMPARE(state(), int(Qt::Checked));
    }

    void theStatusTellsBadLinesAndGaps()
    {
        WindowInTest w(settings("status.xui"));
        w.source->begin(StreamKind::Channels, 1);
        w.run(10);
        w.source->refuse(2);
        w.source->give(100.0, {1.0});
        w.clock.advance(0.3);
        QCOMPARE(w.status("source"), QStringLiteral("script"));
        QCOMPARE(w.status("bad"), QStringLiteral("2 bad lines"));
        QCOMPARE(w.status("gaps"), QStringLiteral("1 gaps"));
        QCOMPARE(w.status("recording"), QStringLiteral("not recording"));
        QCOMPARE(w.status("clock"), w.clock.wallTime().toString(QStringLiteral("HH:mm:ss 'UTC'")));
    }

    void aFloodOfBadLinesDoesNotFloodTheLog()
    {
        WindowInTest w(settings("flood.xui"));
        w.source->begin(StreamKind::Channels, 1);
        const int before = w.log().count(QLatin1Char('\n'));
        w.source->refuse(10000);
        w.clock.advance(1.5);
        w.source->refuse(1);
        const QString log = w.log();
        QCOMPARE(log.count(QLatin1Char('\n')) - before, 5 + 1 + 1);
        QVERIFY(log.contains(QLatin1String("9995 more bad lines are not listed")));
    }

    void troubleSaysWhatToDo()
    {
        WindowInTest w(settings("trouble.xui"));
        QCOMPARE(w.notice(), QString());
        w.source->setState(Source::State::Retrying,
                           QStringLiteral("script: refused; trying again"));
        QCOMPARE(w.notice(), QStringLiteral("script: refused; trying again. Ask the author."));
        QVERIFY(w.log().contains(QLatin1String("ERROR script: refused")));
        w.source->setState(Source::State::Running, QStringLiteral("script"));
        QCOMPARE(w.notice(), QString());
        w.clock.advance(5.0);
        QCOMPARE(w.notice(), QStringLiteral("script: no reading has arrived yet. Ask the author."));
        w.source->begin(StreamKind::Channels, 1);
        w.run(3);
        w.clock.advance(0.3);
        QCOMPARE(w.notice(), QString());
    }

    void aSourceThatIsNotUnderstoodShowsWhatItSaid()
    {
        WindowInTest w(settings("garbage.xui"));
        w.source->refuse(3);
        w.clock.advance(5.0);
        QVERIFY2(w.notice().contains(QLatin1String("HTTP/1.1 400")), qPrintable(w.notice()));
        QVERIFY2(w.notice().contains(QLatin1String("none of 3 lines")), qPrintable(w.notice()));
    }

    void theHintGoesForGood()
    {
        const QString file = settings("hint.xui");
        {
            WindowInTest w(file);
            w.window.showHint(QStringLiteral("look here"));
            auto *hint = w.window.findChild<NoticeLine *>(QStringLiteral("hint"));
            QVERIFY(hint && hint->isVisible());
            QCOMPARE(hint->text(), QStringLiteral("look here"));
            QTest::mouseClick(hint->findChild<QToolButton *>(), Qt::LeftButton);
            QVERIFY(!hint->isVisible());
        }
        WindowInTest w(file);
        w.window.showHint(QStringLiteral("look here"));
        QVERIFY(!w.window.findChild<NoticeLine *>(QStringLiteral("hint")));
    }

    void theLayoutIsKept()
    {
        for (const char *name : {"layout.xui", "layout.ini"}) {
            const QString file = settings(name);
            {
                WindowInTest w(file);
                w.source->begin(StreamKind::Strips, 64);
                w.window.resize(1111, 777);
                w.window.findChild<QDockWidget *>(QStringLiteral("statistics"))->hide();
                w.window.displays().showDisplay(QStringLiteral("position"));
                w.window.close();
            }
            ScriptedSession s;
            MonitorWindow window(s.session, file);
            window.show();
            s.session.start();
            s.source->begin(StreamKind::Strips, 64);
            QCOMPARE(window.size(), QSize(1111, 777));
            QVERIFY(!window.findChild<QDockWidget *>(QStringLiteral("statistics"))->isVisible());
            QVERIFY(window.findChild<QDockWidget *>(QStringLiteral("log"))->isVisible());
            QCOMPARE(window.displays().currentDisplay(), QStringLiteral("position"));
        }
    }

    void windowsOfTheirOwnComeBack()
    {
        const QString file = settings("windows.xui");
        const QRect place(60, 70, 620, 510);
        {
            WindowInTest w(file);
            w.source->begin(StreamKind::Strips, 64);
            w.window.displays().popOut(1);
            w.window.displays().poppedOutPages().first()->window()->setGeometry(place);
            w.window.close();
        }
        WindowInTest w(file);
        DisplayTabs &displays = w.window.displays();
        w.source->begin(StreamKind::Channels, 4); // which has no such display
        QCOMPARE(displays.poppedOutPages().size(), 0);
        w.source->begin(StreamKind::Strips, 64);
        QCOMPARE(w.tabs(), QStringList({"Scope", "Position"}));
        QCOMPARE(displays.poppedOutPages().size(), 1);
        QCOMPARE(displays.poppedOutPages().first()->objectName(), QStringLiteral("profile"));
        QCOMPARE(displays.poppedOutPages().first()->window()->size(), place.size());

        // Asking for it brings it back, and it stays there when the source starts over.
        QVERIFY(displays.showDisplay(QStringLiteral("profile")));
        QCOMPARE(displays.currentDisplay(), QStringLiteral("profile"));
        w.source->begin(StreamKind::Strips, 64);
        QCOMPARE(displays.poppedOutPages().size(), 0);
    }

    void recordingShowsWhereAndHowMuch()
    {
        WindowInTest w(settings("record.xui"));
        w.source->begin(StreamKind::Channels, 2);
        auto *action = w.window.findChild<RecordAction *>();
        QCOMPARE(action->shortcut(), QKeySequence(Qt::CTRL + Qt::Key_R));
        QString error;
        const QString path = settings("window.csv");
        QVERIFY2(action->recordTo(path, &error), qPrintable(error));
        w.run(10);
        w.clock.advance(1.0);
        QVERIFY2(w.status("recording").startsWith(QLatin1String("REC window.csv, 0.0 MB")),
                 qPrintable(w.status("recording")));
        QVERIFY(action->text().contains(QLatin1String("Stop")));
        action->trigger();
        QVERIFY(!w.session.recorder());
        QCOMPARE(w.status("recording"), QStringLiteral("not recording"));
        QVERIFY(QFileInfo(path).size() > 100);
        QVERIFY(!action->recordTo(settings("no/such/folder.csv"), &error));
        QVERIFY(error.contains(QLatin1String("cannot be written")));

        // A name that is typed without a suffix gets one.
        QTimer::singleShot(0, &w.window, [this] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))
                ->setText(settings("typed"));
            QMetaObject::invokeMethod(dialog, "accept");
        });
        action->trigger();
        QVERIFY(w.session.recorder());
        QCOMPARE(w.session.recorder()->fileName(), settings("typed.csv"));
    }

    void picturesOfTheView()
    {
        WindowInTest w(settings("picture.xui"));
        w.source->begin(StreamKind::Channels, 2);
        w.run(20);
        const QHash<QString, QByteArray> beginnings = {{QStringLiteral("v.png"), "\x89PNG"},
                                                       {QStringLiteral("v.svg"), "<?xml"},
                                                       {QStringLiteral("v.pdf"), "%PDF"}};
        QString error;
        for (auto it = beginnings.begin(); it != beginnings.end(); ++it) {
            const QString path = m_folder.filePath(it.key());
            QVERIFY2(PictureExport::save(w.window.displays().displayInUse(), path, &error),
                     qPrintable(error));
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly));
            QVERIFY(file.readAll().startsWith(it.value()));
        }
        QVERIFY(
            !PictureExport::save(&w.window, m_folder.filePath(QStringLiteral("v.tiff")), &error));
        QVERIFY(error.contains(QLatin1String(".png, .svg or .pdf")));

        w.window.findChild<QAction *>(QStringLiteral("copyPicture"))->trigger();
        const QImage copied = QGuiApplication::clipboard()->image();
        QCOMPARE(copied.size(),
                 w.window.displays().displayInUse()->size() * w.window.devicePixelRatioF());
    }

    void textsFromOutsideAreNoMarkup()
    {
        WindowInTest w(settings("markup.xui"));
        const QString markup = QStringLiteral("<b>bold</b><img src='/etc/x'>");
        w.source->setState(Source::State::Failed, markup);
        w.clock.advance(0.3);
        auto *source = w.window.statusBar()->findChild<QLabel *>(QStringLiteral("source"));
        QCOMPARE(source->text(), markup);
        QCOMPARE(source->textFormat(), Qt::PlainText);
        QVERIFY(w.log().contains(markup));
        QVERIFY(w.notice().startsWith(markup));
    }

private:
    QString settings(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_MonitorWindow)
#include "tst_MonitorWindow.moc"
