// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/HeadlessRun.h"

#include "monitor/core/LogTail.h"
#include "monitor/core/LoopWatch.h"
#include "monitor/core/RunReport.h"
#include "monitor/input/SpotFile.h"
#include "monitor/program/HeadlessFeed.h"
#include "monitor/program/ProgressLine.h"
#include "monitor/program/TerminationSignal.h"
#include "monitor/publishing/Publishing.h"
#include "monitor/tape/CommonTape.h"

#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cstdio>

namespace Monitor {

HeadlessRun::HeadlessRun(const CommandLine &commandLine, QObject *parent)
    : QObject(parent)
    , m_commandLine(commandLine)
{
    for (const NamedAddress &source : m_commandLine.sources) {
        const bool isAlone = m_commandLine.sources.size() == 1;
        m_feeds.push_back(std::make_unique<HeadlessFeed>(
            m_commandLine,
            NamedAddress{isAlone ? QString() : source.name, source.address},
            m_clock,
            m_plan,
            m_compressor));
    }
}

HeadlessRun::~HeadlessRun() = default;

//! Opens what the results are published under, before the sources.
bool HeadlessRun::openPublications()
{
    QString error;
    auto publications = Monitor::openPublications(m_commandLine.published, &error);
    if (!error.isEmpty()) {
        complain(error);
        m_exitCode = ExitUsage;
        return false;
    }
    for (std::size_t i = 0; i < publications.size(); ++i)
        if (publications[i])
            m_feeds[i]->publish(std::move(publications[i]));
    return true;
}

bool HeadlessRun::openSources()
{
    for (const auto &feed : m_feeds) {
        if (!feed->openSource()) {
            m_exitCode = ExitUsage;
            return false;
        }
        connect(feed.get(), &HeadlessFeed::outputFailed, this, &HeadlessRun::end);
        connect(feed.get(), &HeadlessFeed::refused, this, [this, &feed](const QString &text) {
            print((prefix(*feed) + text).toUtf8() + '\n');
        });
    }
    return true;
}

//! Opens the recordings. None of them may replace a file that is read.
bool HeadlessRun::openOutputs()
{
    for (const auto &feed : m_feeds) {
        const QString path = feed->outputPath();
        const QString completed = completedPath(path, m_commandLine.record.segments);
        const auto reads = [&](const auto &other) {
            return !path.isEmpty()
                && (other->source().readsFrom(path) || other->source().readsFrom(completed));
        };
        if (std::any_of(m_feeds.begin(), m_feeds.end(), reads)) {
            complain(tr("%1 exists already and is the source; write to another file").arg(path));
            m_exitCode = ExitOutputFailed;
        } else if (!feed->openOutput()) {
            m_exitCode = ExitOutputFailed;
        }
        if (m_exitCode != ExitGood)
            return false;
    }
    return true;
}

//! Reads the list of planned spots, if there is one to compare with.
bool HeadlessRun::openPlan()
{
    QString error;
    if (!m_commandLine.planned.isEmpty())
        m_plan = spotsFromFile(m_commandLine.planned, &error);
    if (error.isEmpty())
        return true;
    complain(error);
    m_exitCode = ExitBadData;
    return false;
}

//! Says which of the former runs without a window have crashed.
void HeadlessRun::tellCrashes()
{
    for (const FormerRun &run : FormerRun::take(QString()))
        if (run.crashed.isValid())
            complain(
                tr("an earlier run crashed: %1. Its report is %2").arg(run.reason, run.report));
}

int HeadlessRun::run()
{
    tellCrashes();
    RunReport notes{QString()};
    QStringList addresses;
    for (const NamedAddress &source : m_commandLine.sources)
        addresses.append(source.address);
    notes.note(QStringLiteral("source"), addresses.join(QLatin1Char(' ')));
    if (!openPlan() || !openPublications() || !openSources() || !openOutputs())
        return m_exitCode;
    readSources();
    return report();
}

/*! Returns a tape that plays several recordings together, for those who read their results as they come; null if a report of each is
    wanted, or if there is another source among them. */
std::unique_ptr<CommonTape> HeadlessRun::commonTape()
{
    std::vector<CommonTape::Recording> recordings;
    for (const auto &feed : m_feeds)
        if (auto *source = qobject_cast<FileSource *>(&feed->source()))
            recordings.push_back({feed->name(), source});
    const bool isForReaders = m_commandLine.task == CommandLine::Task::Headless;
    if (!isForReaders || isAlone() || recordings.size() != m_feeds.size())
        return nullptr;
    const CommonTape::Options options = CommonTape::optionsOf(*recordings.front().source);
    return std::make_unique<CommonTape>(recordings, options, m_clock);
}

//! Reads until all sources have ended.
void HeadlessRun::readSources()
{
    TerminationSignal termination;
    connect(&termination, &TerminationSignal::raised, this, [this] {
        for (const auto &feed : m_feeds)
            feed->interrupt();
    });
    QEventLoop loop;
    connect(&m_clock, &Clock::tick, &loop, [&] {
        if (hasEnded())
            loop.quit();
    });
    const LoopWatch watch(m_clock, 0.0);
    const ProgressLine progress(m_clock, [this] {
        QStringList texts;
        for (const auto &feed : m_feeds)
            texts.append(feed->progressText());
        return texts.join(QStringLiteral("; "));
    });
    const std::unique_ptr<CommonTape> tape = commonTape();
    for (const auto &feed : m_feeds)
        feed->start();
    if (!hasEnded())
        loop.exec();
    for (const auto &feed : m_feeds)
        feed->finishPublishing();
    if (m_commandLine.diagnostics)
        complain(watch.summary());
}

bool HeadlessRun::hasEnded() const
{
    return std::all_of(m_feeds.begin(), m_feeds.end(), [](const auto &feed) {
        return feed->hasEnded();
    });
}

void HeadlessRun::end()
{
    for (const auto &feed : m_feeds)
        feed->end();
}

bool HeadlessRun::print(const QByteArray &text)
{
    const bool written = std::fwrite(text.constData(), 1, std::size_t(text.size()), stdout)
        == std::size_t(text.size());
    return std::fflush(stdout) == 0 && written;
}

void HeadlessRun::complain(const QString &text) const
{
    LogTail::add(text);
    std::fprintf(stderr, "corvale-monitor: %s\n", qPrintable(text));
}

//! Returns what stands before a line about a source among others.
QString HeadlessRun::prefix(const HeadlessFeed &feed) const
{
    return isAlone() ? QString() : feed.name() + QStringLiteral(": ");
}

void HeadlessRun::finishRecordings()
{
    for (const auto &feed : m_feeds)
        feed->finishRecording();
    m_compressor.finish();
    for (const QString &error : m_compressor.takeErrors())
        complain(error);
}

int HeadlessRun::report()
{
    finishRecordings();
    if (m_commandLine.task == CommandLine::Task::Statistics)
        printStatistics();
    else if (m_commandLine.task == CommandLine::Task::Check)
        printCheck();
    for (const auto &feed : m_feeds)
        m_exitCode = std::max(m_exitCode, int(feed->judge()));
    return m_exitCode;
}

void HeadlessRun::printCheck()
{
    for (const auto &feed : m_feeds)
        for (const QString &line : feed->check())
            print((prefix(*feed) + line).toUtf8() + '\n');
}

//! Prints the report of the only source; or those of all sources, each under its name, in JSON as one object.
void HeadlessRun::printStatistics()
{
    QJsonArray objects;
    QByteArray text;
    for (const auto &feed : m_feeds) {
        const std::optional<StatisticsReport> statistics = feed->statistics();
        if (!statistics)
            continue;
        if (isAlone()) {
            text = m_commandLine.json ? statistics->json() : statistics->text();
        } else if (m_commandLine.json) {
            QJsonObject object = statistics->object();
            const QDateTime start = feed->startTime().toUTC();
            object.insert(QStringLiteral("name"), feed->name());
            object.insert(QStringLiteral("start_time"),
                          start.isValid() ? start.toString(Qt::ISODateWithMs) : QJsonValue());
            objects.append(object);
        } else {
            text += (text.isEmpty() ? "name      " : "\nname      ") + feed->name().toUtf8() + '\n'
                + statistics->text();
        }
    }
    if (!isAlone() && m_commandLine.json)
        text = QJsonDocument(QJsonObject{{QStringLiteral("sources"), objects}}).toJson();
    if (!print(text))
        m_exitCode = ExitOutputFailed;
}

} // namespace Monitor
