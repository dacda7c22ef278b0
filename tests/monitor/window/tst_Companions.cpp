// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/session/Companions.h"
#include "monitor/window/AddSourceAction.h"
#include "monitor/window/CompanionPane.h"
#include "monitor/window/CompanionPanes.h"
#include "monitor/window/RecordAction.h"
#include "monitor/window/SourceSwitch.h"
#include "monitor/window/StatusField.h"
#include "tests/monitor/support/Dialogs.h"
#include "tests/monitor/support/Mnemonics.h"
#include "tests/monitor/support/WindowInTest.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/scope/RVXScopePlotView.h>

using namespace Monitor;

namespace {

//! A window on a live source, and what is read beside it.
struct SeveralSources : WindowInTest
{
    explicit SeveralSources(const QString &settings)
        : WindowInTest(settings)
    {
        source->live = true;
        window.companions().setLeadName("current");
    }
    //! Adds a source that a test moves; \a fields are the channels.
    ScriptedSource *add(const QString &name)
    {
        auto *beside = new ScriptedSource(clock);
        beside->live = true;
        window.companions().add({name, QString()}, std::unique_ptr<Source>(beside)).start();
        return beside;
    }
    //! Returns the header of one channel whose t was 0 this many seconds after the clock's present moment; not stated if that is NaN.
    StreamHeader header(double after) const
    {
        StreamHeader header;
        header.channels = {{"dose", "nA"}};
        if (!std::isnan(after))
            header.startTime = clock.wallTime().addMSecs(qint64(std::round(after * 1e3)));
        return header;
    }
    CompanionPane &pane(int index) const
    {
        return *window.findChild<CompanionPanes *>()->panes().at(index);
    }
    //! Returns where the strip charts end, in the times of their sources: first that of the lead; "-" for its newest reading.
    QString ends() const
    {
        QStringList ends;
        const auto add = [&ends](const DisplayTabs &displays) {
            const double end = displays.scope()->plotView()->timeEnd();
            ends += std::isnan(end) ? QString("-") : QString::number(end, 'f', 2);
        };
        add(window.displays());
        for (const CompanionPane *each : window.findChild<CompanionPanes *>()->panes())
            add(each->displays());
        return ends.join(' ');
    }
    //! Returns the rows of a source as the model of its chart has them.
    static QString rows(const Session &session)
    {
        const ReadingBlock shown = const_cast<Session &>(session).model().shownReadings();
        QStringList texts;
        for (int row = 0; row < shown.size(); ++row)
            texts += QString("%1:%2").arg(shown.time(row)).arg(shown.values(row)[0]);
        return texts.join(' ');
    }
    QString state(int index) const
    {
        return pane(index).findChild<StatusField *>("state")->shownTexts().join(' ');
    }
};

constexpr double notStated = std::numeric_limits<double>::quiet_NaN();

} // namespace

//! Several instruments in one window: each keeps its readings and its clock, and the charts show the same time.
class tst_Companions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chartsEndAtTheSameMoment_data()
    {
        // Seconds from the beginning to the moment that both state for t = 0; both give readings for a second from then on, the
        // lead from t = 10 s, the other from t = 2.5 s.
        columns<double, double, QString, QString>("lead", "beside", "ends", "log");
        row("times that began at other moments", -10.0, -2.5, "11.00 3.50", "");
        row("no time of day", -10.0, notStated, "11.00 3.50",
            "halo: the source states no time of day");
        row("a clock that is a bit off", -10.0, -1.5, "12.00 3.50", "");
        row("a clock that is wrong", -10.0, 297.5, "11.00 -",
            "halo: WARNING the clock of the source is 300.0 s ahead");
        row("a lead without a time of day", notStated, -2.5, "11.00 3.50",
            "current: the source states no time of day");
    }
    void chartsEndAtTheSameMoment()
    {
        QFETCH(QString, ends);
        QFETCH(QString, log);
        SeveralSources w(file("align.xui"));
        ScriptedSource *halo = w.add("halo");
        w.source->begin(w.header(cell<double>("lead")));
        halo->begin(w.header(cell<double>("beside")));
        for (int i = 0; i <= 10; ++i) {
            w.source->give(10.0 + 0.1 * i, {double(i)});
            if (i % 5 == 0)
                halo->give(2.5 + 0.1 * i, {100.0 + i});
            if (i < 10)
                w.clock.advance(0.1);
        }
        w.clock.advance(0.3);
        QCOMPARE(w.ends(), ends);
        QVERIFY2(w.log().contains(log), qPrintable(w.log()));
        QCOMPARE(w.log().count("WARNING the clock"), log.count("WARNING"));
        // Each chart has the rows of its own source, with their own times.
        QCOMPARE(w.session.model().rowCount(), 1 + 11);
        QCOMPARE(SeveralSources::rows(*w.pane(0).companion().session),
                 QString("2.5:100 3:105 3.5:110"));
    }

    //! Readings that a connection delivers late say nothing of the clock of their source, as long as others follow.
    void readingsThatWaitedAreNoWrongClock()
    {
        SeveralSources w(file("late.xui"));
        ScriptedSource *halo = w.add("halo");
        w.source->begin(w.header(0.0));
        halo->begin(w.header(0.0));
        const double began = w.clock.seconds();
        for (int burst = 0; burst < 4; ++burst) {
            w.clock.advance(4.0);
            w.source->give(4.0 * (burst + 1), {1.0});
            halo->give(4.0 * burst + 1.0, {1.0}); // the burst comes in two parts, a moment apart
            w.clock.advance(0.1);
            halo->give(4.0 * (burst + 1), {2.0});
            w.clock.advance(0.1);
        }
        QCOMPARE(w.log().count("WARNING the clock"), 0);
        w.clock.advance(12.0);
        for (int i = 0; i < 80; ++i) { // from now on, everything is 10 s late
            w.clock.advance(0.1);
            w.source->give(w.clock.seconds() - began, {1.0});
            halo->give(w.clock.seconds() - began - 10.0, {3.0});
        }
        w.clock.advance(0.3);
        QCOMPARE(w.log().count("WARNING the clock of the source is 10.0 s behind"), 1);
        QCOMPARE(w.state(0), QString("CLOCK -10.0 s"));
    }

    //! One dies: its chart goes on in time without readings, and its values are old. The other does not notice.
    void oneSourceDiesAndComesBack()
    {
        SeveralSources w(file("dies.xui"));
        ScriptedSource *halo = w.add("halo");
        w.source->begin(w.header(0.0));
        halo->begin(w.header(0.0));
        const double began = w.clock.seconds();
        const auto run = [&](int readings, bool both) {
            for (int i = 0; i < readings; ++i) {
                w.clock.advance(0.1);
                const double now = w.clock.seconds() - began;
                w.source->give(now, {1.0});
                if (both)
                    halo->give(now, {2.0});
            }
            w.clock.advance(0.1);
        };
        run(20, true);
        const auto *lead = w.window.findChild<QDockWidget *>("values")
                               ->findChild<QTableView *>("latestValues")
                               ->model();
        const auto *beside = w.pane(0).findChild<QTableView *>("latestValues")->model();
        QVERIFY(!beside->index(0, 1).data().toString().startsWith("old"));
        halo->setState(Source::State::Retrying, QString("halo went away"));
        run(20, false);
        QVERIFY(beside->index(0, 1).data().toString().startsWith("old"));
        QVERIFY(!lead->index(0, 1).data().toString().startsWith("old"));
        QVERIFY2(w.status("notices").startsWith("halo: LOST"), qPrintable(w.status("notices")));
        QCOMPARE(w.state(0), QString("LOST"));
        QVERIFY(w.log().contains("halo: ERROR halo went away"));
        const int rows = w.pane(0).companion().session->model().rowCount();
        const QString ends = w.ends();
        QCOMPARE(ends.section(' ', 0, 0), ends.section(' ', 1, 1)); // both are at the lead's newest
        QVERIFY(ends.section(' ', 1, 1).toDouble() > 3.5); // long after its last reading at 2 s

        halo->setState(Source::State::Running, QString("halo"));
        run(5, true);
        QCOMPARE(w.pane(0).companion().session->model().rowCount(), rows + 5);
        QCOMPARE(w.state(0), QString());
        QVERIFY(w.status("notices").isEmpty());
    }

    //! What the operator holds in the first chart is seen in the others, also in those that are added meanwhile.
    void heldTogether()
    {
        SeveralSources w(file("held.xui"));
        w.source->begin(w.header(0.0));
        const auto give = [&w](ScriptedSource *source, double first) {
            for (int i = 0; i < 40; ++i)
                source->give(first + 0.1 * i, {1.0});
            w.clock.advance(0.3);
        };
        give(w.source, 0.0);
        w.window.displays().scope()->plotView()->zoomToX(1.0, 2.0);
        ScriptedSource *late = w.add("late");
        late->begin(w.header(-20.0));
        give(late, 20.0);
        const auto held = [&w] {
            const auto *view = w.pane(0).displays().scope()->plotView();
            const QwtInterval x = view->findChild<QwtPlot *>()->axisInterval(QwtPlot::xBottom);
            return view->isHeld() ? QString("%1 to %2").arg(x.minValue()).arg(x.maxValue())
                                  : QString("live");
        };
        w.clock.advance(0.3);
        QTRY_COMPARE(held(), QString("20.7 to 21.7")); // it began 0.3 s later
        w.window.displays().scope()->plotView()->goLive();
        w.clock.advance(0.3);
        QTRY_COMPARE(held(), QString("live"));
    }

    //! What is recorded together begins and ends together, a file for each source.
    void recordedTogether()
    {
        SeveralSources w(file("record.xui"));
        ScriptedSource *halo = w.add("current"); // the name of the lead
        w.source->begin(w.header(0.0));
        halo->begin(w.header(0.0));
        putFile(file("run-current.csv"), "precious");
        QString error;
        auto *record = w.window.findChild<RecordAction *>();
        QVERIFY(!record->recordTo(file("run.csv"), &error)); // nobody asked about that file
        QVERIFY2(error.contains("run-current.csv exists already"), qPrintable(error));
        QFile::remove(file("run-current.csv"));
        QVERIFY(record->recordTo(file("run.csv"), &error));
        w.source->give(0.5, {1.0});
        halo->give(0.25, {2.0});
        w.add("late")->begin(w.header(0.0));
        putFile(file("run-taken.csv"), "precious");
        w.add("taken")->begin(w.header(0.0));
        w.clock.advance(0.3);
        QCOMPARE(fileContents(file("run-taken.csv")), QByteArray("precious"));
        QCOMPARE(w.state(2), QString("NOT RECORDED"));
        QCOMPARE(w.window.companions().incompleteRecordings().size(), 1); // for the exit code
        QVERIFY2(w.status("notices").contains("taken: NOT RECORDED"),
                 qPrintable(w.status("notices")));
        QVERIFY(w.session.stopRecording());
        for (const auto &member : w.window.companions().members())
            QVERIFY(!member.session->recorder());
        QVERIFY2(fileContents(file("run-current.csv")).endsWith("\n0.5,1\n"),
                 fileContents(file("run-current.csv")));
        QVERIFY(fileContents(file("run-current-2.csv")).endsWith("\n0.25,2\n"));
        QVERIFY(QFile::exists(file("run-late.csv")) && !QFile::exists(file("run.csv")));
    }

    void pausedAndClosedTogether()
    {
        SeveralSources w(file("paused.xui"));
        ScriptedSource *halo = w.add("halo");
        halo->begin(w.header(0.0));
        QCOMPARE(clashesIn(&w.window), QStringList()); // the keys of the first source still work
        const auto headings = [&w] {
            QStringList shown;
            for (const QAction *heading : w.window.findChildren<QAction *>("leadHeading"))
                shown += heading->isVisible() ? heading->text() : QString("-");
            return shown.join(' ');
        };
        const QString heading = "Of current, the first source:";
        QCOMPARE(headings(), QStringList(QVector<QString>(4, heading).toList()).join(' '));
        w.session.setPaused(true);
        halo->give(0.1, {1.0});
        w.settle();
        QVERIFY(!w.window.displays().scope()->areControlsVisible()); // the charts need the room
        const int ofLead = w.window.displays().height();
        const int ofOthers = w.window.findChild<CompanionPanes *>()->height();
        QVERIFY(5 * std::abs(ofLead - ofOthers) < ofLead); // alike, as far as their axes allow
        const Session *beside = w.pane(0).companion().session;
        QCOMPARE(SeveralSources::rows(*beside), QString());
        w.session.setPaused(false);
        QCOMPARE(SeveralSources::rows(*beside), QString("0.1:1"));

        // An instrument can be added; a recording, taken at another time, cannot.
        auto *action = w.window.findChild<AddSourceAction *>();
        QVERIFY(action->add("sim:pixels"));
        QCOMPARE(w.pane(1).findChild<QLabel *>("name")->text(), QString("pixels"));
        QVERIFY(w.pane(1).displays().offers("profile"));
        putFile(file("tape.csv"), "0,1\n1,2\n");
        QString said;
        onNextDialog([&](QDialog *dialog) {
            said = static_cast<QMessageBox *>(dialog)->text();
            dialog->reject();
        });
        QVERIFY(!action->add(file("tape.csv")));
        QVERIFY2(said.contains("they are not shown together"), qPrintable(said));

        // The middle one is closed by its button; another source in the window closes the rest.
        w.pane(0).findChild<QToolButton *>("close")->click();
        QTRY_COMPARE(w.window.findChild<CompanionPanes *>()->panes().size(), 1);
        QVERIFY(w.window.sources().open("sim:ic4"));
        QVERIFY(w.window.companions().isEmpty());
        QCOMPARE(headings(), QString("- - - -"));
        QVERIFY(w.window.displays().scope()->areControlsVisible());
        QVERIFY(w.window.findChild<CompanionPanes *>()->isHidden());
        QCOMPARE(w.ends(), QString("-"));
        QCOMPARE(w.session.recordingLabel(), QString());
    }

    void twentySources()
    {
        SeveralSources w(file("twenty.xui"));
        w.source->begin(w.header(0.0));
        QVector<ScriptedSource *> beside;
        for (int i = 0; i < 19; ++i) {
            beside.append(w.add("halo"));
            beside.last()->begin(w.header(-i));
        }
        for (int i = 0; i < 19; ++i)
            beside[i]->give(i, {double(i)}); // all of them now
        w.clock.advance(0.3);
        QSet<QString> names;
        for (const auto &member : w.window.companions().members())
            names.insert(member.name);
        QCOMPARE(names.size(), 20);
        QStringList expected{"0.00"};
        for (int i = 0; i < 19; ++i)
            expected += QString::number(i, 'f', 2);
        w.source->give(0.0, {1.0});
        w.clock.advance(0.3);
        QCOMPARE(w.ends(), expected.join(' '));
    }

private:
    QString file(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_Companions)
#include "tst_Companions.moc"
