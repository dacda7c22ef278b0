// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/QuietColor.h"
#include "monitor/readings/StreamDetector.h"
#include "monitor/sources/SimulatorSource.h"
#include "monitor/window/LimitActions.h"
#include "monitor/window/LimitsDialog.h"
#include "monitor/window/RecordAction.h"
#include "monitor/window/TriggerDialog.h"
#include "monitor/window/ValueAxisDialog.h"
#include "tests/monitor/support/WindowInTest.h"
#include "tests/support/Files.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/scope/RVXScopePlotView.h>
#include <corvale_qt/widgets/TimeSpanBox.h>

#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>

using namespace Monitor;
using Corvale_Qt::TimeSpanBox;

namespace {

//! A window, and what it shows of its displays.
struct DisplayedWindow : WindowInTest
{
    using WindowInTest::WindowInTest;
    QString tabs() const
    {
        QStringList titles;
        for (int i = 0; i < window.displays().count(); ++i)
            titles.append(window.displays().tabText(i));
        return titles.join(", ");
    }
    //! Returns the tabs and the display in use: "Scope, Spot map: spots".
    QString state() const { return tabs() + ": " + window.displays().currentDisplay(); }
    TimeSpanBox *spanBox() const { return window.displays().spanControl()->box(); }
    //! Gives readings from one number to another, a thousand each second: 0, and 1 from 45 s to 60 s.
    void giveFast(int from, int to)
    {
        ReadingBlock block(1);
        for (int i = from; i < to; ++i) {
            const double value = i >= 45000 && i < 60000 ? 1.0 : 0.0;
            block.append(i / 1000.0, &value);
        }
        Q_EMIT source->readingsArrived(block);
        settle();
    }
    //! Returns what the strip chart shows and how many samples its curve has: "40..100 s, 60002 samples".
    QString chart() const
    {
        const QwtInterval x = plot()->axisInterval(QwtPlot::xBottom);
        const QwtPlotItemList curves = plot()->itemList(QwtPlotItem::Rtti_PlotCurve);
        const auto *curve =
            curves.isEmpty() ? nullptr : static_cast<QwtPlotCurve *>(curves.first());
        return QString("%1..%2 s, %3 samples")
            .arg(x.minValue())
            .arg(x.maxValue())
            .arg(curve ? curve->dataSize() : 0);
    }
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
        DisplayedWindow w(settings("tabs.xui"));
        QCOMPARE(w.state(), QString("Scope: strip"));
        const std::tuple<StreamKind, int, const char *> streams[] = {
            {StreamKind::Strips, 64, "Scope, 2D profile, Position: profile"},
            {StreamKind::Spots, 5, "Scope, Spot map: spots"},
            {StreamKind::Pixels, 144, "Scope, 2D profile, Position: profile"},
            {StreamKind::Pixels, 9, "Scope, 2D profile, Position: profile"},
            {StreamKind::Channels, 4, "Scope: strip"}};
        for (const auto &[kind, channels, state] : streams) {
            w.source->begin(kind, channels);
            QCOMPARE(w.state(), QString(state));
        }
        QVERIFY(!w.window.displays().showDisplay("spots"));
        QVERIFY(w.window.displays().showDisplay("scope"));
    }

    void aDisplayThatIsOutComesBackWhenItsDataGo()
    {
        DisplayedWindow w(settings("out.xui"));
        w.source->begin(StreamKind::Strips, 64);
        w.window.displays().popOut(1);
        w.source->begin(StreamKind::Strips, 64);
        QCOMPARE(w.tabs(), QString("Scope, Position"));
        QCOMPARE(w.window.displays().poppedOutPages().size(), 1);
        w.source->begin(StreamKind::Channels, 4);
        QCOMPARE(w.tabs(), QString("Scope"));
        QCOMPARE(w.window.displays().poppedOutPages().size(), 0);
    }

    void spacePausesWhereverTheFocusIs()
    {
        DisplayedWindow w(settings("pause.xui"));
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
        QCOMPARE(w.status("notices"), QString("PAUSED, 6 readings wait"));
        QTest::keyClick(&w.window, Qt::Key_Space);
        QVERIFY(!w.session.isPaused());
        QCOMPARE(w.status("notices"), QString());
        QCOMPARE(w.value(0).toDouble(), 9.0);
        QCOMPARE(w.session.model().rowCount(), 11);
    }

    void silenceMarksValuesAndStatus()
    {
        DisplayedWindow w(settings("stale.xui"));
        w.source->begin(StreamKind::Channels, 2);
        w.run(10);
        QCOMPARE(w.value(1), QString("1009"));
        const QPalette palette = w.values()->palette();
        const auto has = [&](int column, const QColor &colour) {
            QTableView *table = w.values();
            const QRect cell = table->visualRect(table->model()->index(1, column));
            const QImage picture = table->viewport()->grab(cell).toImage();
            return countPixels(picture, [&](const QColor &pixel) { return pixel == colour; }) > 0;
        };
        // The swatch has the colour of the curve, and the value that of all text until it is old.
        const QModelIndex channel = w.session.model().index(0, 2);
        QVERIFY(has(0, channel.data(Qt::BackgroundRole).value<QBrush>().color()));
        QVERIFY(has(1, palette.color(QPalette::Text)));
        w.source->live = true;
        w.clock.advance(1.0);
        w.source->live = false; // a recording from here
        QCOMPARE(w.value(1), QString("old: 1009"));
        QVERIFY(!has(1, palette.color(QPalette::Text)));
        QVERIFY(has(1, quietColor(palette, QPalette::Text, QPalette::Base)));
        QVERIFY(w.status("notices").contains("STALE"));
        QVERIFY(w.log().contains("WARNING the source is silent"));
        w.run(1);
        w.clock.advance(0.1);
        QCOMPARE(w.value(1), QString("1010"));
        QVERIFY(!w.status("notices").contains("STALE"));
        QVERIFY(w.log().contains("readings arrive again"));
        w.clock.advance(1.0);
        QVERIFY(w.log().contains("WARNING the recording has a gap here"));
    }

    void limitsAreToldInWordsAndColours()
    {
        const QString file = settings("limits.xui");
        {
            DisplayedWindow w(file);
            auto *actions = w.window.findChild<LimitActions *>();
            int sounds = 0;
            actions->setSound([&] { ++sounds; });
            w.source->begin(StreamKind::Channels, 2, "nA");
            w.run(3);
            // The operator types a limit for the second channel; a wrong one cannot be accepted.
            QTimer::singleShot(0, [] {
                auto *dialog = qobject_cast<LimitsDialog *>(QApplication::activeModalWidget());
                const auto close = qScopeGuard([dialog] { // a failure must not leave it open
                    if (dialog->isVisible())
                        dialog->reject();
                });
                auto *table = dialog->findChild<QTableWidget *>("limitsTable");
                auto *ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
                table->item(1, 3)->setText("1,005");
                QVERIFY(!ok->isEnabled());
                QCOMPARE(dialog->findChild<QLabel *>("fault")->text(),
                         QString("ch2: \"1,005\" is not a number with a decimal point."));
                table->item(1, 2)->setText("1004");
                table->item(1, 3)->setText("1005");
                QVERIFY(ok->isEnabled());
                ok->click();
            });
            w.window.findChild<QAction *>("limits")->trigger();
            w.run(3); // 1003, 1004, 1005
            w.clock.advance(0.25);
            QCOMPARE(w.status("notices"), QString("WARNING: ch2 above 1.004 µA"));
            QVERIFY2(w.value(1).startsWith("WARN 1"), qPrintable(w.value(1)));
            w.window.findChild<QAction *>("alarmSound")->trigger();
            w.run(1);
            w.clock.advance(0.25);
            QCOMPARE(w.status("notices"), QString("ALARM: ch2 above 1.005 µA"));
            QVERIFY2(w.value(1).startsWith("ALARM 1"), qPrintable(w.value(1)));
            QVERIFY(w.log().contains("ALARM: ch2 above 1.005 µA: 1.006 µA at t = 0.6 s"));
            QCOMPARE(sounds, 1);
            w.clock.advance(2.0);
            QCOMPARE(sounds, 2);
            auto *acknowledge = w.window.findChild<QAction *>("acknowledge");
            QCOMPARE(acknowledge->shortcut(), QKeySequence(Qt::Key_F8));
            acknowledge->trigger();
            w.clock.advance(10.0);
            QCOMPARE(sounds, 2);
            w.source->give(0.7, {7.0, 900.0});
            w.clock.advance(0.25);
            QVERIFY(!w.status("notices").contains("ALARM"));
            QVERIFY2(!w.value(1).startsWith("ALARM"), qPrintable(w.value(1)));
        }
        DisplayedWindow again(file);
        again.source->begin(StreamKind::Channels, 2, "nA");
        again.source->give(0.1, {1.0, 2000.0});
        again.clock.advance(0.25);
        QCOMPARE(again.status("notices"), QString("ALARM: ch2 above 1.005 µA"));
        QVERIFY(again.window.findChild<QAction *>("alarmSound")->isChecked());
    }

    //! The scope comes back as it was; its trigger waits for a stream with its channel.
    void theChoicesOfTheScopeAreKept()
    {
        using Corvale_Qt::RVXScope;
        Corvale_Qt::SweepTrigger trigger;
        trigger.mode = Corvale_Qt::SweepTrigger::Mode::Normal;
        trigger.channel = 2;
        trigger.level = 1.0 / 3.0;
        trigger.holdOff = 0.25;
        {
            DisplayedWindow w(settings("scope.xui"));
            w.source->begin(StreamKind::Channels, 2, "nA");
            RVXScope *scope = w.window.displays().scope();
            scope->setYScaleMode(RVXScope::AbsoluteRanges);
            scope->setYScaleIndex(3);
            scope->setAveraging(10);
            scope->setPeriod(1000);
            scope->setMarkersEnabled(false);
            scope->setControlsVisible(false);
            scope->plotView()->setLogarithmic(true);
            scope->plotView()->setTrigger(trigger);
        } // without closing the window: a program may be ended by force
        DisplayedWindow again(settings("scope.xui"));
        const RVXScope *scope = again.window.displays().scope();
        QCOMPARE(scope->yScaleMode(), RVXScope::AbsoluteRanges);
        QCOMPARE(scope->yScaleIndex(), 3);
        QCOMPARE(scope->averaging(), 10);
        QCOMPARE(scope->period(), 1000);
        QVERIFY(!scope->areMarkersEnabled() && !scope->areControlsVisible());
        QVERIFY(scope->plotView()->isLogarithmic());
        auto *dialog = again.window.findChild<ValueAxisDialog *>();
        QVERIFY(dialog->findChild<QCheckBox *>("logarithmic")->isChecked());

        again.source->begin(StreamKind::Channels, 2, "uA"); // whose level would be another one
        QVERIFY(!scope->plotView()->trigger().isOn());
        again.source->begin(StreamKind::Channels, 3, "nA");
        QCOMPARE(scope->plotView()->trigger(), trigger);
        const auto *mode =
            again.window.findChild<TriggerDialog *>()->findChild<QComboBox *>("mode");
        QCOMPARE(mode->currentText(), QString("Normal"));
    }

    void enterTogglesAChannel()
    {
        DisplayedWindow w(settings("enter.xui"));
        w.source->begin(StreamKind::Channels, 3);
        w.run(2);
        QVERIFY(QTest::qWaitForWindowActive(&w.window));
        w.values()->setFocus();
        w.values()->setCurrentIndex(w.values()->model()->index(1, 1));
        for (const Qt::CheckState state : {Qt::Unchecked, Qt::Checked}) {
            QTest::keyClick(w.values(), Qt::Key_Return);
            QCOMPARE(w.session.model().index(0, 2).data(Qt::CheckStateRole).toInt(), int(state));
        }
    }

    void theStatusTellsBadLinesAndGaps()
    {
        DisplayedWindow w(settings("status.xui"));
        w.source->begin(StreamKind::Channels, 1);
        w.run(10);
        w.source->refuse(2);
        w.source->give(100.0, {1.0});
        w.clock.advance(0.3);
        QCOMPARE(w.status("source"), QString("script"));
        QCOMPARE(w.status("bad"), QString("2 bad lines"));
        QCOMPARE(w.status("gaps"), QString("1 gap"));
        QCOMPARE(w.status("recording"), QString("not recording"));
        QCOMPARE(w.status("clock"), w.clock.wallTime().toString(QString("HH:mm:ss 'UTC'")));
    }

    void aFloodOfBadLinesDoesNotFloodTheLog()
    {
        DisplayedWindow w(settings("flood.xui"));
        w.source->begin(StreamKind::Channels, 1);
        const int before = w.log().count(QLatin1Char('\n'));
        w.source->refuse(10000);
        w.clock.advance(1.5);
        w.source->refuse(1);
        const QString log = w.log();
        QCOMPARE(log.count(QLatin1Char('\n')) - before, 5 + 1 + 1);
        QVERIFY(log.contains("not listed: 9995 more bad lines"));
    }

    void troubleSaysWhatToDo()
    {
        DisplayedWindow w(settings("trouble.xui"));
        QCOMPARE(w.notice(), QString());
        w.source->setState(Source::State::Retrying, QString("script: refused; trying again"));
        QCOMPARE(w.notice(), QString("script: refused; trying again. Ask the author."));
        QVERIFY(w.log().contains("ERROR script: refused"));
        w.source->setState(Source::State::Running, QString("script"));
        QCOMPARE(w.notice(), QString());
        w.clock.advance(5.0);
        QCOMPARE(w.notice(), QString("script: no reading has arrived yet. Ask the author."));
        w.source->refuse(3); // it is not understood
        w.clock.advance(5.0);
        QVERIFY(w.notice().contains("HTTP/1.1 400") && w.notice().contains("none of 3 lines"));
        w.source->begin(StreamKind::Channels, 1);
        w.run(3);
        w.clock.advance(0.3);
        QCOMPARE(w.notice(), QString());
    }

    void theHintGoesForGood()
    {
        for (bool first : {true, false}) {
            DisplayedWindow w(settings("hint.xui"));
            w.window.showHint();
            auto *hint = w.window.findChild<NoticeLine *>("hint");
            QCOMPARE(hint->isVisible(), first);
            if (first)
                QVERIFY(hint->text().startsWith("This is script."));
            w.session.replaceSource(std::make_unique<SimulatorSource>(w.clock, "ic4"));
            QCOMPARE(hint->text().startsWith("This beam is simulated."), first);
            QTest::mouseClick(hint->findChild<QToolButton *>(), Qt::LeftButton);
            QVERIFY(!hint->isVisible());
        }
    }

    void theLayoutIsKept()
    {
        for (const char *name : {"layout.xui", "layout.ini"}) {
            const QString file = settings(name);
            {
                DisplayedWindow w(file);
                w.source->begin(StreamKind::Strips, 64);
                w.window.resize(800, 555); // fits the screen of the test, unless that is scaled
                w.window.findChild<QDockWidget *>("log")
                    ->show(); // a small window hides it at first
                w.window.findChild<QDockWidget *>("statistics")->hide();
                w.window.displays().showDisplay("position");
                w.window.close();
            }
            ScriptedSession s;
            MonitorWindow window(s.session, file);
            window.show();
            s.session.start();
            s.source->begin(StreamKind::Strips, 64);
            if (window.screen()->availableSize().width() >= 800)
                QCOMPARE(window.size(), QSize(800, 555));
            QVERIFY(!window.findChild<QDockWidget *>("statistics")->isVisible());
            QVERIFY(window.findChild<QDockWidget *>("log")->isVisible());
            QCOMPARE(window.displays().currentDisplay(), QString("position"));
            // What is chosen meanwhile outlasts a source that begins again.
            window.displays().showDisplay("histogram");
            QCoreApplication::processEvents();
            s.source->begin(StreamKind::Strips, 64);
            QCOMPARE(window.displays().currentDisplay(), QString("histogram"));
        }
    }

    void windowsOfTheirOwnComeBack()
    {
        const QString file = settings("windows.xui");
        const QRect place(60, 70, 620, 510);
        {
            DisplayedWindow w(file);
            w.source->begin(StreamKind::Strips, 64);
            w.window.displays().popOut(1);
            w.window.displays().poppedOutPages().first()->window()->setGeometry(place);
            w.window.close();
        }
        DisplayedWindow w(file);
        DisplayTabs &displays = w.window.displays();
        w.source->begin(StreamKind::Channels, 4); // which has no such display
        QCOMPARE(displays.poppedOutPages().size(), 0);
        w.source->begin(StreamKind::Strips, 64);
        QCOMPARE(w.tabs(), QString("Scope, Position"));
        QCOMPARE(displays.poppedOutPages().size(), 1);
        QCOMPARE(displays.poppedOutPages().first()->objectName(), QString("profile"));
        const QWidget *window = displays.poppedOutPages().first()->window();
        const QRect screen = window->screen()->availableGeometry();
        QVERIFY(screen.contains(window->geometry()));
        if (screen.contains(place))
            QCOMPARE(window->size(), place.size());

        // Asking for it brings it back, and it stays there when the source starts over.
        QVERIFY(displays.showDisplay("profile"));
        QCOMPARE(displays.currentDisplay(), QString("profile"));
        w.source->begin(StreamKind::Strips, 64);
        QCOMPARE(displays.poppedOutPages().size(), 0);
    }

    void recordingShowsWhereAndHowMuch()
    {
        DisplayedWindow w(settings("record.xui"));
        w.source->begin(StreamKind::Channels, 2);
        auto *action = w.window.findChild<RecordAction *>();
        QCOMPARE(action->shortcut(), QKeySequence(Qt::CTRL + Qt::Key_R));
        QString error;
        const QString path = settings("window.csv");
        QVERIFY2(action->recordTo(path, &error), qPrintable(error));
        w.run(10);
        w.clock.advance(1.0);
        QVERIFY2(w.status("recording").startsWith("REC window.csv, 0.0 MB"),
                 qPrintable(w.status("recording")));
        QVERIFY(action->text().contains("Stop"));
        action->trigger();
        QVERIFY(!w.session.recorder());
        QCOMPARE(w.status("recording"), QString("not recording"));
        QVERIFY(QFileInfo(path).size() > 100);
        QVERIFY(!action->recordTo(settings("no/such/folder.csv"), &error));
        QVERIFY(error.contains("cannot be written"));

        // A name that is typed without a suffix gets one.
        QTimer::singleShot(0, &w.window, [this] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            dialog->findChild<QLineEdit *>("fileNameEdit")->setText(settings("typed"));
            QMetaObject::invokeMethod(dialog, "accept");
        });
        action->trigger();
        QVERIFY(w.session.recorder());
        QCOMPARE(w.session.recorder()->fileName(), settings("typed.csv"));
    }

    //! A quarter of a second of a fast source, as many readings as the model asks for, tells an operator nothing.
    void theStripChartShowsTheSpan()
    {
        DisplayedWindow w(settings("strip.xui"));
        w.source->begin(StreamKind::Channels, 1);
        auto *view = w.window.displays().scope()->plotView();
        QVERIFY(view->movesByPixels());
        view->setMovesByPixels(false); // it would end less than a pixel later
        w.giveFast(0, 30000);
        QTRY_COMPARE(w.chart(), QString("0..29.999 s, 30000 samples")); // no time before the first
        w.giveFast(30000, 90001);
        QTRY_COMPARE(w.chart(), QString("30..90 s, 60002 samples"));
        w.spanBox()->setSpan(10.0);
        QTRY_COMPARE(w.chart(), QString("80..90 s, 10002 samples"));
        w.spanBox()->setSpan(qInf());
        QTRY_COMPARE(w.chart(), QString("0..90 s, 90001 samples"));
        // The pulse from 45 s to 60 s stands between half and two thirds of the width.
        const QImage picture = w.plot()->canvas()->grab().toImage();
        const auto trace = [&](double from, double to) {
            const QRect part(int(from * picture.width()), 0, int((to - from) * picture.width()),
                             picture.height() / 2);
            return countPixels(picture.copy(part),
                               [](const QColor &color) { return color.saturation() > 200; });
        };
        QCOMPARE(trace(0.0, 0.49), 0);
        QVERIFY(trace(0.51, 0.66) > picture.width() / 10);
        QCOMPARE(trace(0.68, 1.0), 0);
    }

    void theSpanIsTypedAndKept()
    {
        const QString file = settings("span.xui");
        {
            DisplayedWindow w(file);
            QCOMPARE(w.window.displays().scope()->timeSpan(), 60.0);
            w.source->begin(StreamKind::Strips, 64);
            QVERIFY(QTest::qWaitForWindowActive(&w.window));
            QVERIFY(!w.spanBox()->isVisible()); // a profile has no time axis
            QTest::keyClick(&w.window, Qt::Key_T, Qt::ControlModifier);
            QCOMPARE(w.window.displays().currentDisplay(), QString("strip"));
            QCOMPARE(QApplication::focusWidget(), w.spanBox());
            const auto type = [&](const QString &text) {
                for (const QChar letter : text)
                    QTest::keyClick(w.window.windowHandle(),
                                    letter.toLatin1()); // as a keyboard: shortcuts first
                QTest::keyClick(w.window.windowHandle(), Qt::Key_Return);
            };
            type("soon");
            QVERIFY(w.log().contains("\"soon\" is not a time span"));
            QCOMPARE(w.window.displays().scope()->timeSpan(), 60.0);
            type("1.5 min");
            QVERIFY(!w.session.isPaused()); // the blank belongs to the text
            QCOMPARE(w.window.displays().scope()->timeSpan(), 90.0);
            QTest::keyClick(w.window.windowHandle(), Qt::Key_Space);
            QVERIFY(w.session.isPaused());
        }
        DisplayedWindow again(file);
        QCOMPARE(again.spanBox()->currentText(), QString("90 s"));
        again.source->begin(StreamKind::Spots, 5); // may have no times
        QCOMPARE(again.window.displays().scope()->timeSpan(), 0.0);
        again.window.displays().showDisplay("strip");
        QVERIFY(!again.spanBox()->isVisible());
        again.source->begin(StreamKind::Channels, 2);
        QCOMPARE(again.window.displays().scope()->timeSpan(), 90.0);
        for (const char *display : {"strip", "scope", "strip", "histogram"}) {
            again.window.displays().showDisplay(display);
            QCOMPARE(again.spanBox()->isVisible(), display == QString("strip"));
        }
        again.window.displays().showDisplay("strip");
        again.window.displays().popOut(0); // leaves no tab, beside which the box has its place
        QVERIFY(!again.spanBox()->isVisible());
        QTest::keyClick(&again.window, Qt::Key_T, Qt::ControlModifier);
        QVERIFY(again.spanBox()->isVisible());
        again.source->begin(StreamKind::Strips, 64);
        again.window.displays().showDisplay("strip");
        again.window.displays().popOut(0);
        QVERIFY(again.spanBox()->isVisible());
    }

    //! The time of the clock is shown where the source tells it, and the choice of the operator is kept.
    void theTimeAxisShowsTheClockIfItIsKnown()
    {
        const auto state = [](DisplayedWindow &w) {
            QStringList entries{QString::number(w.window.displays().scope()->timeAxis())};
            for (const QAction *action : w.window.findChild<QMenu *>("timeAxis")->actions()) {
                if (action->isEnabled())
                    entries << action->objectName() + (action->isChecked() ? "*" : "");
            }
            return entries.join(' ');
        };
        StreamHeader header;
        header.channels = StreamHeader::defaultChannels(StreamKind::Channels, 1);
        header.startTime = QDateTime(QDate(2026, 11, 22), QTime(9, 0), Qt::UTC);
        {
            DisplayedWindow w(settings("clock.xui"));
            w.source->begin(StreamKind::Channels, 1);
            w.run(3);
            QCOMPARE(state(w), QString("0 auto* seconds relative"));
            w.source->begin(StreamKind::Channels, 1);
            w.source->give(1.7e9, {5.0}); // stamps since 1970
            w.settle();
            QCOMPARE(state(w), QString("2 auto* seconds relative local utc"));
            w.source->begin(header);
            w.settle();
            QCOMPARE(state(w), QString("2 auto* seconds relative local utc"));
            QCOMPARE(w.window.displays().scope()->timeOrigin(), header.startTime);
            w.window.findChild<QAction *>("utc")->trigger();
            QCOMPARE(state(w), QString("3 auto seconds relative local utc*"));
            w.source->begin(StreamKind::Channels, 1);
            w.run(3);
            QCOMPARE(state(w), QString("0 auto seconds relative"));
        }
        DisplayedWindow again(settings("clock.xui"));
        again.source->begin(header);
        QCOMPARE(state(again), QString("3 auto seconds relative local utc*"));
        again.window.findChild<QAction *>("relative")->trigger();
        QCOMPARE(state(again), QString("1 auto seconds relative* local utc"));
    }

    //! Equal planes halve the histogram, one plane fills it; unequal ones would be cut at a wrong place.
    void stripsSuggestFits()
    {
        struct Case
        {
            int ofX, ofY;
            const char *peaks; //!< empty if no fit is suggested
        };
        for (const Case &one :
             {Case{16, 16, "2"}, Case{16, 0, "1"}, Case{0, 16, "1"}, Case{16, 8, ""}}) {
            DisplayedWindow w(
                m_folder.filePath(QStringLiteral("fits-%1-%2.xui").arg(one.ofX).arg(one.ofY)));
            StreamHeader header;
            header.kind = StreamKind::Strips;
            header.channels = StreamHeader::stripChannels(one.ofX, one.ofY);
            header.setDetector(
                Corvale_Qt::DetectorLayout::fromDescription(countedStrips(one.ofX, one.ofY)));
            w.source->begin(header);
            auto *fits = w.window.findChild<QGroupBox *>("regressionCBox");
            QCOMPARE(fits->isChecked(), *one.peaks != 0);
            if (*one.peaks)
                QCOMPARE(w.window.findChild<QComboBox *>("peaksEdit")->currentText(),
                         QString(one.peaks));
        }
    }

private:
    QString settings(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_MonitorWindow)
#include "tst_MonitorWindow.moc"
