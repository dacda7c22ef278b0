// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/SweepProgress_p.h"
#include "tests/support/TestMain.h"

#include <QStringList>

using namespace Corvale_Qt;

namespace {

/*! A buffer of limited size whose samples are numbered from 1 for ever; sweeps are taken as soon as they are complete,
    as often as somebody looks. */
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

    //! Numbers of the first and last sample of each sweep that is complete.
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

} // namespace

class tst_SweepProgress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noSampleIsSkippedOrDrawnTwice_data();
    void noSampleIsSkippedOrDrawnTwice();
    void samplesLostBeforeTheirSweepAreLeftOut();
    void lengthWithoutAWish();
    void anInsertionAtTheFrontBeginsAnew();
    void rewindGoesBackOneSweep();
};

void tst_SweepProgress::noSampleIsSkippedOrDrawnTwice_data()
{
    QTest::addColumn<int>("batch");
    for (int batch : {1, 3, 10, 25})
        QTest::addRow("%d at a time", batch) << batch;
}

void tst_SweepProgress::noSampleIsSkippedOrDrawnTwice()
{
    QFETCH(int, batch);
    Ring ring(40, 10);
    QStringList taken;
    for (int total = 0; total + batch <= 300; total += batch) {
        ring.append(batch);
        const QString sweeps = ring.take();
        if (!sweeps.isEmpty())
            taken << sweeps.split(' ');
    }
    QStringList expected;
    for (int first = 1; first + 9 <= 300 / batch * batch; first += 10)
        expected << QStringLiteral("%1-%2").arg(first).arg(first + 9);
    QCOMPARE(taken.join(' '), expected.join(' '));
}

void tst_SweepProgress::samplesLostBeforeTheirSweepAreLeftOut()
{
    Ring ring(40, 10);
    ring.append(20);
    QCOMPARE(ring.take(), QString("1-10 11-20"));
    ring.append(30);
    ring.append(35); // nobody looked: 21-45 are gone
    QCOMPARE(ring.take(), QString("46-55 56-65 66-75 76-85"));
}

void tst_SweepProgress::lengthWithoutAWish()
{
    SweepProgress sweep;
    QCOMPARE(sweep.length(), 256);
    sweep.rowsInserted(2, 6, 6, 0);
    QCOMPARE(sweep.length(), 256); // five rows are no sweep of the instrument's own
    sweep.rowsInserted(7, 12, 12, 0);
    QCOMPARE(sweep.length(), 6);
    sweep.rowsInserted(13, 13, 13, -4);
    QCOMPARE(sweep.length(), 256);
    sweep.rowsInserted(14, 14, 14, 32);
    QCOMPARE(sweep.length(), 32);
}

void tst_SweepProgress::anInsertionAtTheFrontBeginsAnew()
{
    Ring ring(1000, 10);
    ring.append(25);
    QCOMPARE(ring.take(), QString("1-10 11-20"));
    ring.sweep.rowsInserted(1, 10, 10, 10);
    QCOMPARE(ring.sweep.next().first, 1);
}

void tst_SweepProgress::rewindGoesBackOneSweep()
{
    Ring ring(1000, 10);
    ring.append(25);
    ring.take();
    ring.sweep.rewind();
    QCOMPARE(ring.sweep.next().first, 11);
    ring.sweep.rewind();
    ring.sweep.rewind();
    QCOMPARE(ring.sweep.next().first, 1);
}

CORVALE_QT_TEST_MAIN(tst_SweepProgress)
#include "tst_SweepProgress.moc"
