// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/CommandLine.h"

#include "monitor/core/Text.h"
#include "monitor/nexus/NexusFiles.h"
#include "monitor/program/OptionConflicts.h"
#include "monitor/program/OptionTexts.h"
#include "monitor/readings/DetectorPresets.h"
#include "monitor/session/RotationText.h"
#include "monitor/sources/SourceFactory.h"
#include <corvale_qt/settings/Translations.h>
#include <corvale_qt/widgets/TimeSpan.h>

#include <QCommandLineParser>
#include <QRegularExpression>
#include <QTextStream>

#include <cmath>

namespace Monitor {

namespace {

//! Reads the values of options and keeps the first error.
class ValueReader
{
public:
    explicit ValueReader(const QCommandLineParser &parser)
        : m_parser(parser)
    {
    }

    void number(const char *name, double *value, double least)
    {
        bool ok = false;
        const double number = text(name).toDouble(&ok);
        if (!isSet(name))
            return;
        if (ok && number >= least)
            *value = number;
        else
            fail(name,
                 std::isfinite(least) ? Text::tr("a number, at least %1").arg(least)
                                      : Text::tr("a number"));
    }
    //! Reads the description of a detector from the file that the option names.
    void detector(Corvale_Qt::DetectorLayout *layout)
    {
        if (!isSet("detector") || text("detector") == CommandLine::noDetector())
            return;
        Corvale_Qt::DetectorFault fault;
        *layout = detectorNamed(text("detector"), &fault);
        if (!fault.isEmpty() && m_error.isEmpty())
            m_error = Text::tr("--detector %1: %2").arg(text("detector"), fault.message());
    }
    void range(double *low, double *high)
    {
        const QStringList limits = text("range").split(QLatin1Char(','));
        if (!isSet("range"))
            return;
        bool lowOk = false, highOk = false;
        *low = limits.value(0).toDouble(&lowOk);
        *high = limits.value(1).toDouble(&highOk);
        if (!lowOk || !highOk || limits.size() != 2 || !(*low < *high))
            fail("range", Text::tr("two numbers, the lower one first, like -1e-6,1e-6"));
    }
    //! Reads one tolerance for both axes, or one for each.
    void tolerance(double *x, double *y)
    {
        if (!isSet("tolerance"))
            return;
        const QStringList parts = text("tolerance").split(QLatin1Char(','));
        bool xOk = false, yOk = false;
        *x = parts.first().toDouble(&xOk);
        *y = parts.last().toDouble(&yOk);
        constexpr double largest = 1000.0;
        const auto fits = [](double value) {
            return value > 0.0 && value <= largest;
        };
        if (!xOk || !yOk || parts.size() > 2 || !fits(*x) || !fits(*y))
            fail("tolerance", Text::tr("millimetres above 0, like 1.5, or 1,2 for x and y"));
    }
    void size(QSize *size)
    {
        static const QRegularExpression form(QStringLiteral("^(\\d{2,5})x(\\d{2,5})$"));
        const QRegularExpressionMatch match = form.match(text("size"));
        if (match.hasMatch())
            *size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
        else if (isSet("size"))
            fail("size", Text::tr("a width and a height, like 1280x800"));
    }
    void amount(qint64 *readings, double *seconds)
    {
        static const QRegularExpression form(QStringLiteral("^(\\d{1,12})(frames|readings)$"));
        const QRegularExpressionMatch match = form.match(text("after"));
        const std::optional<double> time = secondsFromText(text("after"));
        if (match.hasMatch() && match.captured(1).toLongLong() > 0)
            *readings = match.captured(1).toLongLong();
        else if (time)
            *seconds = *time;
        else if (isSet("after"))
            fail("after", Text::tr("an amount of data, like 200frames or 2s"));
    }
    void span(double *span)
    {
        const std::optional<double> seconds = Corvale_Qt::TimeSpan::fromText(text("span"));
        if (seconds)
            *span = *seconds;
        else if (isSet("span"))
            fail("span", Text::tr("a time, like 90s, 1.5min, 2h or 250ms, or all"));
    }
    void rotation(Recorder::Options *options)
    {
        if (isSet("rotate") && !setRotation(options, text("rotate")))
            fail("rotate", Text::tr("a time or a size, like 1h or 100M, or both, like 1h,100M"));
    }
    //! Reads what complete files become; --compress is the short form of one of them.
    void segments(SegmentForm *form)
    {
        const bool compress = isSet("compress");
        *form = compress ? SegmentForm::Zstd : SegmentForm::Text;
        if (!isSet("segments"))
            return;
        const std::optional<SegmentForm> wanted = segmentFormFromName(text("segments"));
        *form = wanted.value_or(SegmentForm::Text);
        if (!wanted)
            fail("segments",
                 Text::tr("one of %1").arg(segmentFormNames().join(QStringLiteral(", "))));
        else if (compress && *form != SegmentForm::Zstd && m_error.isEmpty())
            m_error =
                Text::tr("--compress and --segments %1 cannot be combined; choose one of them")
                    .arg(text("segments"));
        else if (*form == SegmentForm::Hdf5 && !nexusMissing().isEmpty() && m_error.isEmpty())
            m_error = Text::tr("--segments hdf5: %1").arg(nexusMissing());
    }
    void mode(unsigned *mode)
    {
        static const QRegularExpression form(QStringLiteral("^0?[0-7]{3}$"));
        constexpr int octal = 8;
        if (form.match(text("mode")).hasMatch())
            *mode = text("mode").toUInt(nullptr, octal);
        else if (isSet("mode"))
            fail("mode", Text::tr("permissions, like 0640 or 0644"));
    }
    void import(ImportOptions *options)
    {
        QString error;
        if (isSet("import") && !ImportOptions::fromText(text("import"), options, &error)
            && m_error.isEmpty())
            m_error = Text::tr("--import: %1").arg(error);
    }
    void display(QString *display)
    {
        static const QStringList names =
            {"strip", "scope", "histogram", "profile", "position", "spots", "errors"};
        *display = text("view");
        if (isSet("view") && !names.contains(*display))
            fail("view", Text::tr("one of %1").arg(names.join(QStringLiteral(", "))));
    }
    void language(QString *language)
    {
        const QStringList known = Corvale_Qt::translationLanguages();
        *language = text("language");
        if (isSet("language") && !known.contains(*language))
            fail("language", Text::tr("one of %1").arg(known.join(QStringLiteral(", "))));
    }

    void computed(QVector<Corvale_Qt::ComputedChannel> *channels)
    {
        const QStringList texts = m_parser.values(QStringLiteral("compute"));
        for (const QString &text : texts) {
            const auto channel = Corvale_Qt::ComputedChannel::fromText(text);
            if (channel)
                channels->append(*channel);
            else if (m_error.isEmpty())
                m_error =
                    Text::tr("--compute %1: it should be a name, a unit in brackets if there is "
                             "one, = and an "
                             "expression, like \"sum [nA] = A + B\"")
                        .arg(text);
        }
        if (!texts.isEmpty() && !Corvale_Qt::ChannelExpressions::isAvailable())
            m_error = Text::tr("--compute: this program was built without muparser, which reads "
                               "expressions; leave the option out, or build the program with it");
    }

    bool isSet(const char *name) const { return m_parser.isSet(QLatin1String(name)); }
    QString text(const char *name) const { return m_parser.value(QLatin1String(name)); }
    QString error() const { return m_error; }

private:
    void fail(const char *name, const QString &wanted)
    {
        if (m_error.isEmpty())
            m_error =
                Text::tr("--%1 %2: it should be %3").arg(QLatin1String(name), text(name), wanted);
    }

    const QCommandLineParser &m_parser;
    QString m_error;
};

void addOptions(QCommandLineParser *parser)
{
    for (const OptionText &option : optionTexts()) {
        const QStringList names = option.name == QLatin1String("help")
            ? QStringList{QStringLiteral("h"), option.name}
            : QStringList{option.name};
        parser->addOption(QCommandLineOption(names, option.text, option.value));
    }
    QCommandLineOption manPage(QStringLiteral("man-page"));
    manPage.setFlags(QCommandLineOption::HiddenFromHelp);
    parser->addOption(manPage);
}

//! Returns the options that stand for a task.
const QVector<QPair<QString, CommandLine::Task>> &taskOptions()
{
    using Task = CommandLine::Task;
    static const QVector<QPair<QString, Task>> tasks = {{"help", Task::Help},
                                                        {"version", Task::Version},
                                                        {"man-page", Task::ManPage},
                                                        {"headless", Task::Headless},
                                                        {"stats", Task::Statistics},
                                                        {"convert", Task::Convert},
                                                        {"check", Task::Check},
                                                        {"repair", Task::Repair},
                                                        {"screenshot", Task::Screenshot}};
    return tasks;
}

/*! Returns the options that were given beside those that name the source and the settings, as they would be typed:
    "--span 2h". */
QStringList typedOptions(const QCommandLineParser &parser)
{
    static const QStringList elsewhere = {"source", "measured", "settings"};
    QStringList names = parser.optionNames();
    names.removeDuplicates();
    QStringList typed;
    for (const QString &name : qAsConst(names)) {
        if (elsewhere.contains(name))
            continue;
        QStringList values = parser.values(name);
        values.prepend(QStringLiteral("--") + name);
        typed.append(values.join(QLatin1Char(' ')));
    }
    return typed;
}

//! Reads what is to be done; more than one thing is an error.
void readTask(const QCommandLineParser &parser, CommandLine *line, QString *error)
{
    QStringList asked;
    for (const auto &[name, task] : taskOptions()) {
        if (!parser.isSet(name))
            continue;
        asked.append(QStringLiteral("--") + name);
        line->task = asked.size() == 1 ? task : line->task;
    }
    if (asked.size() > 1)
        *error = Text::tr("%1 cannot be combined; choose one of them")
                     .arg(asked.join(Text::tr(" and ")));
}

//! Returns the task of one source that several sources are given for; empty if the task takes several.
QString taskOfOneSource(const CommandLine &line)
{
    using Task = CommandLine::Task;
    if (line.task == Task::Convert)
        return Text::tr("--convert writes the readings of one source");
    if (!line.planned.isEmpty())
        return Text::tr("--planned is compared with one source");
    if (line.task == Task::Screenshot)
        return Text::tr("--screenshot shows one source");
    return {};
}

//! Returns what is wrong with the sources as a whole; empty if nothing is.
QString faultOfSources(const CommandLine &line)
{
    QStringList addresses;
    for (const NamedAddress &source : line.sources)
        addresses.append(source.address);
    if (addresses.count(QStringLiteral("-")) > 1)
        return Text::tr("standard input can only be read once; leave one - out");
    const QString task = addresses.size() > 1 ? taskOfOneSource(line) : QString();
    if (task.isEmpty())
        return {};
    return Text::tr("%1, not several: %2. A window, --stats and --check read several")
        .arg(task, addresses.join(QStringLiteral(", ")));
}

/*! Finds the source whose results are to be published: the one that is named, or else the one that stands at the same place in its
    row. Returns what is wrong. */
QString takePublished(const QString &text, int place, CommandLine *line)
{
    if (text.isEmpty())
        return Text::tr("--publish needs an address, like tango:beam/monitor/1");
    const std::optional<NamedAddress> named = namedAddressFromText(text);
    int index = place;
    if (named)
        for (index = 0; index < line->sources.size(); ++index)
            if (line->sources.at(index).name == named->name)
                break;
    if (index >= line->sources.size())
        return named ? Text::tr("--publish %1: there is no source of that name").arg(text)
                     : Text::tr("--publish %1: more addresses than sources are given").arg(text);
    if (!line->published.at(index).isEmpty())
        return Text::tr("--publish %1: that source is published already").arg(text);
    line->published[index] = named ? named->address : text;
    return {};
}

//! Reads under what the results of each source are published.
void readPublished(const QCommandLineParser &parser, CommandLine *line, QString *error)
{
    line->published = QVector<QString>(line->sources.size()).toList();
    const QStringList texts = parser.values(QStringLiteral("publish"));
    for (int i = 0; i < texts.size() && error->isEmpty(); ++i)
        *error = takePublished(texts.at(i), i, line);
    using Task = CommandLine::Task;
    const bool canPublish = line->task == Task::Window || line->task == Task::Headless
        || line->task == Task::Statistics || line->task == Task::Check;
    if (!texts.isEmpty() && !canPublish)
        *error = Text::tr("--publish needs a window, --headless, --stats or --check");
}

//! Reads what is given as a source, first each argument without an option, then each --source.
void readSources(const QCommandLineParser &parser, CommandLine *line, QString *error)
{
    for (const QString &address : parser.positionalArguments())
        line->sources.append({QString(), address});
    for (const QString &text : parser.values(QStringLiteral("source"))) {
        const std::optional<NamedAddress> source = namedAddressFromText(text);
        if (!source)
            *error =
                Text::tr("--source %1: it should be NAME=ADDRESS, like halo=tcp://10.0.0.7:5000; a "
                         "name has letters, digits, _, - and .")
                    .arg(text);
        line->sources.append(source.value_or(NamedAddress()));
    }
    const QString measured = parser.value(QStringLiteral("measured"));
    if (!line->sources.isEmpty() && !measured.isEmpty())
        *error = Text::tr("--measured %1: the source is %2 already; leave one of them out")
                     .arg(measured, line->sources.first().address);
    else if (!measured.isEmpty())
        line->sources.append({QString(), measured});
    line->planned = parser.value(QStringLiteral("planned"));
    line->sourceGiven = !line->sources.isEmpty();
    if (!line->sourceGiven)
        line->sources.append({QString(), line->source});
    line->source = line->sources.first().address;
    nameSources(&line->sources);
    if (error->isEmpty())
        *error = faultOfSources(*line);
}

void readStatisticsOptions(const QCommandLineParser &parser, CommandLine *line, QString *error)
{
    line->json = parser.isSet(QStringLiteral("json"));
    line->fitChannels = parser.isSet(QStringLiteral("fit-channels"));
    if (line->json && line->task != CommandLine::Task::Statistics)
        *error = Text::tr("--json prints statistics; add --stats");
    if (line->fitChannels && line->task != CommandLine::Task::Statistics)
        *error = Text::tr("--fit-channels fits for statistics; add --stats");
}

//! Reads the options that have values of their own kinds; what is wrong with them is the reader's to tell.
void readValues(ValueReader &values, CommandLine *line)
{
    values.number("speed", &line->file.speed, 0.0);
    values.number("from", &line->file.from, -std::numeric_limits<double>::infinity());
    values.number("to", &line->file.to, -std::numeric_limits<double>::infinity());
    values.range(&line->rangeLow, &line->rangeHigh);
    values.detector(&line->detector);
    line->detectorFile = values.text("detector");
    values.tolerance(&line->toleranceX, &line->toleranceY);
    values.computed(&line->computed);
    values.size(&line->size);
    values.amount(&line->afterReadings, &line->afterSeconds);
    values.rotation(&line->record);
    values.mode(&line->record.mode);
    values.segments(&line->record.segments);
    values.import(&line->file.import);
    values.display(&line->display);
    values.language(&line->language);
    values.span(&line->span);
    line->record.path = values.text("record");
    line->settings = values.text("settings");
    line->diagnostics = values.isSet("diagnostics");
    line->speedGiven = values.isSet("speed");
}

//! Returns the name of the option that has the path of a task's output.
const char *outputOption(CommandLine::Task task)
{
    if (task == CommandLine::Task::Convert)
        return "convert";
    return task == CommandLine::Task::Repair ? "repair" : "screenshot";
}

} // namespace

bool CommandLine::parse(const QStringList &arguments, QString *error)
{
    QCommandLineParser parser;
    addOptions(&parser);
    *error = parser.parse(arguments) ? QString() : parser.errorText();
    if (!error->isEmpty())
        return false;

    readTask(parser, this, error);
    if (task == Task::Help || task == Task::Version || task == Task::ManPage) {
        error->clear(); // a text is printed whatever else is asked for
        return true;
    }
    readSources(parser, this, error);
    if (error->isEmpty())
        readPublished(parser, this, error);
    readStatisticsOptions(parser, this, error);
    ValueReader values(parser);
    readValues(values, this);
    if (task == Task::Screenshot && !speedGiven)
        file.speed = 0.0; // nobody watches
    file.loop = parser.isSet(QStringLiteral("loop"));
    file.passesDamage = task == Task::Check;
    record.overwrite = parser.isSet(QStringLiteral("overwrite"));
    pluginPath = parser.values(QStringLiteral("plugin-path"));
    givenOptions = typedOptions(parser);
    output = values.text(outputOption(task));
    if (task == Task::Repair && sourceGiven)
        *error = Text::tr("--repair takes one file, and no source; repair the files one by one");
    if (error->isEmpty())
        *error = values.error();
    if (error->isEmpty())
        *error = optionConflict(*this, parser);
    return error->isEmpty();
}

QString CommandLine::versionText()
{
    return QStringLiteral("corvale-monitor " CORVALE_MONITOR_VERSION "\n");
}

QString CommandLine::helpText()
{
    QString text = Text::tr("Usage: corvale-monitor [options] [source ...]")
        + QStringLiteral("\n\n") + summaryText() + QStringLiteral("\n\n") + Text::tr("Options")
        + QLatin1Char('\n');
    constexpr int column = 26;
    const auto item = [&](const QString &name, const QString &meaning) {
        const bool fits = name.size() < column;
        text += QStringLiteral("  ") + name.leftJustified(column)
            + (fits ? QString() : QLatin1Char('\n') + QString(column + 2, QLatin1Char(' ')))
            + meaning + QLatin1Char('\n');
    };
    for (const OptionText &option : optionTexts())
        item(QStringLiteral("--") + option.name
                 + (option.value.isEmpty() ? QString() : QLatin1Char(' ') + option.value),
             option.text);
    for (const TopicText &topic : topicTexts()) {
        text += QLatin1Char('\n') + topic.title + QLatin1Char('\n');
        for (const auto &[name, meaning] : topic.items)
            item(name, meaning);
    }
    return text;
}

namespace {

//! Returns the text with what roff would interpret, backslashes and hyphens, escaped.
QString roff(QString text)
{
    return text.replace(QLatin1Char('\\'), QLatin1String("\\\\"))
        .replace(QLatin1Char('-'), QLatin1String("\\-"));
}

} // namespace

QByteArray CommandLine::manPage()
{
    QByteArray page;
    QTextStream out(&page);
    out.setCodec("UTF-8");
    out << ".TH CORVALE\\-MONITOR 1 \"\" \"corvale-monitor " CORVALE_MONITOR_VERSION "\"\n"
        << ".SH NAME\ncorvale\\-monitor \\- beam monitor\n"
        << ".SH SYNOPSIS\n.B corvale\\-monitor\n[options] [source]\n"
        << ".SH DESCRIPTION\n"
        << roff(summaryText()) << "\n.SH OPTIONS\n";
    for (const OptionText &option : optionTexts()) {
        out << ".TP\n.B \\-\\-" << roff(option.name);
        if (!option.value.isEmpty())
            out << " \\fI" << roff(option.value) << "\\fR";
        out << "\n" << roff(option.text) << "\n";
    }
    for (const TopicText &topic : topicTexts()) {
        out << ".SH " << roff(topic.title.toUpper()) << "\n";
        for (const auto &[name, meaning] : topic.items)
            out << ".TP\n.B " << roff(name) << "\n" << roff(meaning) << "\n";
    }
    out.flush();
    return page;
}

} // namespace Monitor
