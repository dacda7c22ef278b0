// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/CellScreening.h"
#include "corvale_qt/numerics/ChannelLimits.h"
#include "corvale_qt/numerics/SweepTrigger.h"
#include "tests/support/CellCharges.h"
#include "tests/support/TestMain.h"

#include <vector>

using namespace Corvale_Qt;
using Edge = SweepTrigger::Edge;

namespace {

constexpr double none = ChannelLimits::none;

ChannelLimits limitsOf(double lowAlarm, double lowWarning, double highWarning, double highAlarm)
{
    ChannelLimits limits;
    limits.lowAlarm = lowAlarm;
    limits.lowWarning = lowWarning;
    limits.highWarning = highWarning;
    limits.highAlarm = highAlarm;
    return limits;
}

//! Returns a letter for each state after a reading: n, l, h, L and H, capitals for alarms.
QString statesOf(const ChannelLimits &limits, const QVector<double> &readings)
{
    LimitWatch watch(limits);
    QString states;
    for (int i = 0; i < readings.size(); ++i) {
        watch.add(i, readings[i]);
        states += QLatin1Char("nlhLH"[int(watch.state())]);
    }
    return states;
}

//! Returns the letters that the definition gives: a limit that was passed holds until the reading is behind it by h.
QString statesByDefinition(const ChannelLimits &limits, double h, const QVector<double> &readings)
{
    const struct
    {
        char letter;
        int side, severity;
        double limit;
    } all[] = {{'l', -1, 1, limits.lowWarning},
               {'h', 1, 1, limits.highWarning},
               {'L', -1, 2, limits.lowAlarm},
               {'H', 1, 2, limits.highAlarm}};
    QString states;
    int side = 0, severity = 0;
    for (const double reading : readings) {
        char best = 'n';
        int bestSide = 0, bestSeverity = 0;
        const auto tryAll = [&](int wantedSide, bool held) {
            for (const auto &each : all) {
                const bool isHeld = held && each.side == side && each.severity <= severity;
                const double margin = each.side * (reading - each.limit) + (isHeld ? h : 0.0);
                if (each.side == wantedSide && margin > 0.0 && each.severity > bestSeverity) {
                    best = each.letter;
                    bestSide = each.side;
                    bestSeverity = each.severity;
                }
            }
        };
        tryAll(-side, false); // beyond the other side ends what is held on this one
        tryAll(-1, bestSeverity == 0);
        tryAll(1, bestSeverity == 0);
        side = bestSide;
        severity = bestSeverity;
        states += QLatin1Char(best);
    }
    return states;
}

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
QVector<double> triggersIn(const SweepTrigger &trigger, const QVector<double> &readings,
                           double step)
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
QVector<double> triggersByDefinition(const SweepTrigger &trigger, const QVector<double> &readings,
                                     double step)
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

//! A matrix of cells around a place. Places outside have no value.
struct Around
{
    const std::vector<double> &cells;
    int rows;
    int columns;

    bool has(int row, int column) const
    {
        return row >= 0 && row < rows && column >= 0 && column < columns;
    }
    double at(int row, int column) const
    {
        return cells[std::size_t(row) * std::size_t(columns) + std::size_t(column)];
    }

    std::vector<double> neighboursOf(int row, int column) const
    {
        std::vector<double> values;
        for (int r = row - 1; r <= row + 1; ++r) {
            for (int c = column - 1; c <= column + 1; ++c) {
                if (has(r, c) && (r != row || c != column))
                    values.push_back(at(r, c));
            }
        }
        std::sort(values.begin(), values.end());
        return values;
    }

    double noise() const
    {
        std::vector<double> sizes;
        for (int row = 0; row < rows; ++row) {
            for (int c = 1; c + 1 < columns; ++c)
                sizes.push_back(std::abs(at(row, c - 1) - 2 * at(row, c) + at(row, c + 1)));
        }
        std::sort(sizes.begin(), sizes.end());
        return sizes.empty() ? 0 : 1.4826 * sizes[sizes.size() / 2] / std::sqrt(6.0);
    }

    bool standsOutOfFlank(int row, int column, int down, int right, double noise) const
    {
        std::vector<double> line;
        for (const int step : {-2, -1, 1, 2}) {
            if (!has(row + step * down, column + step * right))
                return false;
            line.push_back(at(row + step * down, column + step * right));
        }
        const auto isSteady = [&](double sign) {
            for (std::size_t i = 1; i < 4; ++i) {
                if (sign * (line[i] - line[i - 1]) < -3 * noise)
                    return false;
            }
            return true;
        };
        const double high = std::max(line[1], line[2]);
        const double low = std::max(std::min(line[1], line[2]), noise);
        const double expected = low > 0 ? std::sqrt(high * low) : high;
        return (isSteady(1) || isSteady(-1)) && high > 0 && at(row, column) > high + 8 * noise
            && at(row, column) > 2 * expected;
    }

    //! The rule for hot cells, word by word, for each cell.
    bool isHot(int row, int column) const
    {
        const std::vector<double> others = neighboursOf(row, column);
        if (others.size() < 2 || !(at(row, column) > others.back()))
            return false;
        const std::size_t half = others.size() / 2;
        const double median = (others[half] + others[(others.size() - 1) / 2]) / 2;
        const double ground = others.size() < 4 ? others.front() : median;
        const double excess = at(row, column) - median, highest = others.back(), sigma = noise();
        const bool stands =
            excess > 8 * sigma && excess > 10 * (highest - ground) && excess > 0.2 * highest;
        const bool aboveAll = at(row, column) > highest + 8 * sigma;
        return stands
            || (aboveAll
                && (standsOutOfFlank(row, column, 0, 1, sigma)
                    || standsOutOfFlank(row, column, 1, 0, sigma)));
    }
};

} // namespace

//! Limits, triggers and hot cells: what single readings are compared with.
class tst_ChannelLimits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whichLimitsAreValid_data()
    {
        columns<double, double, double, double, bool>("lowAlarm", "lowWarning", "highWarning",
                                                      "highAlarm", "valid");
        row("none", none, none, none, none, true);
        row("all", -2.0, -1.0, 1.0, 2.0, true);
        row("equal on one side", -1.0, -1.0, 1.0, 1.0, true);
        row("nothing between", none, 1.0, 1.0, none, false);
        row("nothing between the alarms", 1.0, none, none, 1.0, false);
        row("warning beyond alarm", none, none, 2.0, 1.0, false);
        row("low above high", none, 3.0, none, 1.0, false);
        row("infinite", none, none, none, qInf(), false);
    }
    void whichLimitsAreValid()
    {
        QFETCH(double, lowAlarm);
        QFETCH(double, lowWarning);
        QFETCH(double, highWarning);
        QFETCH(double, highAlarm);
        const ChannelLimits limits = limitsOf(lowAlarm, lowWarning, highWarning, highAlarm);
        QTEST(limits.isValid(), "valid");
        // Limits that contradict themselves are not watched for.
        QCOMPARE(LimitWatch(limits).limits(), limits.isValid() ? limits : ChannelLimits());
    }

    void statesFollowTheReadings_data()
    {
        columns<ChannelLimits, QVector<double>, QString>("limits", "readings", "states");
        const ChannelLimits all = limitsOf(-20, -10, 10, 20); // a hysteresis of 0.4
        row("on a limit is within it", all, QVector<double>{10, -10, 20, -20, 11, -10, -11, 10},
            "nnhlhnln");
        row("up and down again", all, QVector<double>{0, 11, 21, 19.7, 19.5, 9.7, 9.5}, "nhHHhhn");
        row("from side to side", all, QVector<double>{30, -11, 11, -30}, "HlhL");
        row("a missing reading changes nothing", all, QVector<double>{15, qQNaN(), 9.8, qQNaN(), 0},
            "hhhhn");
        row("infinite readings", all, QVector<double>{qInf(), -qInf(), 0}, "HLn");
        row("one limit", limitsOf(none, none, none, 100), QVector<double>{100.5, 98.5, 98}, "HHn");
        row("one limit below zero", limitsOf(-100, none, none, none),
            QVector<double>{-100.5, -98.5, -98}, "LLn");
        row("two limits of one side, each with its own hysteresis", limitsOf(none, none, 100, 200),
            QVector<double>{201, 197, 97}, "HHn");
        row("no limits", ChannelLimits(), QVector<double>{qInf(), -1e300, 0}, "nnn");
    }
    void statesFollowTheReadings()
    {
        QTEST(statesOf(cell<ChannelLimits>("limits"), cell<QVector<double>>("readings")), "states");
    }

    void statesAreThoseOfTheDefinition()
    {
        std::mt19937 random(4);
        const auto number = [&](double most) { return most * double(random() % 1001) / 1000.0; };
        for (int turn = 0; turn < 300; ++turn) {
            ChannelLimits limits =
                limitsOf(-4 - number(3), -2 - number(2), 2 + number(2), 4 + number(3));
            for (double *limit :
                 {&limits.lowAlarm, &limits.lowWarning, &limits.highWarning, &limits.highAlarm}) {
                if (random() % 4 == 0)
                    *limit = none;
            }
            limits.hysteresis = number(1.5);
            QVector<double> readings;
            double level = 0.0;
            for (int i = 0; i < 400; ++i) {
                level += number(2.0) - 1.0 - 0.02 * level;
                readings.append(random() % 50 == 0 ? -level : level);
            }
            QCOMPARE(statesOf(limits, readings),
                     statesByDefinition(limits, limits.hysteresis, readings));
        }
    }

    void excursionsSayWhenAndHowFar()
    {
        LimitWatch watch(limitsOf(-20, none, 10, 20));
        const double readings[] = {0, 12, 25, 31, 11, 15, 5, 0, 13, -25, -22, 0};
        QStringList ended;
        const auto text = [](const LimitExcursion &excursion) {
            return QString("%1 beyond %2 from %3 to %4, worst %5")
                .arg(int(excursion.state))
                .arg(excursion.limit)
                .arg(excursion.began)
                .arg(excursion.ended)
                .arg(excursion.worst);
        };
        for (int i = 0; i < 12; ++i) {
            if (!watch.add(i, readings[i]))
                continue;
            if (watch.former().state != LimitState::Normal)
                ended.append(text(watch.former()));
            else if (watch.state() == LimitState::Normal)
                ended.append(text(watch.excursion()));
            QCOMPARE(watch.excursion().lasts(), watch.state() != LimitState::Normal);
        }
        QCOMPARE(ended.join('\n'),
                 QString("4 beyond 20 from 1 to 6, worst 31\n"
                         "2 beyond 10 from 8 to 9, worst 13\n"
                         "3 beyond -20 from 9 to 11, worst -25"));
    }

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
            const auto trigger = triggerAt(int(random() % 5) - 2.0, Edge(random() % 3),
                                           double(random() % 4) * 0.5, double(random() % 4) * 10.0);
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
        QVERIFY(!with([](SweepTrigger &t) { t.level = qQNaN(); }));
        QVERIFY(!with([](SweepTrigger &t) { t.hysteresis = -1.0; }));
        QVERIFY(!with([](SweepTrigger &t) { t.shareBefore = 1.5; }));
        QVERIFY(!with([](SweepTrigger &t) { t.holdOff = qInf(); }));
        QVERIFY(!with([](SweepTrigger &t) { t.channel = 0; }));
    }

    //! Matrices of few cells with beams, noise and lone cells of any height, of which the search may leave out none too early.
    void hotCellsAreThoseOfTheRule()
    {
        std::mt19937 generator(17);
        const auto between = [&](double low, double high) {
            return low + (high - low) * generator() / 4294967296.0;
        };
        int found = 0;
        for (int trial = 0; trial < 2000; ++trial) {
            const int rows = 1 + int(between(0, 10)), columns = 1 + int(between(0, 10));
            const double sigma = between(0.8, 5), noise = trial % 3 ? between(0, 0.02) : 0.0;
            std::vector<double> cells(std::size_t(rows) * std::size_t(columns));
            for (int i = 0; i < rows * columns; ++i) {
                const int row = i / columns;
                cells[std::size_t(i)] = CellCharges::gaussian(3, sigma)(i % columns)
                        * CellCharges::gaussian(4, sigma)(row)
                    + between(-noise, noise);
            }
            for (int i = 0; i < 3; ++i)
                cells[std::size_t(between(0, rows * columns))] += between(0, 60 * noise + 1);
            const Around around{cells, rows, columns};
            std::vector<int> expected;
            for (int i = 0; i < rows * columns; ++i) {
                if (around.isHot(i / columns, i % columns))
                    expected.push_back(i);
            }
            QCOMPARE(hotCells(cells.data(), rows, columns), expected);
            found += int(expected.size());
        }
        QVERIFY2(found > 200, qPrintable(QString::number(found)));
    }
};

CORVALE_QT_TEST_MAIN(tst_ChannelLimits)
#include "tst_ChannelLimits.moc"
