// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/EventLog.h"

#include "monitor/session/Session.h"
#include "monitor/sources/Clock.h"

namespace Monitor {

namespace {

constexpr int mostLines = 5000;
constexpr int refusedLinesASecond = 5;

} // namespace

EventLog::EventLog(Session &session, QWidget *parent)
    : RVXLogBrowser(parent)
    , m_session(session)
{
    setTitle(tr("Log"));
    setMaximumBlockCount(mostLines);
    addErrorKeywords({QStringLiteral("ERROR")});
    addWarningKeywords({QStringLiteral("WARNING")});
    setErrorWarningColorsForWhiteBackground();
    connect(&session, &Session::noted, this, &EventLog::write);
    connect(&session.source(), &Source::lineRefused, this, &EventLog::noteRefused);
    connect(&session.source(),
            &Source::stateChanged,
            this,
            [this](Source::State state, const QString &text) {
                const bool bad = state == Source::State::Failed || state == Source::State::Retrying;
                write((bad ? QStringLiteral("ERROR ") : QString()) + text);
            });
    connect(&session, &Session::staleChanged, this, [this](bool stale) {
        write(stale ? tr("WARNING the source is silent") : tr("readings come again"));
    });
}

void EventLog::write(const QString &text)
{
    const QString time =
        m_session.clock().wallTime().toUTC().toString(QStringLiteral("HH:mm:ss.zzz"));
    appendLine(time + QStringLiteral("  ") + text);
}

void EventLog::noteRefused(const RefusedLine &line)
{
    const double now = m_session.clock().seconds();
    if (now - m_floodBegan >= 1.0) {
        if (m_notShown > 0)
            write(tr("WARNING %1 more bad lines are not listed").arg(m_notShown));
        m_floodBegan = now;
        m_shownInFlood = 0;
        m_notShown = 0;
    }
    if (m_shownInFlood < refusedLinesASecond) {
        ++m_shownInFlood;
        write(QStringLiteral("WARNING ") + line.text());
    } else {
        ++m_notShown;
    }
}

} // namespace Monitor
