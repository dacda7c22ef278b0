// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/TapeText.h"

#include "monitor/tape/TapeSurvey.h"

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

//! Returns the smallest of 1, 2 or 5 times a power of ten that is \a least or more.
double decimalStep(double least)
{
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= least)
            return factor * power;
    return 10.0 * power;
}

constexpr double shortTape = 100.0; // s

//! Returns whether a time on a tape of that length is written in seconds alone.
bool isInSeconds(double seconds, double length)
{
    constexpr double longestClock = 1e7;
    return length < shortTape || !(std::abs(seconds) < longestClock);
}

//! Returns a time like "3:05.2" or "1:02:03".
QString clockText(double seconds, int decimals)
{
    constexpr qint64 minute = 60, hour = 3600;
    const auto steps = qint64(std::lround(std::pow(10.0, decimals)));
    const auto all = qint64(std::llround(std::abs(seconds) * double(steps)));
    const qint64 whole = all / steps;
    const QLatin1Char zero('0');
    QString text = QStringLiteral("%1").arg(whole % minute, 2, 10, zero);
    if (decimals > 0)
        text += QStringLiteral(".%1").arg(all % steps, decimals, 10, zero);
    const qint64 minutes = whole % hour / minute;
    text = whole < hour
        ? QStringLiteral("%1:%2").arg(minutes).arg(text)
        : QStringLiteral("%1:%2:%3").arg(whole / hour).arg(minutes, 2, 10, zero).arg(text);
    return seconds < 0.0 && all > 0 ? QLatin1Char('-') + text : text;
}

} // namespace

QString TapeText::time(double seconds, double length)
{
    constexpr double longestNumber = 1e15, splitSecond = 0.01;
    if (!(std::abs(seconds) < longestNumber))
        return tr("%1 s").arg(seconds, 0, 'g', 4);
    if (isInSeconds(seconds, length)) {
        const int decimals = length < splitSecond ? 6
            : length < 1.0                        ? 4
            : length < shortTape                  ? 2
                                                  : 0;
        return tr("%1 s").arg(seconds, 0, 'f', decimals);
    }
    return clockText(std::copysign(std::floor(std::abs(seconds)), seconds), 0);
}

QString TapeText::exactTime(double seconds, double length)
{
    constexpr int decimals = 3;
    return isInSeconds(seconds, length) ? tr("%1 s").arg(seconds, 0, 'f', decimals)
                                        : clockText(seconds, decimals);
}

double TapeText::timeStep(double length, int most)
{
    constexpr double minute = 60.0, hour = 60.0 * minute, day = 24.0 * hour;
    const double least = length / std::max(most, 1);
    if (least <= 0.5 * minute)
        return std::min(decimalStep(least), 0.5 * minute);
    for (const double minutes : {1.0, 2.0, 5.0, 10.0, 15.0, 30.0})
        if (minutes * minute >= least)
            return minutes * minute;
    for (const double hours : {1.0, 2.0, 3.0, 6.0, 12.0})
        if (hours * hour >= least)
            return hours * hour;
    return decimalStep(std::max(least / day, 1.0)) * day;
}

QString TapeText::number(double number)
{
    return QString::number(number, 'f', 0);
}

double TapeText::numberStep(double length, int most)
{
    return std::max(decimalStep(length / std::max(most, 1)), 1.0);
}

QString TapeText::place(const TapeReadout &readout, double length)
{
    const QString time = exactTime(readout.time, length);
    if (readout.count == 0)
        return readout.isInGap ? tr("gap, %1").arg(time) : time;
    const QString text = readout.isSpot ? tr("spot %1 of %2") : tr("reading %1 of %2");
    return text.arg(readout.number).arg(readout.count);
}

} // namespace Monitor
