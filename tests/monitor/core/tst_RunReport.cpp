// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/LogTail.h"
#include "monitor/core/LoopWatch.h"
#include "monitor/core/RunReport.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

#include <csignal>
#include <ctime>
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

namespace {

double processorTime()
{
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + 1e-9 * double(time.tv_nsec);
}

void compute(double seconds)
{
    const double end = processorTime() + seconds;
    while (processorTime() < end) { }
}

} // namespace

/*! What a process that ends in some way leaves, and what the next one makes of it, each run in a child of the test; and what the watch
    over the event loop says of turns in which a clock is moved by hand, or in which the processor is really used. */
class tst_RunReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_state = std::make_unique<QTemporaryDir>();
        qputenv("XDG_STATE_HOME", QFile::encodeName(m_state->path()));
        m_watch.reset(); // it asks the clock
        m_clock = std::make_unique<ManualClock>();
        m_watch = std::make_unique<LoopWatch>(*m_clock);
        m_said.clear();
        connect(m_watch.get(), &LoopWatch::stalled, this,
                [this](const QString &text) { m_said.append(text); });
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

    void theBeginningIsNotCounted()
    {
        turn([this] { m_clock->advanceSilently(LoopWatch::usualBeginning + 2.0); });
        QCOMPARE(m_watch->turns(), qint64(0));
        QCOMPARE(m_said, QStringList());
        turn([] {});
        QVERIFY(m_watch->turns() > 0);
    }

    void aStallIsTold()
    {
        m_clock->advanceSilently(LoopWatch::usualBeginning);
        const auto last = [this](double seconds) {
            turn([this, seconds] { m_clock->advanceSilently(seconds); });
        };
        last(0.75);
        QCOMPARE(m_watch->longestTime(), 0.75);
        QCOMPARE(m_said, QStringList());
        last(2.5);
        QCOMPARE(m_said.size(), 1);
        QVERIFY2(m_said.first().startsWith("the program stood still for 2.5 s"),
                 qPrintable(m_said.first()));
        last(0.5);
        QCOMPARE(m_said.size(), 1);
        QCOMPARE(m_watch->longestTime(), 2.5);
        QVERIFY(m_watch->summary().contains(" one took 2500.0 ms at most"));
    }

    //! Time in which the loop waits for an event belongs to no turn.
    void waitingIsNoTurn()
    {
        m_clock->advanceSilently(LoopWatch::usualBeginning);
        turn([] {});
        m_clock->advanceSilently(100.0);
        turn([] {});
        QCOMPARE(m_watch->longestTime(), 0.0);
    }

    void theLoopOfADialogHasTurns()
    {
        m_clock->advanceSilently(LoopWatch::usualBeginning);
        turn([this] {
            QEventLoop dialog;
            for (int i = 0; i < 10; ++i)
                QTimer::singleShot(i, &dialog, [this, i, &dialog] {
                    m_clock->advanceSilently(0.4);
                    if (i == 9)
                        dialog.quit();
                });
            dialog.exec();
        });
        QVERIFY2(m_watch->longestTime() < 4.0, qPrintable(m_watch->summary()));
    }

    void processorTimeIsThatOfATurn()
    {
        m_clock->advanceSilently(LoopWatch::usualBeginning);
        turn([] {});
        for (int i = 0; i < 10; ++i)
            turn([] { compute(0.005); });
        QVERIFY2(m_watch->mostProcessorTime() >= 0.005, qPrintable(m_watch->summary()));
        turn([] { compute(0.1); });
        QVERIFY2(m_watch->mostProcessorTime() >= 0.1, qPrintable(m_watch->summary()));
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

    //! Runs a function as the only event of a turn of the event loop.
    template<typename Function>
    void turn(Function function)
    {
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&] {
            function();
            loop.quit();
        });
        loop.exec();
        QCoreApplication::processEvents();
    }

    std::unique_ptr<ManualClock> m_clock;
    std::unique_ptr<LoopWatch> m_watch;
    QStringList m_said;
};

CORVALE_QT_TEST_MAIN(tst_RunReport)
#include "tst_RunReport.moc"
