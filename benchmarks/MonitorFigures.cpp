// SPDX-License-Identifier: LGPL-2.1-or-later
// Measures the monitor's window on lines from a pipe: time to start, rows per second, delay of the event loop under a
// flood, memory. Prints one line for each figure. The window is shown, offscreen if there is no display.
#include "LineFlood.h"
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
#include <cstdio>
#include <memory>
#include <vector>

using namespace Monitor;

namespace {

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

    //! Returns the seconds that reading took.
    double untilTheEnd()
    {
        QObject::connect(&m_session.source(), &Source::stateChanged, [](Source::State state) {
            if (state == Source::State::Finished || state == Source::State::Failed)
                QApplication::quit();
        });
        QElapsedTimer timer;
        timer.start();
        m_session.start();
        QApplication::exec();
        return double(timer.nsecsElapsed()) * 1e-9;
    }
    long long lost(long long sent) const
    {
        return sent - m_session.statistics().readings() + m_session.source().counts().bad();
    }

private:
    SystemClock m_clock;
    LineFlood m_flood;
    Session m_session;
    MonitorWindow m_window;
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
    std::printf("start to first painted frame   %8.0f ms\n", double(sinceStart.elapsed()));
}

void rowsASecond(int channels, long long lines, const QString &settings)
{
    Run run(channels, lines, 0.0, settings);
    const double seconds = run.untilTheEnd();
    std::printf("%3d channels from a pipe        %8.0f rows/s, %lld lost\n",
                channels,
                double(lines) / seconds,
                run.lost(lines));
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
    const double took = run.untilTheEnd();
    std::sort(delays.begin(), delays.end());
    const auto percentile = [&](double share) {
        return delays[std::size_t(share * double(delays.size() - 1))];
    };
    std::printf(
        "50 k/s of %3d channels, %4.1f s   median %.1f, 99th percentile %.1f, worst %.1f ms "
        "late, %lld lost\n",
        channels,
        took,
        percentile(0.5),
        percentile(0.99),
        delays.back(),
        run.lost(static_cast<long long>(rate * seconds)));
}

void memory(const QString &settings)
{
    for (const long long lines : {200000LL, 10000000LL}) {
        Run run(8, lines, 0.0, settings);
        run.untilTheEnd();
        std::printf("memory after %8lld readings  %8.0f MB\n", lines, residentMegabytes());
    }
}

} // namespace

int main(int argc, char **argv)
{
    QElapsedTimer sinceStart;
    sinceStart.start();
    if (!qEnvironmentVariableIsSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    QTemporaryDir folder;
    const QString settings = folder.filePath(QStringLiteral("figures.xui"));
    firstFrame(sinceStart, settings);
    rowsASecond(8, 2000000, settings);
    rowsASecond(128, 200000, settings);
    eventLoopDelay(8, settings);
    eventLoopDelay(32, settings);
    memory(settings);
    return 0;
}
