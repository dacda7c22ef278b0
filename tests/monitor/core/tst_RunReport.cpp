// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/LogTail.h"
#include "monitor/core/RunReport.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

#include <csignal>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Monitor;

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

const QString window = QStringLiteral("/settings/a.xui");

//! Takes back what QtTest does about signals; a sanitizer keeps those that it handles.
void leaveSignalsToTheProgram()
{
    std::signal(SIGABRT, SIG_DFL);
    if (isSanitized)
        return;
    for (const int number : {SIGSEGV, SIGBUS, SIGFPE, SIGILL})
        std::signal(number, SIG_DFL);
    stack_t none = {};
    none.ss_flags = SS_DISABLE;
    ::sigaltstack(&none, nullptr);
}

//! Uses up the stack, unless the depth is negative.
int descend(const volatile int *depth)
{
    if (*depth < 0)
        return 0;
    volatile int room[1000] = {};
    room[999] = *depth + 1;
    return descend(&room[999]) + room[0];
}

//! Throws what nobody can catch.
void throwUncaught(const std::exception &exception) noexcept
{
    std::rethrow_exception(std::make_exception_ptr(std::runtime_error(exception.what())));
}

} // namespace

Q_DECLARE_METATYPE(std::function<void()>)

//! What a process that ends in some way leaves, and what the next one makes of it. Each run is a child of the test.
class tst_RunReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_state = std::make_unique<QTemporaryDir>();
        qputenv("XDG_STATE_HOME", QFile::encodeName(m_state->path()));
    }

    void crashes_data()
    {
        QTest::addColumn<std::function<void()>>("crash");
        QTest::addColumn<QString>("said");
        const auto row = [](const char *name, const QString &said,
                            const std::function<void()> &crash) {
            QTest::newRow(name) << crash << said;
        };
        row("a signal from outside", "signal 7 (SIGBUS), 0 s", [] { ::raise(SIGBUS); });
        row("an abort", "signal 6 (SIGABRT), 0 s", [] { std::abort(); });
        row("an exception that nobody catches", "exception: no such beam",
            [] { throwUncaught(std::runtime_error("no such beam")); });
        row("memory that is not there", "(SIGSEGV) at address 0x40,",
            [] { *reinterpret_cast<volatile int *>(0x40) = 1; });
        row("a stack that is used up", "(SIGSEGV) at address 0x", [] {
            volatile int begin = 0;
            descend(&begin);
        });
    }

    void crashes()
    {
        QFETCH(std::function<void()>, crash);
        QFETCH(QString, said);
        if (isSanitized && (said.contains("SEGV") || said.contains("SIGBUS")))
            QSKIP("a sanitizer reports this crash");
        const int status = run([&] {
            for (int i = 0; i < LogTail::mostLines + 5; ++i)
                LogTail::add(QString("line %1.").arg(i));
            LogTail::add(QString(1000, 'x'));
            RunReport report(window);
            report.note("source", "sim:ic4");
            crash();
        });
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(FormerRun::take("/settings/another.xui").size(), 0);
        const QVector<FormerRun> runs = FormerRun::take(window);
        QCOMPARE(runs.size(), 1);
        QVERIFY(runs[0].crashed.isValid());
        QVERIFY(runs[0].began.isValid());
        QCOMPARE(runs[0].notes.value("source"), QString("sim:ic4"));
        QVERIFY(runs[0].reason.contains(QString("signal %1").arg(WTERMSIG(status))));
        const QString text = fileContents(runs[0].report);
        QVERIFY2(text.contains(said), qPrintable(text));
        QVERIFY(!text.contains("line 5.") && text.contains("line 6.\nline 7."));
        QVERIFY(text.contains("xxx\n") && !text.contains(QString(LogTail::longestLine + 1, 'x')));
        QVERIFY(text.section("The frames of the stack", 1).count("[0x") >= 3);
        struct stat file = {};
        QVERIFY(::stat(QFile::encodeName(runs[0].report), &file) == 0);
        QCOMPARE(file.st_mode & 0777, mode_t(0600));
        QCOMPARE(FormerRun::take(window).size(), 0); // it was told
    }

    void otherEnds()
    {
        QCOMPARE(run([] { RunReport report(window); }), 0);
        QCOMPARE(FormerRun::take(window).size(), 0);
        run([] {
            RunReport report(window);
            report.note("source", "tcp://a");
            report.note("gone", "text");
            report.note("gone", {});
            report.note("forged", "x\n\ncrash: signal 11");
            ::raise(SIGKILL);
        });
        const RunReport present(window); // goes on, and is not taken
        const QVector<FormerRun> runs = FormerRun::take(window);
        QCOMPARE(runs.size(), 1);
        QVERIFY(!runs[0].crashed.isValid() && runs[0].report.isEmpty());
        QCOMPARE(runs[0].notes.keys(), QStringList({"source", "window"}));
    }

    void aFewReportsStay()
    {
        for (int i = 0; i < FormerRun::mostReports + 2; ++i) {
            run([] {
                RunReport report(window);
                ::raise(SIGABRT);
            });
            QCOMPARE(FormerRun::take(window).size(), 1);
        }
        QCOMPARE(QDir(RunReport::folder()).entryList(QDir::Files).size(), FormerRun::mostReports);
    }

    //! No folder, a folder that is a file, a report that somebody has filled or replaced by a link: no harm is done.
    void badFolders()
    {
        putFile(m_state->filePath("Corvale/runs/big.run"), QByteArray(4000000, 'a'));
        putFile(m_state->filePath("target"), "keep");
        QVERIFY(
            QFile::link(m_state->filePath("target"), m_state->filePath("Corvale/runs/link.run")));
        QCOMPARE(FormerRun::take({}).size(), 1);
        QCOMPARE(fileContents(m_state->filePath("target")), QByteArray("keep"));
        qputenv("XDG_STATE_HOME", QFile::encodeName(m_state->filePath("target")));
        RunReport report(window);
        QVERIFY(!report.isOpen());
        report.note("a", "b");
        QCOMPARE(FormerRun::take(window).size(), 0);
    }

private:
    //! Runs a function in a child process; returns how it ended.
    static int run(const std::function<void()> &function)
    {
        const pid_t child = ::fork();
        if (child == 0) {
            const rlimit none = {0, 0}; // no core dump
            ::setrlimit(RLIMIT_CORE, &none);
            leaveSignalsToTheProgram();
            function();
            ::_exit(0);
        }
        int status = -1;
        ::waitpid(child, &status, 0);
        return status;
    }

    std::unique_ptr<QTemporaryDir> m_state;
};

CORVALE_QT_TEST_MAIN(tst_RunReport)

#include "tst_RunReport.moc"
