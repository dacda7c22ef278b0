// SPDX-License-Identifier: LGPL-2.1-or-later
// Measures the monitor's window: time to start, rows per second from a pipe, delay of the event loop under a flood, memory.
#include "MonitorFigures.h"

#include "Goal.h"
#include "LineFlood.h"
#include "ThreadTime.h"
#include "monitor/core/Clock.h"
#include "monitor/session/Session.h"
#include "monitor/sources/SimulatorSource.h"
#include "monitor/sources/StandardInputSource.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/MonitorWindow.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Monitor;

namespace {

constexpr double kilo = 1e3;

QString subjectOf(int channels)
{
    return QStringLiteral("19 %1 channels, ").arg(channels);
}

//! Prints a missed goal if rows were lost.
void requireAll(int channels, long long lost)
{
    require(lost == 0, subjectOf(channels) + "every row is read");
}

//! A window that shows lines from a flood until all of them were read.
class Run
{
public:
    Run(int channels, long long lines, double rate, const QString &settings)
        : m_flood(channels, lines, rate)
        , m_session(m_clock, std::make_unique<StandardInputSource>(m_clock, m_flood.descriptor()))
        , m_window(m_session, settings)
    {
        m_window.resize(MonitorWindow::usualSize);
        m_window.show();
        QApplication::processEvents();
    }

    //! Begins a recording into a file.
    void record(const QString &path)
    {
        Recorder::Options options;
        options.path = path;
        options.overwrite = true;
        QString error;
        if (!m_session.startRecording(options, &error))
            qFatal("%s", qPrintable(error));
    }
    //! Returns the seconds that reading took; with a recording, until it is written.
    double untilTheEnd()
    {
        QObject::connect(&m_session.source(), &Source::stateChanged, [](Source::State state) {
            if (state == Source::State::Finished || state == Source::State::Failed)
                QApplication::quit();
        });
        QElapsedTimer timer;
        timer.start();
        m_session.start();
        const double worked = threadSeconds();
        QApplication::exec();
        m_session.stopRecording();
        m_processorSeconds = threadSeconds() - worked;
        return double(timer.nsecsElapsed()) * 1e-9;
    }
    //! Returns the processor time that this took the thread of the window.
    double processorSeconds() const { return m_processorSeconds; }
    long long lost(long long sent) const
    {
        return sent - m_session.statistics().readings() + m_session.source().counts().bad();
    }

private:
    SystemClock m_clock;
    LineFlood m_flood;
    Session m_session;
    MonitorWindow m_window;
    double m_processorSeconds = 0.0;
};

double residentMegabytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0.0;
    constexpr double pageSize = 4096.0, mega = 1e6;
    return file.readAll().split(' ').value(1).toDouble() * pageSize / mega;
}

//! Measures the time from the start of main() until the display has painted its first readings.
void firstFrame(const QElapsedTimer &sinceStart, const QString &settings)
{
    SystemClock clock;
    Session session(clock, std::make_unique<SimulatorSource>(clock, QStringLiteral("strips")));
    MonitorWindow window(session, settings);
    window.show();
    session.start();
    while (!window.displays().hasDrawn())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    window.grab();
    report({"23 start to the first painted frame, ms",
            double(sinceStart.elapsed()),
            Goal::AtMost,
            250.0});
}

//! Measures what the rows take without a window: what a window adds depends on how many pictures the machine leaves time for.
void rowsWithoutWindow(int channels, long long lines)
{
    SystemClock clock;
    LineFlood flood(channels, lines, 0.0);
    Session session(clock, std::make_unique<StandardInputSource>(clock, flood.descriptor()));
    QObject::connect(&session, &Session::sourceStateChanged, [](Source::State state) {
        if (state == Source::State::Finished || state == Source::State::Failed)
            QApplication::quit();
    });
    session.start();
    const double worked = threadSeconds();
    QApplication::exec();
    const double seconds = threadSeconds() - worked;
    reportFigure(subjectOf(channels)
                     + "without a window, thousand rows for each second of processor time",
                 double(lines) / seconds / kilo);
    requireAll(channels, lines - session.statistics().readings());
}

//! Feeds a window with as many lines as it takes, and returns the processor time of its thread for each row.
double feed(int channels, long long lines, const QString &settings, const QString &record = {})
{
    Run run(channels, lines, 0.0, settings);
    if (!record.isEmpty())
        run.record(record);
    const double seconds = run.untilTheEnd();
    requireAll(channels, run.lost(lines));
    const QString name = subjectOf(channels)
        + (record.isEmpty() ? "from a pipe" : "from a pipe, recorded") + ", thousand rows/s";
    const double rate = double(lines) / seconds / kilo;
    if (record.isEmpty())
        report({name, rate, Goal::AtLeast, channels > 8 ? 125.0 : 2000.0});
    else
        reportFigure(name, rate);
    return run.processorSeconds() / double(lines);
}

//! Measures how late a timer of 5 ms is while 50000 readings per second arrive.
void eventLoopDelay(int channels, const QString &settings)
{
    constexpr double rate = 50000.0, seconds = 10.0;
    constexpr int interval = 5;
    Run run(channels, static_cast<long long>(rate * seconds), rate, settings);
    std::vector<double> delays;
    QElapsedTimer last;
    QTimer probe;
    probe.setTimerType(Qt::PreciseTimer);
    QObject::connect(&probe, &QTimer::timeout, [&] {
        if (last.isValid())
            delays.push_back(std::max(0.0, double(last.nsecsElapsed()) * 1e-6 - interval));
        last.start();
    });
    probe.start(interval);
    run.untilTheEnd();
    std::sort(delays.begin(), delays.end());
    const auto percentile = [&](double share) {
        return delays[std::size_t(share * double(delays.size() - 1))];
    };
    requireAll(channels, run.lost(static_cast<long long>(rate * seconds)));
    const QString name = subjectOf(channels) + "50 000 rows/s, delay of the event loop, ms: ";
    reportFigure(name + "99th percentile", percentile(0.99));
    reportFigure(name + "worst", delays.back());
}

} // namespace

void measureStart(const Figures &figures)
{
    firstFrame(figures.sinceStart, figures.settings());
}

void measureRows(const Figures &figures)
{
    rowsWithoutWindow(8, 4000000);
    rowsWithoutWindow(128, 400000);
    feed(8, 4000000, figures.settings());
    feed(128, 400000, figures.settings());
}

void measureRecording(const Figures &figures)
{
    for (const auto &[channels, lines] : {std::pair(8, 2000000LL), std::pair(128, 200000LL)}) {
        const double without = feed(channels, lines, figures.settings());
        const double with = feed(channels, lines, figures.settings(), figures.file("recorded.csv"));
        report({subjectOf(channels) + "recorded, times the processor time of the window's thread",
                with / without,
                Goal::AtMost,
                1.3});
    }
}

void measureDelay(const Figures &figures)
{
    eventLoopDelay(8, figures.settings());
    eventLoopDelay(32, figures.settings());
}

void measureMemory(const Figures &figures)
{
    for (const long long lines : {200000LL, 10000000LL}) {
        Run run(8, lines, 0.0, figures.settings());
        run.untilTheEnd();
        reportFigure(QStringLiteral("memory after %1 readings of 8 channels, MB").arg(lines),
                     residentMegabytes());
    }
}
