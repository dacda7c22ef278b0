// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/LoopWatch.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/support/TestMain.h"

#include <ctime>

using namespace Monitor;

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

//! What the watch says of turns in which a clock is moved by hand, or in which the processor is really used.
class tst_LoopWatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_clock = std::make_unique<ManualClock>();
        m_watch = std::make_unique<LoopWatch>(*m_clock);
        m_said.clear();
        connect(m_watch.get(), &LoopWatch::stalled, this,
                [this](const QString &text) { m_said.append(text); });
    }
    void cleanup() { m_watch.reset(); }

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

CORVALE_QT_TEST_MAIN(tst_LoopWatch)
#include "tst_LoopWatch.moc"
