// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

#include <functional>

/*! One thing that is promised of the library's speed: a number that must not be below, or above, a limit. Times
    are never compared with a clock, only with each other: what is measured is a ratio inside one process. */
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

//! How many rounds a ratio is the median of.
constexpr int usualRounds = 7;

/*! Median of the ratios time of \a b / time of \a a, over rounds in which one runs right after the other, so that
    what else the machine does falls on both. Each runs once before. */
double timesFaster(const Work &a, const Work &b, int rounds = usualRounds);
/*! The same for work that takes too short a time to be timed alone: each round runs \a a and \a b as many times as
    are given. The ratio is that of one time each. */
double timesFaster(const Work &a, int timesOfA, const Work &b, int timesOfB);
//! Median time of \a work in seconds, for the growth of times; it runs once before.
double medianSeconds(const Work &work, int rounds = usualRounds);

//! Prints "goal, measured, limit" and remembers whether it was met.
void report(const Goal &goal);
//! Prints why a goal could not be measured here; that is no failure.
void reportSkipped(const QString &name, const QString &reason);
//! What makes a comparison honest: both sides gave the same. Prints \a what, as missed, where they did not.
void require(bool same, const QString &what);
bool allGoalsMet();
