// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/ColumnPlan.h"

#include "monitor/input/LineText.h"
#include "monitor/readings/UnitSymbols.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace Monitor {

namespace {

bool isTimeName(const QString &field)
{
    static const QStringList names =
        {"time", "t", "timestamp", "time(s)", "time (s)", "timestamp(s)", "seconds"};
    QString name, symbol;
    splitUnitSuffix(field, &name, &symbol);
    return names.contains(name, Qt::CaseInsensitive) || names.contains(field, Qt::CaseInsensitive);
}

bool isNumber(const QString &field)
{
    double number = 0.0;
    const QByteArray text = field.toUtf8();
    return !text.isEmpty() && parseNumber({text.constData(), std::size_t(text.size())}, &number);
}

//! Returns whether the fields are names of columns. Names may be numbers if the first one is a name for the time.
bool looksLikeNames(const QStringList &fields)
{
    if (fields.isEmpty() || fields.first().isEmpty() || isNumber(fields.first()))
        return false;
    return isTimeName(fields.first()) || std::none_of(fields.begin(), fields.end(), isNumber);
}

/*! Returns the column that holds the time: the one with such a name, else the first. Spots may have no time (-1).
    \a factor converts the column to seconds. */
int findTimeColumn(const QStringList &fields, StreamKind kind, double *factor)
{
    for (int i = 0; i < fields.size(); ++i) {
        if (!isTimeName(fields[i]))
            continue;
        QString name, symbol;
        splitUnitSuffix(fields[i], &name, &symbol);
        const auto unit = unitFromSymbol(symbol);
        *factor = unit ? unit->unscale(1.0) : 1.0;
        return i;
    }
    return kind == StreamKind::Spots ? -1 : 0;
}

bool isFrameNumber(const QString &name)
{
    return name.compare(QLatin1String("frame"), Qt::CaseInsensitive) == 0;
}

bool areSpots(const QStringList &fields)
{
    return fields.contains(QLatin1String("x_mm")) && fields.contains(QLatin1String("y_mm"))
        && fields.contains(QLatin1String("mu"));
}

bool allMatch(const QVector<Channel> &channels, const QString &pattern)
{
    const QRegularExpression name(QRegularExpression::anchoredPattern(pattern));
    return !channels.isEmpty()
        && std::all_of(channels.begin(), channels.end(), [&](const Channel &channel) {
               return name.match(channel.name).hasMatch();
           });
}

StreamKind kindOf(const QVector<Channel> &channels)
{
    if (allMatch(channels, QStringLiteral("r\\d+c\\d+")))
        return StreamKind::Pixels;
    const bool both = channels.size() >= 2 && channels.first().name.startsWith(QLatin1Char('x'))
        && channels.last().name.startsWith(QLatin1Char('y'));
    return both && allMatch(channels, QStringLiteral("[xy]\\d+")) ? StreamKind::Strips
                                                                  : StreamKind::Channels;
}

} // namespace

std::optional<ColumnPlan> ColumnPlan::fromHeader(const QStringList &header)
{
    QStringList fields = header;
    while (!fields.isEmpty() && fields.last().isEmpty())
        fields.removeLast();
    if (!looksLikeNames(fields))
        return std::nullopt;

    ColumnPlan plan;
    plan.fieldCount = fields.size();
    if (areSpots(fields))
        plan.kind = StreamKind::Spots;
    plan.timeColumn = findTimeColumn(fields, plan.kind, &plan.timeFactor);
    for (int i = 0; i < fields.size(); ++i) {
        if (i == plan.timeColumn || isFrameNumber(fields[i]))
            continue;
        if (plan.channels.size() == StreamHeader::maxChannels) {
            ++plan.leftOut;
            continue;
        }
        Channel channel;
        splitUnitSuffix(fields[i], &channel.name, &channel.unit);
        if (channel.name.isEmpty())
            channel.name = QStringLiteral("column%1").arg(i + 1);
        plan.channels.append(channel);
        plan.valueColumns.append(i);
    }
    if (plan.channels.isEmpty())
        return std::nullopt;
    if (plan.kind != StreamKind::Spots)
        plan.kind = kindOf(plan.channels);
    return plan;
}

} // namespace Monitor
