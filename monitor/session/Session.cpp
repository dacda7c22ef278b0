// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/session/Session.h"

#include "monitor/sources/Clock.h"

#include <algorithm>

namespace Monitor {

namespace {

constexpr double shortestShowInterval = 0.04; // s
//! More than the model holds need not wait.
constexpr int mostToShow = 100000;

} // namespace

Session::Session(Clock &clock, std::unique_ptr<Source> source, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_source(std::move(source))
    , m_showInterval(shortestShowInterval)
{
    connect(m_source.get(), &Source::streamStarted, this, &Session::takeHeader);
    connect(m_source.get(), &Source::readingsArrived, this, &Session::takeReadings);
    connect(m_source.get(), &Source::noted, this, [this](const QString &text) {
        if (m_recorder)
            m_recorder->addEvent(text);
        Q_EMIT noted(text);
    });
    connect(m_source.get(), &Source::stateChanged, this, &Session::showWaiting);
    connect(&clock, &Clock::tick, this, &Session::tick);
}

Session::~Session() = default;

void Session::start()
{
    m_source->start();
}

void Session::setRange(double low, double high)
{
    m_rangeLow = low;
    m_rangeHigh = high;
}

void Session::takeHeader(const StreamHeader &told)
{
    StreamHeader header = told;
    if (m_rangeLow < m_rangeHigh) {
        header.rangeLow = m_rangeLow;
        header.rangeHigh = m_rangeHigh;
    }
    m_statistics.startStream(header);
    m_activity.reset();
    if (m_recorder)
        m_recorder->startStream(header);
    showWaiting();
    m_toShow.clear(header.channels.size());
    m_model.startStream(header);
    Q_EMIT streamStarted(header);
}

void Session::takeReadings(const ReadingBlock &arrived)
{
    m_activity.noteArrival(m_clock.seconds(), arrived.size());
    if (m_limit.isReached())
        return;
    const ReadingBlock &readings = m_limit.take(arrived);
    m_statistics.addReadings(readings);
    if (m_recorder)
        m_recorder->addReadings(readings);
    m_toShow.append(readings);
    if (isShowDue() || m_limit.isReached() || m_toShow.size() >= mostToShow)
        showWaiting();
    if (m_limit.isReached())
        Q_EMIT limitReached();
}

void Session::setShowInterval(double seconds)
{
    m_showInterval = std::max(seconds, shortestShowInterval);
}

bool Session::isShowDue() const
{
    return m_clock.seconds() - m_shownAt >= m_showInterval;
}

void Session::showWaiting()
{
    if (m_toShow.isEmpty())
        return;
    m_shownAt = m_clock.seconds();
    m_model.addReadings(m_toShow);
    m_toShow.clear(m_toShow.channels());
}

bool Session::isStale() const
{
    return m_source->state() != Source::State::Finished && m_activity.isStale(m_clock.seconds());
}

double Session::rate() const
{
    return m_activity.rate(m_clock.seconds());
}

void Session::tick()
{
    if (isShowDue())
        showWaiting();
    const bool stale = isStale();
    if (stale == m_stale)
        return;
    m_stale = stale;
    Q_EMIT staleChanged(stale);
}

void Session::setPaused(bool paused)
{
    if (paused == isPaused())
        return;
    showWaiting();
    m_model.setPaused(paused);
    Q_EMIT pausedChanged(paused);
}

bool Session::startRecording(Recorder::Options options, QString *error)
{
    options.source = m_source->description();
    auto recorder = std::make_unique<Recorder>(m_clock, options);
    if (!recorder->start()) {
        *error = recorder->errorString();
        return false;
    }
    connect(recorder.get(), &Recorder::fileStarted, this, [this](const QString &name) {
        Q_EMIT noted(tr("recording to %1").arg(name));
        Q_EMIT recordingChanged();
    });
    connect(recorder.get(), &Recorder::failed, this, [this](const QString &text) {
        Q_EMIT noted(tr("ERROR recording stands still: %1; trying again").arg(text));
        Q_EMIT recordingChanged();
    });
    connect(recorder.get(), &Recorder::recovered, this, [this] {
        Q_EMIT noted(tr("recording goes on"));
        Q_EMIT recordingChanged();
    });
    m_recorder = std::move(recorder);
    if (!m_statistics.header().channels.isEmpty())
        m_recorder->startStream(m_statistics.header());
    Q_EMIT noted(tr("recording to %1").arg(m_recorder->fileName()));
    Q_EMIT recordingChanged();
    return true;
}

void Session::stopRecording()
{
    if (!m_recorder)
        return;
    const QString name = m_recorder->fileName();
    const bool complete = m_recorder->finish();
    Q_EMIT noted(complete ? tr("recording to %1 ended").arg(name)
                          : tr("ERROR the recording %1 is not complete: %2")
                                .arg(name, m_recorder->errorString()));
    m_recorder.reset();
    Q_EMIT recordingChanged();
}

} // namespace Monitor
