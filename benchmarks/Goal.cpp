// SPDX-License-Identifier: LGPL-2.1-or-later
#include "Goal.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

namespace {

bool allMet = true;

//! Returns the processor time of this process, so that other processes do not count. All work runs in one thread.
double now()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + 1e-9 * double(time.tv_nsec);
}

double seconds(const Work &work, int times = 1)
{
    const double start = now();
    for (int i = 0; i < times; ++i)
        work();
    return now() - start;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double medianRatio(const Work &a, int timesOfA, const Work &b, int timesOfB, int rounds)
{
    a();
    b();
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        const double timeOfA = seconds(a, timesOfA) / timesOfA;
        ratios.push_back(seconds(b, timesOfB) / timesOfB / timeOfA);
    }
    return median(ratios);
}

void print(const QString &name, const QString &measured, const QString &limit, const char *verdict)
{
    std::printf("| %-62s | %10s | %10s | %s |\n",
                qPrintable(name),
                qPrintable(measured),
                qPrintable(limit),
                verdict);
    std::fflush(stdout);
}

QString textOf(double measured)
{
    constexpr double large = 1e3;
    return measured >= large ? QString::number(measured, 'f', 0)
                             : QString::number(measured, 'g', 4);
}

} // namespace

double timesFaster(const Work &a, const Work &b, int rounds)
{
    return medianRatio(a, 1, b, 1, rounds);
}

double timesFaster(const Work &a, int timesOfA, const Work &b, int timesOfB)
{
    return medianRatio(a, timesOfA, b, timesOfB, usualRounds);
}

double medianSeconds(const Work &work, int rounds)
{
    work();
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round)
        times.push_back(seconds(work));
    return median(times);
}

void report(const Goal &goal)
{
    allMet = allMet && goal.isMet();
    const QString bound = goal.bound == Goal::AtLeast ? ">= %1" : "<= %1";
    print(goal.name, textOf(goal.measured), bound.arg(goal.limit), goal.isMet() ? "met" : "MISSED");
}

void reportFigure(const QString &name, double measured)
{
    print(name, textOf(measured), {}, "");
}

void reportSkipped(const QString &name, const QString &reason)
{
    print(name, "-", "-", qPrintable("skipped: " + reason));
}

void require(bool same, const QString &what)
{
    if (same)
        return;
    allMet = false;
    print(what, "differs", "equal", "MISSED");
}

bool allGoalsMet()
{
    return allMet;
}
