// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/SweepTrigger.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using Edge = SweepTrigger::Edge;

namespace {

SweepTrigger triggerAt(double level, Edge edge, double hysteresis = 0.0, double holdOff = 0.0)
{
    SweepTrigger trigger;
    trigger.mode = SweepTrigger::Mode::Normal;
    trigger.level = level;
    trigger.edge = edge;
    trigger.hysteresis = hysteresis;
    trigger.holdOff = holdOff;
    return trigger;
}

//! Returns the times of the triggers among readings that are \a step apart.
QVector<double>
triggersIn(const SweepTrigger &trigger, const QVector<double> &readings, double step)
{
    TriggerSearch search(trigger);
    QVector<double> found;
    for (int i = 0; i < readings.size(); ++i) {
        if (search.add(i * step, readings[i]))
            found.append(i * step);
    }
    return found;
}

/*! The definition, looked up backwards from each reading: it is at or beyond the level, and the last reading before it that
    was at or beyond the level is older than one that was far enough on the other side. */
QVector<double>
triggersByDefinition(const SweepTrigger &trigger, const QVector<double> &readings, double step)
{
    const auto isEdge = [&](int i, int sign) {
        if (!(sign * (readings[i] - trigger.level) >= 0.0))
            return false;
        for (int k = i - 1; k >= 0; --k) {
            if (sign * (readings[k] - trigger.level) < -trigger.hysteresis)
                return true;
            if (sign * (readings[k] - trigger.level) >= 0.0)
                return false;
        }
        return false;
    };
    QVector<double> found;
    for (int i = 0; i < readings.size(); ++i) {
        const bool wanted = (trigger.edge != Edge::Falling && isEdge(i, 1))
            || (trigger.edge != Edge::Rising && isEdge(i, -1));
        if (wanted && (found.isEmpty() || i * step - found.last() >= trigger.holdOff))
            found.append(i * step);
    }
    return found;
}

} // namespace

class tst_SweepTrigger : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    //! Gaussian pulses, whose passages of a level are known by calculation.
    void analyticPulses()
    {
        constexpr double step = 0.01, sigma = 0.5, height = 10.0, period = 10.0;
        QVector<double> readings;
        for (int i = 0; i < 10000; ++i) {
            const double t = std::remainder(i * step - 0.5 * period, period);
            readings.append(height * std::exp(-0.5 * t * t / (sigma * sigma)));
        }
        for (const double level : {0.5, 3.0, 9.9}) {
            const double halfWidth = sigma * std::sqrt(2.0 * std::log(height / level));
            for (const Edge edge : {Edge::Rising, Edge::Falling}) {
                const auto found = triggersIn(triggerAt(level, edge), readings, step);
                QCOMPARE(found.size(), 10);
                for (int pulse = 0; pulse < found.size(); ++pulse) {
                    const double centre = (pulse + 0.5) * period;
                    const double passed = centre + (edge == Edge::Rising ? -halfWidth : halfWidth);
                    // The first reading behind the passage.
                    QVERIFY(found[pulse] >= passed - 1e-9 && found[pulse] < passed + step + 1e-9);
                }
            }
            QCOMPARE(triggersIn(triggerAt(level, Edge::Either), readings, step).size(), 20);
        }
        QCOMPARE(triggersIn(triggerAt(10.5, Edge::Rising), readings, step).size(), 0);
        // With a hold-off of two and a half periods, every third pulse triggers.
        QCOMPARE(triggersIn(triggerAt(3.0, Edge::Rising, 0.0, 25.0), readings, step).size(), 4);
    }

    void noisyReadingsByBruteForce()
    {
        std::mt19937 random(8);
        std::normal_distribution<double> noise(0.0, 0.6);
        for (int turn = 0; turn < 200; ++turn) {
            QVector<double> readings;
            for (int i = 0; i < 500; ++i) {
                const double reading = 3.0 * std::sin(i * 0.07) + noise(random);
                // Whole numbers meet the level exactly; some readings are missing.
                readings.append(random() % 40 == 0  ? qQNaN()
                                    : turn % 2 == 0 ? std::round(reading)
                                                    : reading);
            }
            const auto trigger = triggerAt(int(random() % 5) - 2.0,
                                           Edge(random() % 3),
                                           double(random() % 4) * 0.5,
                                           double(random() % 4) * 10.0);
            QCOMPARE(triggersIn(trigger, readings, 1.0),
                     triggersByDefinition(trigger, readings, 1.0));
        }
    }

    void whichTriggersAreValid()
    {
        QVERIFY(SweepTrigger().isValid() && !SweepTrigger().isOn());
        const auto with = [](auto change) {
            SweepTrigger trigger = triggerAt(1.0, Edge::Rising);
            change(trigger);
            return trigger.isValid();
        };
        QVERIFY(!with([](SweepTrigger &t) {
            t.level = qQNaN();
        }));
        QVERIFY(!with([](SweepTrigger &t) {
            t.hysteresis = -1.0;
        }));
        QVERIFY(!with([](SweepTrigger &t) {
            t.shareBefore = 1.5;
        }));
        QVERIFY(!with([](SweepTrigger &t) {
            t.holdOff = qInf();
        }));
        QVERIFY(!with([](SweepTrigger &t) {
            t.channel = 0;
        }));
    }
};

CORVALE_QT_TEST_MAIN(tst_SweepTrigger)
#include "tst_SweepTrigger.moc"
