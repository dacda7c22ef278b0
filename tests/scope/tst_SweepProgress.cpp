// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/BatchSizes_p.h"
#include "corvale_qt/scope/SweepProgress_p.h"
#include "corvale_qt/scope/TriggeredSweeps_p.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

//! A buffer of limited size that numbers its samples from 1. take() takes all sweeps that are complete.
class Ring
{
public:
    explicit Ring(int capacity, int length)
        : m_capacity(capacity)
        , m_length(length)
    {
        sweep.setLengthHint(length);
    }

    void append(int count)
    {
        const int start = qMin(m_last, m_capacity - count) + 1;
        m_dropped += qMax(m_last + count - m_capacity, 0);
        m_last = qMin(m_last + count, m_capacity);
        sweep.rowsInserted(qMax(start, 2), m_last, m_last, m_length);
    }

    //! Takes the complete sweeps and returns the numbers of their first and last samples.
    QString take()
    {
        QStringList taken;
        while (sweep.isComplete(m_last)) {
            const RowRange rows = sweep.next();
            taken << QStringLiteral("%1-%2").arg(rows.first + m_dropped).arg(rows.last + m_dropped);
            sweep.advance();
        }
        return taken.join(' ');
    }

    SweepProgress sweep;

private:
    int m_capacity;
    int m_length;
    int m_last = 0;
    int m_dropped = 0;
};

//! A pulse of 5 rows at the rows 11, 31, 51 and so on, in channel 2.
double pulses(int channel, double time)
{
    return channel == 2 && int(time + 10.0) % 20 < 5 && time >= 10.0 ? 1.0 : 0.0;
}

SweepTrigger pulseTrigger(SweepTrigger::Mode mode, double shareBefore)
{
    SweepTrigger trigger;
    trigger.mode = mode;
    trigger.channel = 2;
    trigger.level = 0.5;
    trigger.shareBefore = shareBefore;
    return trigger;
}

} // namespace

class tst_SweepProgress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noSampleIsSkippedOrDrawnTwice()
    {
        for (int batch : {1, 3, 10, 25}) {
            Ring ring(40, 10);
            QStringList taken, expected;
            for (int total = 0; total + batch <= 300; total += batch) {
                ring.append(batch);
                taken += ring.take().split(' ', Qt::SkipEmptyParts);
            }
            for (int first = 1; first + 9 <= 300 / batch * batch; first += 10)
                expected << QStringLiteral("%1-%2").arg(first).arg(first + 9);
            QCOMPARE(taken.join(' '), expected.join(' '));
        }
        // Samples that were lost before their sweep are left out.
        Ring ring(40, 10);
        ring.append(20);
        QCOMPARE(ring.take(), QString("1-10 11-20"));
        ring.append(30);
        ring.append(35); // 21-45 left the buffer before take()
        QCOMPARE(ring.take(), QString("46-55 56-65 66-75 76-85"));
    }

    void lengthWithoutAWish()
    {
        SweepProgress sweep;
        QCOMPARE(sweep.length(), 256);
        // First and last row of a batch, the model's hint, the length of a sweep.
        const int batches[][4] = {{2, 6, 0, 256},
                                  {7, 12, 0, 6},
                                  {13, 13, -4, 256},
                                  {14, 14, 32, 32}};
        for (const auto &[first, last, hint, length] : batches) {
            sweep.rowsInserted(first, last, last, hint);
            QCOMPARE(sweep.length(), length);
        }
        BatchSizes sizes;
        for (int rows : {5, 6}) {
            sizes.add(rows);
            QCOMPARE(sizes.median(), rows < 6 ? 0 : rows);
        }
    }

    void theShownSweepIsKnownWhileItsRowsMove_data()
    {
        // Rows that are removed "-first-last" or inserted "+first-last".
        columns<QString, QString, int>("changes", "shown", "next");
        row("nothing", "", "11-20", 21);
        row("rows come at the end", "+26-30", "11-20", 21);
        row("old rows go", "-1-3 -1-1", "7-16", 17);
        row("some of the sweep go", "-1-15", "-4-5", 6);
        row("the whole sweep goes", "-1-20", "1-0", 1);
        row("a full buffer rolls over", "-1-1 +25-25", "10-19", 20);
        row("rows inside it go", "-12-13", "1-0", 19);
        row("rows after it go", "-22-23", "11-20", 21);
        row("rows come in front of it", "+5-6", "1-0", 21);
        row("rows come in front of all", "+1-5", "1-0", 1);
    }
    void theShownSweepIsKnownWhileItsRowsMove()
    {
        Ring ring(1000, 10);
        ring.append(25);
        ring.take();
        int last = 25;
        for (const QString &change : cell("changes").split(' ', Qt::SkipEmptyParts)) {
            const int first = change.section('-', -2, -2).remove('+').toInt();
            const int end = change.section('-', -1).toInt();
            const bool comes = change.startsWith('+');
            last += comes ? end - first + 1 : first - end - 1;
            if (comes)
                ring.sweep.rowsInserted(first, end, last, 10);
            else
                ring.sweep.rowsRemoved(first, end);
        }
        const RowRange shown = ring.sweep.shown();
        QTEST(QStringLiteral("%1-%2").arg(shown.first).arg(shown.last), "shown");
        QTEST(ring.sweep.next().first, "next");
    }

    void manyWaitingSweepsAreLeftOut()
    {
        for (const int waiting : {8, 9, 390}) {
            SweepProgress sweep;
            sweep.setLengthHint(10);
            const int last = waiting * 10 + 7;
            sweep.restart(last);
            sweep.skipToNewest(last);
            // The sweep borders are the same as without skipping.
            QCOMPARE(sweep.next().first, waiting > 8 ? waiting * 10 - 9 : 1);
        }
    }

    void sweepsBeginAtTriggers_data()
    {
        // Pulses rise at rows 11, 31, 51 ... of 200.
        tableFrom(R"(
            | int length | double share | double holdOff | int batch | int capacity | sweeps
            all before | 10 | 0.0 | 0 | 3 | 1000 | 11-20@11 31-40@31 51-60@51 71-80@71 91-100@91,
                111-120@111 131-140@131 151-160@151 171-180@171 191-200@191
            a share before | 10 | 0.3 | 0 | 1 | 1000 | 8-17@11 28-37@31 48-57@51 68-77@71 88-97@91,
                108-117@111 128-137@131 148-157@151 168-177@171 188-197@191
            not enough rows before the first | 20 | 0.75 | 0 | 1 | 1000
                | 16-35@31 36-55@51 56-75@71 76-95@91,
                96-115@111 116-135@131 136-155@151 156-175@171 176-195@191
            a trigger that is not used holds none off | 20 | 0.75 | 25 | 1 | 1000
                | 16-35@31 56-75@71 96-115@111 136-155@151 176-195@191
            longer than the pulses are apart | 30 | 0.0 | 0 | 3 | 1000
                | 11-40@11 51-80@51 91-120@91, 131-160@131 171-200@171
            the beginning leaves while the rest is awaited | 20 | 0.25 | 0 | 3 | 21
                | 26-45@31 46-65@51 86-105@91 106-125@111 146-165@151 166-185@171
            the oldest rows leave | 10 | 0.3 | 0 | 5 | 25 | 8-17@11 28-37@31 48-57@51 68-77@71 88-97@91,
                108-117@111 128-137@131 148-157@151 168-177@171 188-197@191
            all the time before | 10 | 1.0 | 0 | 1 | 1000 | 2-11@11 22-31@31 42-51@51 62-71@71 82-91@91,
                102-111@111 122-131@131 142-151@151 162-171@171 182-191@191)");
    }
    void sweepsBeginAtTriggers()
    {
        QFETCH(int, length);
        QFETCH(int, batch);
        ScopeTestModel model(2, cell<int>("capacity"));
        TriggeredSweeps cut;
        SweepTrigger trigger = pulseTrigger(SweepTrigger::Mode::Normal, cell<double>("share"));
        QFETCH(double, holdOff);
        trigger.holdOff = holdOff;
        cut.set(trigger);
        QCOMPARE(cut.state(), TriggerState::Armed);
        int dropped = 0;
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved,
                         [&](QModelIndex, int first, int last) {
                             cut.rowsRemoved(first, last);
                             dropped += last - first + 1;
                         });
        QStringList found;
        for (int come = 0; come < 200; come += batch) {
            model.appendRows(qMin(batch, 200 - come), 1.0, pulses);
            const auto sweep = cut.update(PlotDataReader(&model), model.rowCount() - 1, length);
            if (sweep)
                found.append(QString("%1-%2@%3")
                                 .arg(sweep->rows.first + dropped)
                                 .arg(sweep->rows.last + dropped)
                                 .arg(sweep->origin + dropped));
        }
        QCOMPARE(found.join(' '), cell("sweeps").remove(','));
        QCOMPARE(cut.state(), TriggerState::Triggered);
    }

    //! Rows that change all at once, as they do with another unit, make no edge; one that comes after them is found.
    void aChangeOfUnitIsNoTrigger()
    {
        const auto triggerAfter = [](bool isToldOf, double before, double after) {
            TriggeredSweeps sweeps;
            sweeps.set(pulseTrigger(SweepTrigger::Mode::Normal, 0.0));
            ScopeTestModel inOneUnit(2), inAnother(2);
            inOneUnit.appendRows(12, 1.0, [](int, double) { return 0.25; });
            sweeps.update(PlotDataReader(&inOneUnit), 12, 4);
            inAnother.appendRows(20, 1.0,
                                 [=](int, double time) { return time < 15.0 ? before : after; });
            if (isToldOf)
                sweeps.valuesChanged();
            const auto sweep = sweeps.update(PlotDataReader(&inAnother), 20, 4);
            return sweep ? sweep->origin : 0;
        };
        QCOMPARE(triggerAfter(true, 1.0, 1.0), 0);
        QCOMPARE(triggerAfter(true, 0.4, 1.0), 16);
        QCOMPARE(triggerAfter(false, 1.0, 1.0), 13); // as if the readings had risen there
    }
    void triggersThatDoNotCome()
    {
        ScopeTestModel model(2);
        TriggeredSweeps sweeps;
        const auto next = [&](int rows) {
            model.appendRows(rows, 1.0, pulses);
            const auto sweep = sweeps.update(PlotDataReader(&model), model.rowCount() - 1, 4);
            return sweep ? QString("%1-%2@%3, %4")
                               .arg(sweep->rows.first)
                               .arg(sweep->rows.last)
                               .arg(sweep->origin)
                               .arg(sweep->isTriggered ? "triggered" : "free")
                         : QString();
        };
        QCOMPARE(next(3), QString()); // off
        sweeps.set(pulseTrigger(SweepTrigger::Mode::Automatic, 0.25));
        QCOMPARE(next(4), QString()); // two sweeps without a trigger have not passed
        QCOMPARE(next(1), QString("5-8@6, free"));
        QCOMPARE(sweeps.state(), TriggerState::Automatic);
        QCOMPARE(next(4), QString()); // the rest of a triggered sweep is awaited
        QCOMPARE(next(2), QString("10-13@11, triggered"));
        QCOMPARE(sweeps.state(), TriggerState::Triggered);
        sweeps.set(pulseTrigger(SweepTrigger::Mode::Single, 0.0));
        QCOMPARE(sweeps.state(), TriggerState::Armed);
        QCOMPARE(next(30), QString("31-34@31, triggered"));
        QCOMPARE(next(30), QString()); // at 51 and 71 it was not armed
        sweeps.arm();
        QCOMPARE(sweeps.state(), TriggerState::Armed);
        QCOMPARE(next(30), QString("91-94@91, triggered"));
        // Several sweeps at once: the newest is shown.
        sweeps.set(pulseTrigger(SweepTrigger::Mode::Normal, 0.0));
        QCOMPARE(next(70), QString("171-174@171, triggered"));
        sweeps.rowsRemoved(5, 6); // among rows that were searched: the search begins anew
        QCOMPARE(sweeps.update(PlotDataReader(&model), model.rowCount() - 1, 4)->rows.first, 171);
    }
};

CORVALE_QT_TEST_MAIN(tst_SweepProgress)
#include "tst_SweepProgress.moc"
