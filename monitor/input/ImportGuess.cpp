// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/ImportGuess.h"

#include "monitor/core/Text.h"
#include "monitor/input/CleanText.h"
#include "monitor/input/ColumnPlan.h"
#include "monitor/input/LineText.h"
#include "monitor/input/TableImport.h"

#include <QStringList>

#include <algorithm>
#include <string>
#include <vector>

namespace Monitor {

namespace {

using Fields = std::vector<std::string>;
constexpr int linesLookedAt = 60;

struct Line
{
    int number; //!< lines of the file before it
    std::string text;
};

//! Returns the first lines of a table, without empty ones, remarks, and those that are to be skipped.
std::vector<Line> linesOf(QByteArray sample, const ImportOptions &given)
{
    const bool cut = sample.size() >= ImportGuess::sampleSize;
    if (sample.startsWith("\xef\xbb\xbf"))
        sample.remove(0, 3);
    sample.replace("\r\n", "\n").replace('\r', '\n');
    QByteArrayList all = sample.split('\n');
    if (cut)
        all.removeLast();
    std::vector<Line> lines;
    for (int i = 0; i < all.size() && int(lines.size()) < linesLookedAt; ++i) {
        const QByteArray text = all[i].trimmed();
        if (!text.isEmpty() && !text.startsWith('#'))
            lines.push_back({i, text.toStdString()});
    }
    const auto isLeftOut = [&](const Line &line) {
        return line.number < given.skippedLines || line.text.front() == given.comment;
    };
    lines.erase(std::remove_if(lines.begin(), lines.end(), isLeftOut), lines.end());
    return lines;
}

bool isNumber(std::string field, bool decimalComma)
{
    if (decimalComma)
        std::replace(field.begin(), field.end(), ',', '.');
    double number = 0.0;
    return parseNumber(field, &number);
}

//! Finds out what a date in a field looks like. Returns false if it is none.
bool adoptDate(const std::string &field, ImportOptions *options)
{
    static const char *const formats[] = {"",
                                          "dd.MM.yyyy HH:mm:ss",
                                          "dd.MM.yyyy HH:mm:ss.zzz",
                                          "yyyy/MM/dd HH:mm:ss",
                                          "yyyy/MM/dd HH:mm:ss.zzz",
                                          "MM/dd/yyyy HH:mm:ss",
                                          "MM/dd/yyyy HH:mm:ss.zzz"};
    ImportOptions tried = *options;
    const QString text = QString::fromStdString(field);
    const bool zoned = text.endsWith(QLatin1Char('Z')) || text.mid(10).contains(QLatin1Char('+'))
        || text.mid(10).contains(QLatin1Char('-'));
    for (const char *format : formats) {
        tried.format = QLatin1String(format);
        tried.clock = tried.format.isEmpty() && zoned ? ImportOptions::Clock::Utc
                                                      : ImportOptions::Clock::Local;
        if (!momentOf(field, tried))
            continue;
        *options = tried;
        return true;
    }
    return false;
}

//! One way to read the lines, and how many of them it can read.
struct Reading
{
    ImportOptions options;
    int rows = 0;
    int firstRow = -1; //!< index of the line
    int dateColumn = -1;
    std::size_t columns = 0;
};

//! Takes a line as a row of the table if it is one: numbers, and at most one date, which is in the same column throughout.
void tryRow(const Fields &fields, int index, Reading *reading)
{
    int dates = 0, dateColumn = -1;
    ImportOptions options = reading->options;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (isNumber(fields[i], options.decimalComma))
            continue;
        if (++dates > 1 || !adoptDate(fields[i], &options))
            return;
        dateColumn = int(i);
    }
    const bool empty = std::all_of(fields.begin(), fields.end(), [](const std::string &field) {
        return field.empty();
    });
    if (empty || fields.size() < 2)
        return;
    if (reading->rows == 0) {
        reading->firstRow = index;
        reading->dateColumn = dateColumn;
        reading->columns = fields.size();
        reading->options = options;
    }
    const bool fits = dateColumn == reading->dateColumn && fields.size() == reading->columns;
    reading->rows += fits ? 1 : 0;
}

Reading readAs(const std::vector<Line> &lines, char delimiter, bool decimalComma)
{
    Reading reading;
    reading.options.delimiter = delimiter;
    reading.options.decimalComma = decimalComma;
    Fields fields;
    std::vector<std::string_view> plain;
    for (int i = 0; i < int(lines.size()); ++i) {
        const std::string &text = lines[std::size_t(i)].text;
        if (delimiter == 0) { // as the line protocol does, which knows no quotes
            splitFields(text, &plain);
            fields.assign(plain.begin(), plain.end());
        } else {
            splitQuoted(text, delimiter, &fields);
        }
        tryRow(fields, i, &reading);
    }
    return reading;
}

//! Returns the way in which most lines can be read; the usual one wins a tie.
Reading bestReading(const std::vector<Line> &lines)
{
    struct Way
    {
        char delimiter;
        bool decimalComma;
    };
    constexpr Way others[] = {{';', false},
                              {';', true},
                              {'\t', false},
                              {'\t', true},
                              {'|', false},
                              {'|', true},
                              {',', false},
                              {' ', true}};
    Reading best = readAs(lines, 0, false);
    for (const Way &way : others) {
        const Reading reading = readAs(lines, way.delimiter, way.decimalComma);
        if (reading.rows > best.rows)
            best = reading;
    }
    return best;
}

QStringList namesOf(const std::string &line, char delimiter)
{
    Fields fields;
    splitQuoted(line, delimiter, &fields);
    QStringList names;
    for (const std::string &field : fields)
        names.append(decodedText(field));
    return names;
}

QString signName(char delimiter)
{
    switch (delimiter) {
    case ';':
        return Text::tr("its columns are separated by semicolons");
    case '\t':
        return Text::tr("its columns are separated by tabs");
    case '|':
        return Text::tr("its columns are separated by bars");
    default:
        return Text::tr("its values are in quotes");
    }
}

QString reasonFor(const ImportOptions &options)
{
    QStringList reasons;
    if (options.delimiter != 0 && options.delimiter != ' ')
        reasons += signName(options.delimiter);
    if (options.decimalComma)
        reasons += Text::tr("its numbers have a decimal comma");
    if (options.clock == ImportOptions::Clock::Utc)
        reasons += Text::tr("its times are dates");
    if (options.clock == ImportOptions::Clock::Local)
        reasons += Text::tr(
            "its times are dates without a time zone (local time is assumed; clock=utc otherwise)");
    return reasons.join(Text::tr(" and "));
}

QString noTimeReason(const QStringList &names, bool firstIsNoTime)
{
    return firstIsNoTime
        ? Text::tr("no column holds the time, and %1 is not a time").arg(names.first())
        : Text::tr("no column holds the time");
}

//! Completes a guess by whether the time of the rows is known.
void seekTime(const QStringList &names,
              bool hasDates,
              const ImportOptions &given,
              ImportGuess *guess)
{
    const std::optional<ColumnPlan> plan = ColumnPlan::fromHeader(names);
    const bool timeIsKnown = hasDates || given.timeColumn > 0 || guess->options.interval > 0.0
        || !plan || !plan->lacksTime;
    guess->lacksInterval = (given.timeColumn == ImportOptions::noTime && given.interval == 0.0
                            && (!plan || plan->kind != StreamKind::Spots))
        || !timeIsKnown;
    if (!guess->lacksInterval)
        return;
    guess->options.timeColumn = ImportOptions::noTime;
    guess->reason += (guess->reason.isEmpty() ? QString() : Text::tr(", and "))
        + noTimeReason(names, plan && plan->lacksTime);
}

bool isUtf16(const QByteArray &sample)
{
    return sample.startsWith("\xff\xfe") || sample.startsWith("\xfe\xff");
}

} // namespace

ImportGuess ImportGuess::of(const QByteArray &sample, const ImportOptions &given)
{
    ImportGuess guess;
    guess.options = given;
    if (sample.startsWith("#corvale"))
        return guess;
    if (isUtf16(sample)) {
        guess.fault = Text::tr("its text is written in UTF-16. Save the file as UTF-8");
        return guess;
    }
    const std::vector<Line> lines = linesOf(sample, given);
    const bool isGiven = !given.isUsual();
    const Reading reading =
        isGiven ? readAs(lines, given.delimiter, given.decimalComma) : bestReading(lines);
    if (reading.rows == 0)
        return guess;
    if (given.timeColumn > int(reading.columns)) {
        guess.fault = Text::tr("column %1 is said to hold the time, but the last column is %2")
                          .arg(given.timeColumn)
                          .arg(reading.columns);
        return guess;
    }
    const bool hasHeader = reading.firstRow > 0 && given.header != ImportOptions::Header::None;
    const Line *header = hasHeader ? &lines[std::size_t(reading.firstRow) - 1] : nullptr;
    const QStringList names =
        header ? namesOf(header->text, reading.options.delimiter) : QStringList();
    guess.header = header ? decodedText(header->text) : QString();
    if (!isGiven) {
        guess.options = reading.options;
        guess.reason = reasonFor(reading.options);
        const int named = timeColumnByName(names);
        if (reading.dateColumn > 0 && named != reading.dateColumn)
            guess.options.timeColumn = reading.dateColumn + 1;
        if (header && !guess.options.isUsual() && reading.firstRow > 1)
            guess.options.skippedLines = header->number;
    }
    seekTime(names, reading.dateColumn >= 0, given, &guess);
    guess.isNeeded = guess.lacksInterval || (!isGiven && !guess.options.isUsual());
    return guess;
}

QString ImportGuess::refusal() const
{
    if (!isNeeded)
        return fault;
    if (!lacksInterval)
        return Text::tr("%1. The option --import \"%2\" reads it").arg(reason, options.text());
    ImportOptions stated = options;
    stated.interval = 1e-3;
    return Text::tr("%1. If its rows are 1 ms apart, the option --import \"%2\" reads it")
        .arg(reason, stated.text());
}

} // namespace Monitor
