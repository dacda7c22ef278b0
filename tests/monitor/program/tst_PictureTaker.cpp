// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/PictureTaker.h"
#include "monitor/program/WindowRun.h"
#include "monitor/session/Companions.h"
#include "monitor/window/EventLog.h"
#include "monitor/window/KeptOptions.h"
#include "monitor/window/MonitorWindow.h"
#include "monitor/window/WindowSettings.h"
#include "tests/monitor/support/ScriptedSession.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

using namespace Monitor;

//! When a picture is taken, and when there will be none, by a clock that the test moves.
class tst_PictureTaker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
    }

    void itWaitsForDataNotForTime()
    {
        Run run(m_folder->path());
        run.session.setLimit(ReadingLimit(30, 0.0));
        run.source->begin(StreamKind::Channels, 3);
        // Half an hour, one reading each ten seconds, does not end its patience.
        for (int i = 0; i < 29; ++i) {
            run.clock.advance(10.0);
            run.source->give();
        }
        QCOMPARE(run.code, -1);
        run.source->give();
        QCOMPARE(run.code, -1); // the display has not had its time
        QTRY_VERIFY_WITH_TIMEOUT((run.clock.advance(0.1), run.code >= 0), 20000);
        QVERIFY2(run.code == ExitGood, qPrintable(run.text));
        QCOMPARE(QImage(m_folder->filePath("picture.png")).size(), run.window.size());
    }

    //! Time in which the program had no turn is none in which a display could draw.
    void aBusyMachineIsWaitedFor()
    {
        Run run(m_folder->path());
        run.session.setLimit(ReadingLimit(30, 0.0));
        run.source->begin(StreamKind::Channels, 3);
        for (int i = 0; i < 30; ++i) {
            run.source->give();
            run.clock.advance(0.02);
        }
        run.clock.advanceSilently(60.0);
        run.clock.advance(0.02);
        QCOMPARE(run.code, -1);
        QTRY_VERIFY_WITH_TIMEOUT((run.clock.advance(0.1), run.code >= 0), 20000);
        QVERIFY2(run.code == ExitGood, qPrintable(run.text));
    }

    void silenceHasAnEnd()
    {
        Run run(m_folder->path());
        run.clock.advance(19.0);
        QCOMPARE(run.code, -1);
        run.clock.advance(2.0);
        QCOMPARE(run.code, int(ExitSourceLost));
        QVERIFY2(run.text.contains("script: no data for"), qPrintable(run.text));
        QVERIFY2(run.text.contains("Ask the author."), qPrintable(run.text));
    }

    void anEndWithoutData()
    {
        Run run(m_folder->path());
        run.source->setState(Source::State::Finished, QString("the end"));
        run.clock.advance(1.0);
        QCOMPARE(run.code, int(ExitBadData));
        QVERIFY(!QFile::exists(m_folder->filePath("picture.png")));
    }

    //! The window's run with a detector for one of two sources, then without, and after it was forgotten.
    void aDetectorIsRememberedForItsSource()
    {
        const QString file = m_folder->filePath("detector.json");
        putFile(file, R"({"detector":1,"kind":"strips","x":{"cells":2}})");
        putFile(m_folder->filePath("a.csv"), "time_s,a,b\n0,1,2\n");
        const auto logOf = [this](const QString &arguments) {
            CommandLine line;
            QString error;
            if (!line.parse(
                    ("corvale-monitor --settings " + m_folder->filePath("s.xui") + ' ' + arguments)
                        .split(' '),
                    &error))
                return error;
            WindowRun run(line);
            return run.prepare()
                ? run.window()->findChild<EventLog *>()->textBrowser()->toPlainText()
                : QString();
        };
        const QString source = m_folder->filePath("a.csv"), asBefore = "as before";
        QVERIFY(!logOf("--detector " + file + ' ' + source).contains(asBefore));
        QVERIFY(logOf(source).contains(file + ", " + asBefore));
        QVERIFY(!logOf("sim:strips").contains(asBefore));
        putFile(file, "{}");
        QVERIFY(logOf(source).contains("ERROR the detector of " + file + " is not used"));
        QVERIFY(!logOf("--detector none " + source).contains(file));
        QVERIFY(!logOf(source).contains(file));
    }

    //! The window's run with two sources, then as the settings say: with the last source, and with what was beside it.
    void whatWasBesideComesBack()
    {
        const QString file = m_folder->filePath("beside.xui");
        const auto namesWith = [&file](const QStringList &sources) {
            CommandLine line;
            QString error;
            if (!line.parse(QStringList{"corvale-monitor", "--settings", file} + sources, &error))
                return error;
            WindowRun run(line);
            if (!run.prepare())
                return QString("not prepared");
            QStringList names;
            QTimer::singleShot(0, &run, [&] {
                for (const auto &member : run.window()->companions().members())
                    names += member.name;
                run.window()->close();
            });
            const int code = run.run();
            return code == ExitGood ? names.join(' ') : QString("exit code %1").arg(code);
        };
        {
            WindowSettings settings(file);
            MonitorOptions options;
            options.start = MonitorOptions::Start::LastSource;
            keepOptions(options, settings);
        }
        QCOMPARE(namesWith({"sim:ic4", "--source", "halo=sim:pixels", "sim:strips"}),
                 QString("ic4 strips halo"));
        QCOMPARE(namesWith({}), QString("ic4 strips halo"));
        QCOMPARE(namesWith({}), QString("ic4 strips halo"));
        QCOMPARE(namesWith({"sim:spots"}), QString("spots"));
        QCOMPARE(namesWith({}), QString("spots"));
    }

private:
    struct Run : ScriptedSession
    {
        explicit Run(const QString &folder)
            : window(session, folder + "/settings.xui")
            , taker(session, window, folder + "/picture.png")
        {
            connect(&taker, &PictureTaker::done, [this](ExitCode how, const QString &what) {
                code = how;
                text = what;
            });
            window.show();
            session.start();
        }
        MonitorWindow window;
        PictureTaker taker;
        int code = -1;
        QString text;
    };
    std::unique_ptr<QTemporaryDir> m_folder;
};

CORVALE_QT_TEST_MAIN(tst_PictureTaker)
#include "tst_PictureTaker.moc"
