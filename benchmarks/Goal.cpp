// SPDX-License-Identifier: LGPL-2.1-or-later
#include "Goal.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {

bool allMet = true;

double seconds(const Work &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

double timesFaster(const Work &a, const Work &b, int rounds)
{
    a();
    b();
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        const double timeOfA = seconds(a);
        ratios.push_back(seconds(b) / timeOfA);
    }
    std::sort(ratios.begin(), ratios.end());
    return ratios[ratios.size() / 2];
}

void report(const Goal &goal)
{
    allMet = allMet && goal.isMet();
    std::printf("%-70s  %10.3g  %s %-8.4g  %s\n",
                qPrintable(goal.name),
                goal.measured,
                goal.bound == Goal::AtLeast ? ">=" : "<=",
                goal.limit,
                goal.isMet() ? "met" : "MISSED");
    std::fflush(stdout);
}

void reportSkipped(const QString &name, const QString &reason)
{
    std::printf("%-70s  skipped: %s\n", qPrintable(name), qPrintable(reason));
}

bool allGoalsMet()
{
    return allMet;
}
