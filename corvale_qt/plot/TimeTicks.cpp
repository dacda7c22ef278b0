// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/TimeTicks_p.h"

#include <QCoreApplication>
#include <QDate>
#include <QStringBuilder>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

namespace Corvale_Qt {

namespace {

constexpr double kLabelGap = 12.0; // pixels between two labels
constexpr double kLeastMinorDistance = 6.0; // pixels
constexpr qint64 kLongest = 500LL * 366 * kDay; // of the moments that are labelled

//! A distance of long ticks, and into how many parts the short ones divide it.
struct TickStep
{
    qint64 length;
    int parts;
};

constexpr TickStep kSteps[] = {
    {1 * kMicrosecond, 1},   {2 * kMicrosecond, 2},   {5 * kMicrosecond, 5},
    {10 * kMicrosecond, 5},  {20 * kMicrosecond, 4},  {50 * kMicrosecond, 5},
    {100 * kMicrosecond, 5}, {200 * kMicrosecond, 4}, {500 * kMicrosecond, 5},
    {1 * kMillisecond, 5},   {2 * kMillisecond, 4},   {5 * kMillisecond, 5},
    {10 * kMillisecond, 5},  {20 * kMillisecond, 4},  {50 * kMillisecond, 5},
    {100 * kMillisecond, 5}, {200 * kMillisecond, 4}, {500 * kMillisecond, 5},
    {1 * kSecond, 5},        {2 * kSecond, 4},        {5 * kSecond, 5},
    {10 * kSecond, 5},       {15 * kSecond, 3},       {30 * kSecond, 3},
    {1 * kMinute, 6},        {2 * kMinute, 4},        {5 * kMinute, 5},
    {10 * kMinute, 5},       {15 * kMinute, 3},       {30 * kMinute, 3},
    {1 * kHour, 4},          {2 * kHour, 4},          {3 * kHour, 3},
    {6 * kHour, 6},          {12 * kHour, 4},         {1 * kDay, 4},
    {2 * kDay, 2},           {5 * kDay, 5},           {10 * kDay, 5},
    {20 * kDay, 4},          {50 * kDay, 5},          {100 * kDay, 5},
    {200 * kDay, 4},         {500 * kDay, 5},         {1000 * kDay, 5},
    {2000 * kDay, 4},        {5000 * kDay, 5},        {10000 * kDay, 5},
    {20000 * kDay, 4},       {50000 * kDay, 5},       {100000 * kDay, 5},
    {200000 * kDay, 4},      {500000 * kDay, 5},
};

//! Returns the quotient rounded down, also for a negative \a value.
qint64 floorDivided(qint64 value, qint64 divisor)
{
    const qint64 quotient = value / divisor;
    return value % divisor < 0 ? quotient - 1 : quotient;
}

//! Returns the smallest multiple of \a step that is not below \a value.
qint64 multipleFrom(qint64 value, qint64 step)
{
    return -floorDivided(-value, step) * step;
}

//! Returns how many digits after the decimal point a second needs, so that multiples of \a length differ.
int decimalsOf(qint64 length)
{
    if (length % kSecond == 0)
        return 0;
    return length % kMillisecond == 0 ? 3 : 6;
}

int decimalsOf(double resolution)
{
    if (!(resolution < 1.0))
        return 0;
    return std::clamp(int(std::ceil(-std::log10(std::max(resolution, 1e-7)))), 1, 6);
}

//! Returns a number that is not negative with \a count digits, of which the first ones may be zeros.
QString digits(qint64 number, int count)
{
    QString text(count, Qt::Uninitialized);
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, number /= 10)
        *digit = QLatin1Char(char('0' + number % 10));
    return text;
}

QString twoDigits(qint64 number)
{
    return digits(number, 2);
}

//! Returns the fraction of a second, cut to \a decimals digits: ".250".
QString fractionText(qint64 fraction, int decimals)
{
    return decimals == 0 ? QString() : QLatin1Char('.') % digits(fraction, 6).leftRef(decimals);
}

//! Returns \a value rounded to the last of \a decimals digits of a second.
qint64 rounded(qint64 value, int decimals)
{
    qint64 unit = kSecond;
    for (int i = 0; i < decimals; ++i)
        unit /= 10;
    return floorDivided(value + unit / 2, unit) * unit;
}

// QDateTime::toString() takes several times as long, and an axis in motion asks for every label in every frame.
QString dateText(qint64 local)
{
    int year = 0;
    int month = 0;
    int day = 0;
    const QDate date = QDate(1970, 1, 1).addDays(floorDivided(local, kDay));
    date.getDate(&year, &month, &day);
    if (year < 0 || year > 9999)
        return date.toString(QStringLiteral("yyyy-MM-dd"));
    return digits(year, 4) % QLatin1Char('-') % twoDigits(month) % QLatin1Char('-')
        % twoDigits(day);
}

//! Returns the time of day for ticks of a distance: "09:15", "09:15:02" or "09:15:02.250".
QString timeOfDayText(qint64 local, qint64 step)
{
    const qint64 ofDay = local - floorDivided(local, kDay) * kDay;
    QString minutes = twoDigits(ofDay / kHour) % QLatin1Char(':') % twoDigits(ofDay / kMinute % 60);
    const bool hasSeconds = step % kMinute != 0;
    if (!hasSeconds)
        return minutes;
    return minutes % QLatin1Char(':') % twoDigits(ofDay / kSecond % 60)
        % fractionText(ofDay % kSecond, decimalsOf(step));
}

bool canBeDivided(const TimeAxisRange &range, const TimeScale &scale)
{
    const double width = (range.right - range.left) * scale.secondsPerX;
    const double farthest = std::max(std::abs(range.left), std::abs(range.right));
    return std::isfinite(range.left) && std::isfinite(range.right) && range.pixels > 0.0
        && width >= 1e-6 && farthest * scale.secondsPerX * kSecond < double(kLongest)
        && std::abs(double(scale.origin)) < double(kLongest);
}

//! Returns the shortest step whose labels have room. \a widest gives the width of the widest label of a step.
template<typename Widest>
TickStep stepFor(const TimeAxisRange &range, const TimeScale &scale, Widest widest)
{
    const double microseconds = (range.right - range.left) * scale.secondsPerX * kSecond;
    const double pixels = range.pixels / microseconds;
    for (const TickStep &step : kSteps) {
        const double distance = double(step.length) * pixels;
        if (distance > kLabelGap && distance >= widest(step.length) + kLabelGap)
            return step;
    }
    return kSteps[std::size(kSteps) - 1];
}

//! Returns the distance of the short ticks; 0 if they would be too close together.
qint64 minorLength(const TickStep &step, const TimeAxisRange &range, const TimeScale &scale)
{
    const qint64 length = step.length / step.parts;
    const double pixels = range.pixels / ((range.right - range.left) * scale.secondsPerX * kSecond);
    return step.parts > 1 && double(length) * pixels >= kLeastMinorDistance ? length : 0;
}

//! Empties the labels that would touch the one before.
void keepLabelsApart(TimeTicks &ticks, const TimeAxisRange &range, const TextWidth &width)
{
    const double pixels = range.pixels / (range.right - range.left);
    double taken = -1e9;
    for (int i = 0; i < ticks.labels.size(); ++i) {
        double widest = 0.0;
        for (const QString &line : ticks.labels[i].split(QLatin1Char('\n')))
            widest = std::max(widest, width(line));
        const double centre = (ticks.major[i] - range.left) * pixels;
        if (centre - 0.5 * widest < taken) {
            ticks.labels[i].clear();
            continue;
        }
        taken = centre + 0.5 * widest + 0.5 * kLabelGap;
    }
}

//! Returns the moments in a stretch at which its clock shows a multiple of \a step.
template<typename Add>
void forEachTick(const ClockStretch &stretch, qint64 first, qint64 last, qint64 step, Add add)
{
    const qint64 begin = std::max(stretch.begin, first);
    const qint64 end = std::min(stretch.end - 1, last);
    for (qint64 local = multipleFrom(begin + stretch.offset, step); local <= end + stretch.offset;
         local += step) {
        add(local - stretch.offset);
    }
}

//! A tick before it becomes a label.
struct ClockTick
{
    qint64 moment;
    qint64 offset;
};

QVector<ClockTick>
ticksOf(const QVector<ClockStretch> &stretches, qint64 first, qint64 last, qint64 step)
{
    QVector<ClockTick> ticks;
    for (int i = 0; i < stretches.size(); ++i) {
        const ClockStretch &stretch = stretches[i];
        forEachTick(stretch, first, last, step, [&](qint64 moment) {
            ticks.append({moment, stretch.offset});
        });
        // Where the clocks skip midnight, the day begins when they change.
        const bool skipsForward =
            i + 1 < stretches.size() && stretches[i + 1].offset > stretch.offset;
        if (skipsForward && step >= kDay && (stretch.end + stretch.offset) % step == 0)
            ticks.append({stretch.end, stretch.offset});
    }
    ticks.erase(std::unique(ticks.begin(),
                            ticks.end(),
                            [](const ClockTick &a, const ClockTick &b) {
                                return a.moment == b.moment;
                            }),
                ticks.end());
    return ticks;
}

//! Returns the labels: times of day with the date where it is a new one, or dates.
QStringList clockLabels(const QVector<ClockTick> &ticks, qint64 step)
{
    QStringList labels;
    std::optional<qint64> dated; // the day of the last date
    for (int i = 0; i < ticks.size(); ++i) {
        const qint64 local = ticks[i].moment + ticks[i].offset;
        if (step >= kDay) {
            labels << dateText(local);
            continue;
        }
        QStringList lines{timeOfDayText(local, step)};
        const bool changesBefore = i > 0 && ticks[i - 1].offset != ticks[i].offset;
        const bool changesAfter = i + 1 < ticks.size() && ticks[i + 1].offset != ticks[i].offset;
        if (changesBefore || changesAfter)
            lines << offsetText(ticks[i].offset); // the next label has the date
        else if (const qint64 day = floorDivided(local, kDay); std::exchange(dated, day) != day)
            lines << dateText(local);
        labels << lines.join(QLatin1Char('\n'));
    }
    return labels;
}

double widestClockLabel(qint64 step, const TextWidth &width)
{
    const double date = width(QStringLiteral("0000-00-00"));
    return step >= kDay ? date : std::max(date, width(timeOfDayText(0, step)));
}

//! How a duration is written.
enum class DurationForm {
    Seconds,
    Minutes,
    Hours,
    Days
};

DurationForm formFor(qint64 longest)
{
    if (longest < 2 * kMinute)
        return DurationForm::Seconds;
    if (longest < 2 * kHour)
        return DurationForm::Minutes;
    return longest < 2 * kDay ? DurationForm::Hours : DurationForm::Days;
}

//! Returns a duration; \a hasSeconds says whether hours and days are followed by seconds.
QString durationText(qint64 duration, DurationForm form, bool hasSeconds, int decimals)
{
    const QString sign = duration < 0 ? QStringLiteral("-") : QString();
    const qint64 length = std::abs(duration);
    const QString fraction = fractionText(length % kSecond, decimals);
    const qint64 seconds = length / kSecond;
    const QString secondsText = twoDigits(seconds % 60) + fraction;
    switch (form) {
    case DurationForm::Seconds:
        return sign + QString::number(seconds) + fraction;
    case DurationForm::Minutes:
        return sign + QString::number(seconds / 60) + QLatin1Char(':') + secondsText;
    case DurationForm::Hours:
        return sign + QString::number(seconds / 3600) + QLatin1Char(':')
            + twoDigits(seconds / 60 % 60)
            + (hasSeconds ? QLatin1Char(':') + secondsText : QString());
    case DurationForm::Days:
        break;
    }
    if (seconds < 86400)
        return durationText(duration, DurationForm::Hours, hasSeconds, decimals);
    return sign + QString::number(seconds / 86400) + QStringLiteral("d ")
        + twoDigits(seconds / 3600 % 24) + QLatin1Char(':') + twoDigits(seconds / 60 % 60)
        + (hasSeconds ? QLatin1Char(':') + secondsText : QString());
}

QString unitOf(DurationForm form, bool hasSeconds)
{
    switch (form) {
    case DurationForm::Seconds:
        return QStringLiteral("s");
    case DurationForm::Minutes:
        return QStringLiteral("min:s");
    case DurationForm::Hours:
        return hasSeconds ? QStringLiteral("h:min:s") : QStringLiteral("h:min");
    case DurationForm::Days:
        break;
    }
    return hasSeconds ? QStringLiteral("days h:min:s") : QStringLiteral("days h:min");
}

} // namespace

qint64 TimeScale::toMoment(double x) const
{
    const double microseconds = x * secondsPerX * kSecond;
    if (!(std::abs(microseconds) < double(kLongest)))
        return origin + (microseconds > 0.0 ? kLongest : -kLongest);
    return origin + std::llround(microseconds);
}

double TimeScale::toX(qint64 moment) const
{
    return double(moment - origin) / kSecond / secondsPerX;
}

QString TimeTicks::labelOf(double x) const
{
    if (major.isEmpty())
        return QString();
    auto found = std::lower_bound(major.begin(), major.end(), x);
    if (found == major.end() || (found != major.begin() && x - *(found - 1) < *found - x))
        --found;
    return labels[int(found - major.begin())];
}

namespace {

//! Returns the offsets of a clock in their order, or, where they change more than twice, those that there are.
QString offsetsText(const QVector<ClockStretch> &stretches)
{
    constexpr int mostInOrder = 3;
    const bool isInOrder = stretches.size() <= mostInOrder;
    QStringList offsets;
    for (const ClockStretch &stretch : stretches)
        offsets << offsetText(stretch.offset);
    if (!isInOrder)
        offsets.removeDuplicates();
    QString text = offsets.value(0);
    for (int i = 1; i < offsets.size(); ++i) {
        const QString joined = isInOrder
            ? QCoreApplication::translate("Corvale_Qt", "%1, then %2", "UTC+1, then UTC+2")
            : QCoreApplication::translate("Corvale_Qt", "%1 or %2", "UTC+1 or UTC+2");
        text = joined.arg(text, offsets[i]);
    }
    return text;
}

} // namespace

TimeTicks clockTicks(const TimeAxisRange &range,
                     const TimeScale &scale,
                     ClockOffsets &offsets,
                     const TextWidth &width)
{
    TimeTicks ticks;
    if (!canBeDivided(range, scale))
        return ticks;
    const qint64 first = scale.toMoment(range.left);
    const qint64 last = scale.toMoment(range.right);
    const TickStep step = stepFor(range, scale, [&](qint64 length) {
        return widestClockLabel(length, width);
    });
    const QVector<ClockStretch> stretches = offsets.stretches(first, last);
    const QVector<ClockTick> clock = ticksOf(stretches, first, last, step.length);
    for (const ClockTick &tick : clock)
        ticks.major << scale.toX(tick.moment);
    ticks.labels = clockLabels(clock, step.length);
    if (const qint64 minor = minorLength(step, range, scale)) {
        for (const ClockTick &tick : ticksOf(stretches, first, last, minor))
            ticks.minor << scale.toX(tick.moment);
    }
    ticks.unit = offsetsText(stretches);
    keepLabelsApart(ticks, range, width);
    return ticks;
}

TimeTicks durationTicks(const TimeAxisRange &range, const TimeScale &scale, const TextWidth &width)
{
    TimeTicks ticks;
    if (!canBeDivided(range, scale))
        return ticks;
    const qint64 first = scale.toMoment(range.left);
    const qint64 last = scale.toMoment(range.right);
    const qint64 longest = std::max(std::abs(first), std::abs(last));
    const DurationForm form = formFor(longest);
    const auto hasSeconds = [](qint64 step) {
        return step % kMinute != 0;
    };
    const TickStep step = stepFor(range, scale, [&](qint64 length) {
        return width(durationText(-longest, form, hasSeconds(length), decimalsOf(length)));
    });
    for (qint64 at = multipleFrom(first, step.length); at <= last; at += step.length) {
        ticks.major << scale.toX(at);
        ticks.labels << durationText(at, form, hasSeconds(step.length), decimalsOf(step.length));
    }
    if (const qint64 minor = minorLength(step, range, scale)) {
        for (qint64 at = multipleFrom(first, minor); at <= last; at += minor)
            ticks.minor << scale.toX(at);
    }
    ticks.unit = unitOf(form, hasSeconds(step.length));
    keepLabelsApart(ticks, range, width);
    return ticks;
}

QString clockText(qint64 moment, double resolution, ClockOffsets &offsets)
{
    const int decimals = decimalsOf(resolution);
    const qint64 shown = rounded(moment, decimals);
    const qint64 local = shown + offsets.offsetAt(shown);
    return dateText(local) % QLatin1Char(' ') % timeOfDayText(local, kSecond)
        % fractionText(local - floorDivided(local, kSecond) * kSecond, decimals);
}

QString durationText(qint64 duration, double resolution)
{
    const int decimals = decimalsOf(resolution);
    const qint64 shown = rounded(duration, decimals);
    const DurationForm form = formFor(std::abs(shown));
    return durationText(shown, form, true, decimals) + QLatin1Char(' ') + unitOf(form, true);
}

QString offsetText(qint64 offset)
{
    if (offset == 0)
        return QStringLiteral("UTC");
    const qint64 minutes = std::abs(offset) / kMinute;
    QString text = QStringLiteral("UTC%1%2")
                       .arg(offset < 0 ? QLatin1Char('-') : QLatin1Char('+'))
                       .arg(minutes / 60);
    if (minutes % 60 != 0)
        text += QLatin1Char(':') + twoDigits(minutes % 60);
    return text;
}

} // namespace Corvale_Qt
