// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/monitor/support/ProgramInFolder.h"
#include "tests/support/TestMain.h"

//! A second start of the program, while a window with the same settings is open.
class tst_SecondStart : public QObject, protected ProgramInFolder
{
    Q_OBJECT

private Q_SLOTS:
    //! A window that reads standard input reads its own; that of a second program is not opened.
    void standardInputBelongsToOneProgram()
    {
        QProcess first;
        first.setProcessEnvironment(environment());
        first.start(QStringLiteral(CORVALE_MONITOR),
                    {"-", "--settings", path("pipe.xui"), "--record", path("pipe.csv")});
        first.write("time_s,a_nA\n0,1\n0.1,2\n0.2,3\n");
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(path("pipe.csv")).size() > 0, longest);
        const Outcome second = run({"-", "--settings", path("pipe.xui")});
        QCOMPARE(second.code, 1);
        QVERIFY2(second.err.contains("Not opened: -."), second.err);
        first.terminate();
        QVERIFY(first.waitForFinished(longest));
    }

    void oneWindowForEachSettingsFile()
    {
        QProcess first;
        first.setProcessEnvironment(environment());
        first.setWorkingDirectory(m_folder.path());
        const QString record = path("window.csv");
        first.start(QStringLiteral(CORVALE_MONITOR),
                    {"sim:ic4", "--settings", "one.xui", "--record", record});
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(record).size() > 1000, longest);
        const Outcome second = run({"sim:ic4", "--settings", "one.xui"});
        QCOMPARE(second.code, 0);
        QVERIFY2(second.err.contains("open already"), second.err);
        // What the open window does not take over is an error.
        const auto refused = [this](const QStringList &arguments) {
            const Outcome outcome = run(arguments + QStringList{"--settings", "one.xui"});
            return outcome.code == 1 ? QString::fromUtf8(outcome.err) : QString();
        };
        QVERIFY(refused({"sim:pixels"}).contains("Not opened: sim:pixels."));
        QVERIFY(refused({"sim:ic4", "--source", "b=sim:spots"}).contains("Not opened: sim:spots."));
        QVERIFY(refused({"-"}).contains("Not opened: -."));
        const QString both = refused({"x.csv", "--record", "no.csv", "--span", "2h", "--loop"});
        QVERIFY2(both.contains("Not opened: x.csv.")
                     && both.contains("Without effect: --record no.csv, --span 2h, --loop."),
                 qPrintable(both));
        // Another file, another window.
        const Outcome other = run({"sim:ic4", "--settings", "two.xui", "--after", "5frames"});
        QCOMPARE(other.code, 0);
        QVERIFY(!other.err.contains("open already"));

        first.terminate();
        QVERIFY(first.waitForFinished(longest));
        QCOMPARE(first.exitStatus(), QProcess::NormalExit);
        QCOMPARE(first.exitCode(), 0);
        QVERIFY(QFileInfo(path("one.xui")).size() > 100);
        QCOMPARE(run({record, "--check"}).code, 0);
    }
};

CORVALE_QT_TEST_MAIN(tst_SecondStart)
#include "tst_SecondStart.moc"
