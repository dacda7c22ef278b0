// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

#include <functional>

/*! A promise about speed: a number that must not be below, or above, a limit. In corvale_qt_benchmarks a number is a ratio of
    times that were measured in the same process. The other programs report times, where a person waits, and rates, which only
    an idle machine tells. */
struct Goal
{
    enum Bound {
        AtLeast,
        AtMost,
    };

    QString name;
    double measured = 0.0;
    Bound bound = AtLeast;
    double limit = 0.0;

    bool isMet() const { return bound == AtLeast ? measured >= limit : measured <= limit; }
};

using Work = std::function<void()>;

//! The number of rounds whose median a ratio is.
constexpr int usualRounds = 7;

/*! Returns the median of the ratios (time of \a b) / (time of \a a) over several rounds. In each round one runs right
    after the other, so that other load of the machine slows both. Each runs once before the first round. */
double timesFaster(const Work &a, const Work &b, int rounds = usualRounds);
/*! Returns the median ratio of work that is too short to be timed alone. Each round runs \a a and \a b the given
    numbers of times; the ratio is that of single runs. */
double timesFaster(const Work &a, int timesOfA, const Work &b, int timesOfB);
//! Returns the median time of \a work in seconds, to measure how it grows. It runs once before the first round.
double medianSeconds(const Work &work, int rounds = usualRounds);

//! Prints the goal, the measured number and the limit, and remembers whether the goal was met.
void report(const Goal &goal);
//! Prints a number that has no limit.
void reportFigure(const QString &name, double measured);
//! Prints why a goal could not be measured. This does not count as a failure.
void reportSkipped(const QString &name, const QString &reason);
//! Prints \a what as missed unless \a holds. A comparison is fair only if both sides give the same result.
void require(bool same, const QString &what);
bool allGoalsMet();
