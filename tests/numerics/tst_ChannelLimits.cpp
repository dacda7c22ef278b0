// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ChannelLimits.h"
#include "tests/support/TestMain.h"

#include <vector>

using namespace Corvale_Qt;

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

} // namespace

class tst_ChannelLimits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whichLimitsAreValid_data()
    {
        columns<double, double, double, double, bool>("lowAlarm",
                                                      "lowWarning",
                                                      "highWarning",
                                                      "highAlarm",
                                                      "valid");
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
        row("on a limit is within it",
            all,
            QVector<double>{10, -10, 20, -20, 11, -10, -11, 10},
            "nnhlhnln");
        row("up and down again", all, QVector<double>{0, 11, 21, 19.7, 19.5, 9.7, 9.5}, "nhHHhhn");
        row("from side to side", all, QVector<double>{30, -11, 11, -30}, "HlhL");
        row("a missing reading changes nothing",
            all,
            QVector<double>{15, qQNaN(), 9.8, qQNaN(), 0},
            "hhhhn");
        row("infinite readings", all, QVector<double>{qInf(), -qInf(), 0}, "HLn");
        row("one limit", limitsOf(none, none, none, 100), QVector<double>{100.5, 98.5, 98}, "HHn");
        row("one limit below zero",
            limitsOf(-100, none, none, none),
            QVector<double>{-100.5, -98.5, -98},
            "LLn");
        row("two limits of one side, each with its own hysteresis",
            limitsOf(none, none, 100, 200),
            QVector<double>{201, 197, 97},
            "HHn");
        row("no limits", ChannelLimits(), QVector<double>{qInf(), -1e300, 0}, "nnn");
    }
    void statesFollowTheReadings()
    {
        QTEST(statesOf(cell<ChannelLimits>("limits"), cell<QVector<double>>("readings")), "states");
    }

    void statesAreThoseOfTheDefinition()
    {
        std::mt19937 random(4);
        const auto number = [&](double most) {
            return most * double(random() % 1001) / 1000.0;
        };
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
};

CORVALE_QT_TEST_MAIN(tst_ChannelLimits)
#include "tst_ChannelLimits.moc"
