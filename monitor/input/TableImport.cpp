// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/TableImport.h"

#include "monitor/input/CleanText.h"
#include "monitor/input/ColumnPlan.h"
#include "monitor/input/LineText.h"
#include "monitor/input/StatedMoment.h"

#include <QStringList>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace Monitor {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

std::string withPoint(std::string text)
{
    std::replace(text.begin(), text.end(), ',', '.');
    return text;
}

QString nameOf(const std::string &field)
{
    return cleanText(decodedText(field), maxNameLength).replace(QLatin1Char(','), QLatin1Char(';'));
}

std::string numberText(double number)
{
    constexpr int digits = 17;
    char text[40];
    const auto [end, error] =
        std::to_chars(text, text + sizeof(text), number, std::chars_format::general, digits);
    Q_UNUSED(error) // 17 digits always fit
    return {text, end};
}

} // namespace

void splitQuoted(std::string_view line, char delimiter, std::vector<std::string> *fields)
{
    fields->clear();
    line = trimmed(line);
    if (delimiter == 0)
        delimiter = line.find(',') == std::string_view::npos ? ' ' : ',';
    const bool atBlanks = delimiter == ' ';
    std::string field;
    bool quoted = false;
    const auto end = [&] {
        fields->emplace_back(trimmed(field));
        field.clear();
    };
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        const bool doubled = quoted && c == '"' && i + 1 < line.size() && line[i + 1] == '"';
        if (doubled)
            field += line[++i];
        else if (c == '"')
            quoted = !quoted;
        else if (quoted)
            field += c;
        else if (atBlanks && isBlank(c) && !field.empty())
            end();
        else if (!atBlanks && c == delimiter)
            end();
        else if (!atBlanks || !isBlank(c))
            field += c;
    }
    if (!line.empty())
        end();
}

std::optional<Moment> momentOf(const std::string &text, const ImportOptions &options)
{
    QString date = QString::fromUtf8(text.data(), int(text.size())).trimmed();
    constexpr int longest = 100;
    if (date.size() > longest)
        return std::nullopt;
    double fraction = 0.0;
    if (options.format.isEmpty()) {
        // QDateTime knows milliseconds only, and instruments write more digits.
        const int colon = date.lastIndexOf(QLatin1Char(':'), date.indexOf(QLatin1Char('.')));
        int point = date.indexOf(QLatin1Char('.'), colon);
        point = point < 0 ? date.indexOf(QLatin1Char(','), colon) : point;
        if (colon > 0 && point > 0) {
            int end = point + 1;
            while (end < date.size() && date.at(end).isDigit())
                ++end;
            fraction = (QStringLiteral("0.") + date.mid(point + 1, end - point - 1)).toDouble();
            date.remove(point, end - point);
        }
        date.replace(QLatin1Char(' '), QLatin1Char('T'));
    }
    const StatedMoment stated =
        statedMoment(date,
                     options.clock == ImportOptions::Clock::Local ? Qt::LocalTime : Qt::UTC,
                     options.format);
    constexpr int hasTimeOfDay = 12; // characters of the shortest date with a time
    if (!stated.moment.isValid() || (options.format.isEmpty() && date.size() < hasTimeOfDay))
        return std::nullopt;
    constexpr double milli = 1e-3;
    return Moment{stated.moment.toSecsSinceEpoch(),
                  fraction + double(stated.moment.time().msec()) * milli,
                  stated.isLeapSecond};
}

TableImport::TableImport(const ImportOptions &options)
    : m_options(options)
    , m_linesToSkip(options.skippedLines)
{
}

void TableImport::startOver()
{
    m_linesToSkip = m_options.skippedLines;
    m_begun = false;
    m_firstSecond.reset();
    m_leapSeconds.clear();
}

const std::vector<std::string> &TableImport::translate(std::string_view line)
{
    m_lines.assign(1, std::string());
    line = trimmed(line);
    const bool skipped = m_linesToSkip > 0;
    m_linesToSkip -= skipped ? 1 : 0;
    const bool comment =
        m_options.comment != 0 && !line.empty() && line.front() == m_options.comment;
    if (skipped || line.empty() || comment)
        return m_lines;
    if (line.front() == '#') {
        m_lines.back().assign(line);
        return m_lines;
    }
    splitQuoted(line, m_options.delimiter, &m_fields);
    if (!m_begun && isHeader()) {
        takeHeader();
    } else {
        if (!m_begun)
            m_timeIndex = timeIndex();
        takeRow();
    }
    m_begun = true;
    return m_lines;
}

bool TableImport::isHeader() const
{
    if (m_options.header != ImportOptions::Header::Seen)
        return m_options.header == ImportOptions::Header::Names;
    return std::none_of(m_fields.begin(), m_fields.end(), [this](const std::string &field) {
        double number = 0.0;
        return !field.empty()
            && (parseNumber(valueText(field), &number) || momentOf(field, m_options));
    });
}

//! Returns the column of the time that is asked for; the first one if a header does not name another.
int TableImport::timeIndex() const
{
    return m_options.timeColumn == ImportOptions::noTime ? -1
                                                         : std::max(m_options.timeColumn, 1) - 1;
}

void TableImport::takeHeader()
{
    QStringList names;
    for (const std::string &field : m_fields)
        names.append(nameOf(field));
    m_timeIndex = timeIndex();
    if (m_options.timeColumn == ImportOptions::timeByName)
        m_timeIndex = std::max(0, timeColumnByName(names));
    QString header = QStringLiteral("time_s");
    if (m_timeIndex >= 0 && m_options.clock == ImportOptions::Clock::Seconds)
        header = QStringLiteral("time_") + timeSymbol(names.value(m_timeIndex));
    for (int i = 0; i < names.size(); ++i)
        if (i != m_timeIndex)
            header += QLatin1Char(',') + names[i];
    m_lines.back() = header.toStdString();
}

void TableImport::takeRow()
{
    const bool timed = m_timeIndex >= 0 && std::size_t(m_timeIndex) < m_fields.size();
    std::string row = timed ? timeText(m_fields[std::size_t(m_timeIndex)]) : std::string();
    for (std::size_t i = 0; i < m_fields.size(); ++i)
        if (!timed || int(i) != m_timeIndex)
            row += ',' + valueText(m_fields[i]);
    m_lines.back() = row;
}

/*! Returns the text of a time in the protocol. The second of the first date becomes the moment at which the time
    is 0. */
std::string TableImport::timeText(const std::string &field)
{
    if (m_options.clock == ImportOptions::Clock::Seconds)
        return valueText(field);
    const std::optional<Moment> moment = momentOf(field, m_options);
    if (!moment)
        return "?" + valueText(field);
    if (!m_firstSecond) {
        m_firstSecond = moment->second;
        const QDateTime start = QDateTime::fromSecsSinceEpoch(moment->second, Qt::UTC);
        m_lines.insert(m_lines.begin(), "#t0 " + start.toString(Qt::ISODate).toStdString());
    }
    const qint64 seconds = moment->second - *m_firstSecond + leapSecondsBefore(*moment);
    return numberText(double(seconds) + moment->fraction);
}

/*! Returns how many of the leap seconds that rows had have passed before a moment. The first row of a leap second has it told, since
    dates that are computed from the times will be a second late from then on. */
qint64 TableImport::leapSecondsBefore(const Moment &moment)
{
    const auto begin = m_leapSeconds.begin();
    if (!moment.isLeapSecond)
        return std::upper_bound(begin, m_leapSeconds.end(), moment.second) - begin;
    const auto place = std::lower_bound(begin, m_leapSeconds.end(), moment.second);
    const qint64 before = place - begin;
    if (place == m_leapSeconds.end() || *place != moment.second) {
        m_leapSeconds.insert(place, moment.second);
        const QDateTime next = QDateTime::fromSecsSinceEpoch(moment.second, Qt::UTC);
        // English as all events, which stand in recordings.
        const QString text = QStringLiteral("#event leap second before %1; later times count it");
        m_lines.insert(m_lines.end() - 1, text.arg(next.toString(Qt::ISODate)).toStdString());
    }
    return before;
}

//! Returns a number with a decimal point. What is not one keeps no comma, so that it does not become two fields.
std::string TableImport::valueText(const std::string &field) const
{
    if (m_options.decimalComma)
        return withPoint(field);
    std::string text = field;
    std::replace(text.begin(), text.end(), ',', ';');
    return text;
}

} // namespace Monitor
