// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/ImportOptions.h"

#include "monitor/core/Text.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

struct NamedSign
{
    const char *name;
    char sign;
};
constexpr NamedSign delimiters[] = {{"comma", ','},
                                    {"semicolon", ';'},
                                    {"tab", '\t'},
                                    {"blank", ' '},
                                    {"bar", '|'}};

bool readInterval(const QString &text, double *seconds)
{
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(QStringLiteral("([0-9.eE-]+)(us|ms|s|min|h)?")));
    const QRegularExpressionMatch match = form.match(text);
    bool ok = false;
    const double number = match.captured(1).toDouble(&ok);
    const QString unit = match.captured(2);
    const double factor = unit == QLatin1String("us") ? 1e-6
        : unit == QLatin1String("ms")                 ? 1e-3
        : unit == QLatin1String("min")                ? 60.0
        : unit == QLatin1String("h")                  ? 3600.0
                                                      : 1.0;
    const double interval = number * factor;
    ok = ok && interval > 0.0 && std::isfinite(interval);
    if (ok)
        *seconds = interval;
    return ok;
}

bool readDelimiter(const QString &text, char *sign)
{
    for (const NamedSign &delimiter : delimiters) {
        if (text == QLatin1String(delimiter.name) || text == QLatin1Char(delimiter.sign)) {
            *sign = delimiter.sign;
            return true;
        }
    }
    return false;
}

bool readNumber(const QString &text, int least, int *number)
{
    constexpr int most = 1000000;
    bool ok = false;
    const int value = text.toInt(&ok);
    ok = ok && value >= least && value <= most;
    if (ok)
        *number = value;
    return ok;
}

//! Reads the value of one key; an unknown key makes no sense either.
bool readItem(const QString &key, const QString &value, ImportOptions *options)
{
    using Header = ImportOptions::Header;
    using Clock = ImportOptions::Clock;
    if (key == QLatin1String("delimiter"))
        return readDelimiter(value, &options->delimiter);
    if (key == QLatin1String("decimal")) {
        options->decimalComma = value == QLatin1String("comma");
        return options->decimalComma || value == QLatin1String("point");
    }
    if (key == QLatin1String("header")) {
        options->header = value == QLatin1String("no") ? Header::None : Header::Names;
        return value == QLatin1String("no") || value == QLatin1String("yes");
    }
    if (key == QLatin1String("time")) {
        options->timeColumn = ImportOptions::noTime;
        return value == QLatin1String("none") || readNumber(value, 1, &options->timeColumn);
    }
    if (key == QLatin1String("interval")) {
        options->timeColumn = ImportOptions::noTime;
        return readInterval(value, &options->interval);
    }
    if (key == QLatin1String("clock")) {
        options->clock = value == QLatin1String("local") ? Clock::Local : Clock::Utc;
        return value == QLatin1String("local") || value == QLatin1String("utc");
    }
    if (key == QLatin1String("format")) {
        options->format = value;
        return !value.isEmpty();
    }
    if (key == QLatin1String("skip"))
        return readNumber(value, 0, &options->skippedLines);
    if (key == QLatin1String("comment")) {
        options->comment = value.size() == 1 ? value.at(0).toLatin1() : '\0';
        return options->comment > ' ';
    }
    return false;
}

//! Splits a text at the commas that are not in quotes, and takes quotes away.
QStringList itemsOf(const QString &text)
{
    QStringList items(QString{});
    bool isQuoted = false;
    for (const QChar c : text) {
        if (c == QLatin1Char('"'))
            isQuoted = !isQuoted;
        else if (c == QLatin1Char(',') && !isQuoted)
            items.append(QString());
        else
            items.last().append(c);
    }
    items.removeAll(QString());
    return items;
}

} // namespace

QString ImportOptions::text() const
{
    QStringList items;
    for (const NamedSign &named : delimiters)
        if (named.sign == delimiter)
            items += QLatin1String("delimiter=") + QLatin1String(named.name);
    if (decimalComma)
        items += QStringLiteral("decimal=comma");
    if (header != Header::Seen)
        items +=
            header == Header::None ? QStringLiteral("header=no") : QStringLiteral("header=yes");
    if (timeColumn == noTime && interval > 0.0)
        items += QStringLiteral("interval=%1").arg(QString::number(interval, 'g', 12));
    else if (timeColumn == noTime)
        items += QStringLiteral("time=none");
    else if (timeColumn != timeByName)
        items += QStringLiteral("time=%1").arg(timeColumn);
    if (clock != Clock::Seconds)
        items +=
            clock == Clock::Local ? QStringLiteral("clock=local") : QStringLiteral("clock=utc");
    if (!format.isEmpty())
        items += format.contains(QLatin1Char(',')) ? QStringLiteral("format=\"%1\"").arg(format)
                                                   : QLatin1String("format=") + format;
    if (skippedLines > 0)
        items += QStringLiteral("skip=%1").arg(skippedLines);
    if (comment != 0)
        items += QLatin1String("comment=") + QLatin1Char(comment);
    return items.join(QLatin1Char(','));
}

bool ImportOptions::fromText(const QString &text, ImportOptions *options, QString *error)
{
    *options = {};
    for (const QString &item : itemsOf(text)) {
        const QString key = item.section(QLatin1Char('='), 0, 0).trimmed();
        if (readItem(key, item.section(QLatin1Char('='), 1), options))
            continue;
        *error =
            Text::tr("\"%1\" makes no sense; there are delimiter=comma, semicolon, tab, blank or "
                     "bar, decimal=comma, header=yes or no, time=COLUMN or none, interval=1ms, "
                     "clock=utc or local, format=dd.MM.yyyy HH:mm:ss, skip=LINES and comment=SIGN, "
                     "separated by commas")
                .arg(item);
        return false;
    }
    const bool dateWithoutClock = !options->format.isEmpty() && options->clock == Clock::Seconds;
    if (dateWithoutClock)
        options->clock = Clock::Local;
    if (options->delimiter == ',' && options->decimalComma)
        *error = Text::tr("with decimal=comma the delimiter cannot be a comma");
    else if (options->timeColumn == noTime && options->clock != Clock::Seconds)
        *error = Text::tr("clock says how a time column is read, and there is none");
    return error->isEmpty();
}

} // namespace Monitor
