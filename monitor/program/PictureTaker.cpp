// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/PictureTaker.h"

#include "monitor/core/Clock.h"
#include "monitor/core/EnglishTexts.h"
#include "monitor/session/Session.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/MonitorWindow.h"
#include "monitor/window/PictureExport.h"
#include <corvale_qt/scope/DisplayPicture.h>

#include <algorithm>

namespace Monitor {

namespace {

//! A display paints ten times a second, and needs this long to show the last data.
constexpr double settlingTime = 0.5; // s
//! A source that is silent for this long is given up.
constexpr double patience = 20.0; // s
//! A display that does not show the data within this time has nothing to show.
constexpr double drawingPatience = 3.0; // s
//! The turns of the event loop that these times have at least. On a busy machine time passes without any.
constexpr int settlingTurns = 15, drawingTurns = 100;

} // namespace

PictureTaker::PictureTaker(Session &session,
                           MonitorWindow &window,
                           const QString &file,
                           QObject *parent)
    : QObject(parent)
    , m_session(session)
    , m_window(window)
    , m_file(file)
    , m_startedAt(session.clock().seconds())
{
    connect(&session, &Session::limitReached, this, [this] {
        m_limitReached = true;
    });
    connect(&session.clock(), &Clock::tick, this, &PictureTaker::check);
}

bool PictureTaker::isDue() const
{
    const Source::State state = m_session.source().state();
    return m_limitReached || state == Source::State::Finished || state == Source::State::Failed;
}

void PictureTaker::check()
{
    const double now = m_session.clock().seconds();
    if (!isDue()) {
        const double silentSince = std::max(m_session.lastArrival(), m_startedAt);
        const EnglishTexts english; // of what the terminal shows
        if (now - silentSince > patience)
            finish(ExitSourceLost,
                   tr("%1: no data for %2 s. %3")
                       .arg(m_session.source().description(),
                            QString::number(patience),
                            m_session.source().remedy()));
        return;
    }
    if (m_dueSince < 0.0)
        m_dueSince = now;
    m_session.clock().stayAwake(); // a tick each turn
    const double waited = now - m_dueSince;
    ++m_turns;
    const bool failed = m_session.statistics().readings() == 0;
    if (waited < settlingTime || m_turns < settlingTurns)
        return;
    if (m_window.displays().hasDrawn())
        take();
    else if (failed || (waited > drawingPatience && m_turns > drawingTurns))
        giveUp();
}

void PictureTaker::take()
{
    QString error;
    const bool saved = PictureExport::save(Corvale_Qt::DisplayPicture(&m_window), m_file, &error);
    finish(saved ? ExitGood : ExitOutputFailed, error);
}

void PictureTaker::giveUp()
{
    const EnglishTexts english; // of what the terminal shows
    const Source &source = m_session.source();
    if (source.state() == Source::State::Failed)
        finish(ExitSourceLost,
               QStringLiteral("%1. %2").arg(source.loggedStateText(), source.remedy()));
    else
        finish(ExitBadData,
               tr("%1: there is nothing to draw in its last reading; choose another display with "
                  "--view, or another moment with --after")
                   .arg(source.description()));
}

void PictureTaker::finish(ExitCode code, const QString &text)
{
    m_session.clock().disconnect(this);
    Q_EMIT done(code, text);
}

} // namespace Monitor
