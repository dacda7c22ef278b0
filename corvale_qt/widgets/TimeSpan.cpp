// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/TimeSpan.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>

#include <cmath>

namespace Corvale_Qt {

namespace {

//! A unit of time. The first name is written, all are read.
struct TimeUnit
{
    double seconds;
    QStringList names;
};

//! Returns the units, the longest first.
const QVector<TimeUnit> &timeUnits()
{
    static const QVector<TimeUnit> units = {
        {86400.0, {"d", "day", "days"}},
        {3600.0, {"h", "hour", "hours"}},
        {60.0, {"min", "minute", "minutes"}},
        {1.0, {"s", "sec", "second", "seconds"}},
        {1e-3, {"ms", "millisecond", "milliseconds"}},
        {1e-6, {"us", "\u00b5s", "\u03bcs", "microsecond", "microseconds"}},
    };
    return units;
}

QString tr(const char *text)
{
    return QCoreApplication::translate("Corvale_Qt", text);
}

//! Returns the word for a span without a limit.
QString allText()
{
    return tr("all");
}

std::optional<double> secondsOf(const QString &unit)
{
    for (const TimeUnit &known : timeUnits())
        if (known.names.contains(unit))
            return known.seconds;
    return std::nullopt;
}

//! Returns the sum of the parts of a text, each a number and its unit. Only a part that is alone needs no unit.
std::optional<double> sumOf(const QString &text)
{
    static const QRegularExpression part(
        QStringLiteral("\\G\\s*(\\d+(?:\\.\\d*)?|\\.\\d+)\\s*([^\\d\\s.]*)\\s*"));
    double sum = 0.0;
    int end = 0;
    while (end < text.size()) {
        const QRegularExpressionMatch match = part.match(text, end);
        const bool isAlone = end == 0 && match.capturedEnd() == text.size();
        const QString unit = match.captured(2);
        const auto factor = unit.isEmpty() && isAlone ? std::optional(1.0) : secondsOf(unit);
        if (!match.hasMatch() || !factor)
            return std::nullopt;
        sum += match.captured(1).toDouble() * *factor;
        end = match.capturedEnd();
    }
    return end > 0 ? std::optional(sum) : std::nullopt;
}

//! Returns a text as it is quoted in a message.
QString inQuotes(const QString &text)
{
    constexpr int longestQuote = 40;
    const QString plain = text.simplified();
    return plain.size() > longestQuote ? plain.left(longestQuote) + QStringLiteral("...") : plain;
}

} // namespace

std::optional<double> TimeSpan::fromText(const QString &text, QString *error)
{
    const QString lower = text.trimmed().toLower();
    if (lower == QLatin1String("all") || lower == allText().toLower())
        return all;
    const std::optional<double> seconds = sumOf(lower);
    if (seconds && isPossible(*seconds) && std::isfinite(*seconds))
        return seconds;
    if (error && seconds)
        *error = QCoreApplication::translate("Corvale_Qt",
                                             "\"%1\": a time span is at least %2 and at most %3.")
                     .arg(inQuotes(text), TimeSpan::text(shortest), TimeSpan::text(longest));
    else if (error)
        *error = QCoreApplication::translate(
                     "Corvale_Qt",
                     "\"%1\" is not a time span. Examples: 90 s, 2 h, 1.5 min, 250 ms, all.")
                     .arg(inQuotes(text));
    return std::nullopt;
}

QString TimeSpan::text(double seconds)
{
    if (!isPossible(seconds))
        return QString();
    if (std::isinf(seconds))
        return allText();
    constexpr int digits = 12;
    QString best, bestUnit;
    for (const TimeUnit &unit : timeUnits()) {
        const QString number = QString::number(seconds / unit.seconds, 'g', digits);
        const bool isBelowOne = seconds < unit.seconds && unit.seconds > shortest;
        if (isBelowOne || number.contains(QLatin1Char('e')))
            continue;
        if (best.isEmpty() || number.size() < best.size()) {
            best = number;
            bestUnit = unit.names.first();
        }
    }
    return best + QLatin1Char(' ') + bestUnit;
}

bool TimeSpan::isPossible(double seconds)
{
    return seconds >= shortest && (seconds <= longest || std::isinf(seconds));
}

} // namespace Corvale_Qt
