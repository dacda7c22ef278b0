// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/ColumnPlan.h"

#include "monitor/input/LineText.h"
#include "monitor/readings/StreamDetector.h"
#include "monitor/readings/UnitSymbols.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <memory>

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

//! Returns whether a name that is not one of the time ends in a unit that nobody here knows: "p (mbar)", "temp_C".
bool hasForeignUnit(const QString &field)
{
    static const QRegularExpression unit(
        QStringLiteral(R"(^(.+?)\s*(\([^()]+\)|\[[^\[\]]+\]|_C)$)"));
    static const QRegularExpression time(
        QStringLiteral("time|zeit|temps|elapsed|date|datum|clock|uhr|\u6642"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = unit.match(field);
    return match.hasMatch() && !isTimeName(match.captured(1)) && !field.contains(time);
}

//! Returns whether a name ends in the unit of another quantity than time.
bool isOtherQuantity(const QString &field)
{
    QString name, symbol;
    splitUnitSuffix(field, &name, &symbol);
    if (symbol.isEmpty())
        return hasForeignUnit(field);
    const auto unit = unitFromSymbol(symbol);
    const auto second = unitFromSymbol(QStringLiteral("s"));
    return unit && !sameQuantity(*unit, *second);
}

/*! Returns the column that holds the time: the one with such a name, else the first unless its unit says otherwise. It is
    -1 if there is none, as in lists of spots. */
int findTimeColumn(const QStringList &fields, StreamKind kind)
{
    const int named = timeColumnByName(fields);
    if (named >= 0)
        return named;
    return kind == StreamKind::Spots || isOtherQuantity(fields.first()) ? -1 : 0;
}

QString withoutQuotes(const QString &field)
{
    const QLatin1Char quote('"');
    const bool quoted = field.size() >= 2 && field.startsWith(quote) && field.endsWith(quote);
    return quoted ? field.mid(1, field.size() - 2).trimmed() : field;
}

/*! Returns the names that only differ in a letter at their end, where one of the letters is not a unit: in "quad_A,quad_B,quad_C"
    they name the plates and are neither ampere nor coulomb. */
QSet<QString> letteredNames(const QStringList &fields)
{
    static const QRegularExpression lettered(QStringLiteral("^(.+)_[A-Za-z]$"));
    QHash<QString, QStringList> ofStem;
    QSet<QString> stems;
    for (const QString &field : fields) {
        const QRegularExpressionMatch match = lettered.match(field);
        if (!match.hasMatch())
            continue;
        ofStem[match.captured(1)].append(field);
        if (!unitFromSymbol(field.right(1)))
            stems.insert(match.captured(1));
    }
    QSet<QString> names;
    for (const QString &stem : stems)
        for (const QString &field : ofStem.value(stem))
            names.insert(field);
    return names;
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

//! Returns how many channels are strips of x, which come first.
int stripsOfX(const QVector<Channel> &channels)
{
    const auto ofY = std::find_if(channels.begin(), channels.end(), [](const Channel &channel) {
        return !channel.name.startsWith(QLatin1Char('x'));
    });
    return int(ofY - channels.begin());
}

//! Returns how many cells the first row of a matrix has.
int columnsOf(const QVector<Channel> &channels)
{
    const QString firstRow = channels.first().name.section(QLatin1Char('c'), 0, 0);
    const auto next = std::find_if(channels.begin(), channels.end(), [&](const Channel &channel) {
        return channel.name.section(QLatin1Char('c'), 0, 0) != firstRow;
    });
    return int(next - channels.begin());
}

//! Returns whether the names count rows and columns from 1, row after row.
bool areRowAfterRow(const QVector<Channel> &channels, const Corvale_Qt::DetectorLayout &layout)
{
    const int columns = layout.cells(Corvale_Qt::DetectorLayout::Axis::X);
    for (int i = 0; i < channels.size(); ++i) {
        const QString &name = channels[i].name;
        const int mark = name.indexOf(QLatin1Char('c'));
        if (name.midRef(1, mark - 1).toInt() != i / columns + 1
            || name.midRef(mark + 1).toInt() != i % columns + 1)
            return false;
    }
    return true;
}

QString commonUnitOf(const QVector<Channel> &channels)
{
    StreamHeader header;
    header.channels = channels;
    return header.commonUnit();
}

} // namespace

int timeColumnByName(const QStringList &names)
{
    const auto found = std::find_if(names.begin(), names.end(), isTimeName);
    return found == names.end() ? -1 : int(found - names.begin());
}

QString timeSymbol(const QString &name)
{
    QString rest, symbol;
    splitUnitSuffix(name, &rest, &symbol);
    return symbol.isEmpty() || isOtherQuantity(name) ? QStringLiteral("s") : symbol;
}

std::optional<ColumnPlan> ColumnPlan::fromHeader(const QStringList &header)
{
    QStringList fields;
    for (const QString &field : header)
        fields.append(withoutQuotes(field));
    while (!fields.isEmpty() && fields.last().isEmpty())
        fields.removeLast();
    if (!looksLikeNames(fields))
        return std::nullopt;

    ColumnPlan plan;
    plan.fieldCount = fields.size();
    if (areSpots(fields))
        plan.kind = StreamKind::Spots;
    plan.timeColumn = findTimeColumn(fields, plan.kind);
    plan.lacksTime = plan.timeColumn < 0 && plan.kind != StreamKind::Spots;
    if (plan.timeColumn >= 0)
        plan.timeFactor = unitFromSymbol(timeSymbol(fields[plan.timeColumn]))->unscale(1.0);
    const QSet<QString> lettered = letteredNames(fields);
    for (int i = 0; i < fields.size(); ++i) {
        if (i == plan.timeColumn || isFrameNumber(fields[i]))
            continue;
        Channel channel;
        if (lettered.contains(fields[i]))
            channel.name = fields[i];
        else
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
    if (plan.channels.size() > StreamHeader::maxChannels && !plan.takeFrames())
        plan.leaveOut();
    return plan;
}

//! Takes more columns than channels may be as the cells of a frame. Returns false if their names do not tell its shape.
bool ColumnPlan::takeFrames()
{
    using Corvale_Qt::DetectorLayout;
    Corvale_Qt::DetectorDescription cells;
    if (kind == StreamKind::Pixels) {
        const int columns = columnsOf(channels);
        cells = countedMatrix(channels.size() / columns, columns);
    } else if (kind == StreamKind::Strips) {
        const int ofX = stripsOfX(channels);
        cells = countedStrips(ofX, channels.size() - ofX);
    }
    const DetectorLayout layout = DetectorLayout::fromDescription(cells);
    if (layout.isEmpty() || layout.readings() != channels.size()
        || (kind == StreamKind::Pixels && !areRowAfterRow(channels, layout)))
        return false;
    frames = cells;
    frameUnit = commonUnitOf(channels);
    channels.clear();
    return true;
}

//! Leaves out the columns beyond the channels that there may be.
void ColumnPlan::leaveOut()
{
    leftOut = channels.size() - StreamHeader::maxChannels;
    channels.resize(StreamHeader::maxChannels);
    valueColumns.resize(StreamHeader::maxChannels);
    if (kind != StreamKind::Spots)
        kind = StreamKind::Channels; // a part of a frame is none
}

} // namespace Monitor
