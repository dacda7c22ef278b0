// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/EventLog.h"

#include "monitor/core/Clock.h"
#include "monitor/core/LogTail.h"
#include "monitor/readings/StreamDetector.h"
#include "monitor/session/Session.h"

#include <QEvent>
#include <QLabel>

namespace Monitor {

namespace {

constexpr int mostLines = 5000;
constexpr int mostASecond = 5; // lines of each kind

} // namespace

EventLog::EventLog(Session &session, QWidget *parent)
    : RVXLogBrowser(parent)
    , m_session(session)
    , m_refused(mostASecond)
    , m_states(mostASecond)
{
    titleLabel()->hide(); // the dock has it
    setMaximumBlockCount(mostLines);
    addErrorKeywords({QStringLiteral("ERROR"), QStringLiteral("ALARM")});
    addWarningKeywords({QStringLiteral("WARNING")});
    adoptPalette();
    connect(&session, &Session::noted, this, &EventLog::write);
    connect(&session, &Session::streamStarted, this, &EventLog::noteStart);
    connect(&session, &Session::lineRefused, this, &EventLog::noteRefused);
    connect(&session, &Session::sourceStateChanged, this, &EventLog::noteState);
    connect(&session.clock(), &Clock::tick, this, &EventLog::tellHeldBack);
    connect(&session, &Session::staleChanged, this, [this](bool stale) {
        write(stale ? tr("WARNING the source is silent: the values shown are old. Check the beam "
                         "and the instrument")
                    : tr("readings arrive again"));
    });
}

void EventLog::changeEvent(QEvent *event)
{
    RVXLogBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        adoptPalette();
}

void EventLog::adoptPalette()
{
    constexpr int half = 128;
    if (palette().color(QPalette::Base).lightness() < half)
        setErrorWarningColorsForNonWhiteBackground();
    else
        setErrorWarningColorsForWhiteBackground();
}

void EventLog::noteStart(const StreamHeader &header)
{
    const QString unit = header.readingUnit();
    const QString inUnit = unit.isEmpty() ? QString() : tr(", in %1").arg(unit);
    if (header.hasFrames())
        write(tr("frames begin: %1%2").arg(header.detector.summary(), inUnit));
    else
        write(tr("readings begin: %1 channels, layout %2%3")
                  .arg(header.channels.size())
                  .arg(kindName(header.kind), inUnit));
    noteAssumptions(header);
}

//! Says that the places of strips or pixels are not known, and how they can be stated.
void EventLog::noteAssumptions(const StreamHeader &header)
{
    const Corvale_Qt::DetectorLayout shown = detectorOf(header);
    const bool isCounted =
        !shown.isEmpty() && shown.unit(Corvale_Qt::DetectorLayout::Axis::X).isEmpty();
    if (isCounted)
        write(tr("positions are counted in cells: nobody says how far apart they are; File > "
                 "Settings > Readings, --detector or the stream can describe the detector"));
}

void EventLog::write(const QString &text)
{
    const QString time =
        m_session.clock().wallTime().toUTC().toString(QStringLiteral("HH:mm:ss.zzz"));
    const QString line = time + QStringLiteral("  ") + text;
    appendLine(line);
    LogTail::add(line);
}

void EventLog::noteRefused(const RefusedLine &line)
{
    tellHeldBack();
    if (m_refused.admits(m_session.clock().seconds()))
        write(QStringLiteral("WARNING ") + line.text());
}

void EventLog::noteState(Source::State state, const QString &text)
{
    tellHeldBack();
    const bool bad = state == Source::State::Failed || state == Source::State::Retrying;
    if (!text.isEmpty() && m_states.admits(m_session.clock().seconds()))
        write((bad ? QStringLiteral("ERROR ") : QString()) + text);
}

void EventLog::tellHeldBack()
{
    const double now = m_session.clock().seconds();
    if (const qint64 lines = m_refused.takeHeldBack(now))
        write(tr("WARNING %1 more bad lines are not listed; corvale-monitor --check FILE lists "
                 "those of a file")
                  .arg(lines));
    if (const qint64 states = m_states.takeHeldBack(now))
        write(tr("WARNING %1 more changes of the connection are not listed").arg(states));
}

} // namespace Monitor
