// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/SourceNotice.h"

#include "monitor/core/Clock.h"
#include "monitor/core/Text.h"
#include "monitor/session/Session.h"

namespace Monitor {

namespace {

constexpr double noticeInterval = 0.25; // s
//! An instrument may be silent for this long before the notice appears.
constexpr double usualSilence = 2.0; // s

QString joined(const QString &text, const QString &remedy)
{
    return remedy.isEmpty() ? text : text + QStringLiteral(". ") + remedy;
}

} // namespace

SourceNotice::SourceNotice(Session &session, QWidget *parent)
    : NoticeLine(parent)
    , m_session(session)
    , m_since(session.clock().seconds())
{
    setObjectName(QStringLiteral("sourceNotice"));
    connect(&session.clock(), &Clock::tick, this, &SourceNotice::refreshIfDue);
    connect(&session, &Session::streamStarted, this, &SourceNotice::refresh);
    connect(&session, &Session::lineRefused, this, &SourceNotice::noteRefused);
    connect(&session, &Session::sourceStateChanged, this, &SourceNotice::beginWait);
    connect(&session, &Session::sourceReplaced, this, [this] {
        m_firstRefused.clear();
        beginWait();
    });
}

void SourceNotice::beginWait()
{
    m_since = m_session.clock().seconds();
    refresh();
}

void SourceNotice::noteRefused(const RefusedLine &line)
{
    if (m_firstRefused.isEmpty())
        m_firstRefused = line.phrase();
}

void SourceNotice::refreshIfDue()
{
    if (m_session.clock().seconds() - m_refreshedAt >= noticeInterval)
        refresh();
}

void SourceNotice::refresh()
{
    m_refreshedAt = m_session.clock().seconds();
    const Source &source = m_session.source();
    if (source.isNone()) {
        tell(joined(source.description(), source.remedy()), Kind::Hint);
        return;
    }
    switch (source.state()) {
    case Source::State::Failed:
        tell(joined(source.stateText(), source.remedy()), Kind::Trouble);
        return;
    case Source::State::Retrying:
        tell(joined(source.stateText(), source.remedy()), Kind::Waiting);
        return;
    default:
        tell(silenceText(), Kind::Waiting);
    }
}

//! Returns a text about a source that is open and has not delivered a reading; empty if there is nothing to say.
QString SourceNotice::silenceText() const
{
    const Source &source = m_session.source();
    const bool waiting = m_session.statistics().readings() == 0
        && (m_session.clock().seconds() - m_since > usualSilence
            || source.state() == Source::State::Finished);
    if (!waiting || source.state() == Source::State::Idle)
        return {};
    const qint64 bad = source.counts().bad();
    if (bad > 0)
        return Text::counted(
                   "%1: none of %n line(s) could be read; the first was %2. A line must be "
                   "t,v1,v2,... with decimal points.",
                   nullptr,
                   bad)
            .arg(source.description(), m_firstRefused);
    const QString why = source.emptyReason();
    if (source.state() == Source::State::Finished)
        return why.isEmpty() ? tr("%1 contains no readings.").arg(source.description())
                             : tr("%1 contains no readings: %2.").arg(source.description(), why);
    return joined(tr("%1: no reading has arrived yet").arg(source.description()), source.remedy());
}

} // namespace Monitor
