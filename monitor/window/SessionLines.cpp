// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/SessionLines.h"

#include "monitor/core/Clock.h"
#include "monitor/core/LoggedText.h"
#include "monitor/core/Text.h"
#include "monitor/readings/StreamDetector.h"
#include "monitor/session/Session.h"

namespace Monitor {

namespace {

constexpr int linesASecond = 5; // of each kind

} // namespace

SessionLines::SessionLines(Session &session, QObject *parent)
    : QObject(parent)
    , m_clock(session.clock())
    , m_refused(linesASecond)
    , m_states(linesASecond)
{
    connect(&session, &Session::noted, this, &SessionLines::written);
    connect(&session, &Session::streamStarted, this, &SessionLines::noteStart);
    connect(&session, &Session::lineRefused, this, &SessionLines::noteRefused);
    connect(&session, &Session::sourceStateChanged, this, [this, &session](Source::State state) {
        noteState(state, session.source().loggedStateText());
    });
    connect(&session.clock(), &Clock::tick, this, &SessionLines::tellHeldBack);
    connect(&session, &Session::staleChanged, this, [this, &session](bool stale) {
        Q_EMIT written(!stale ? tr("readings arrive again")
                           : session.source().isLive()
                           ? tr("WARNING the source is silent: the values shown are old. Check the "
                                "beam and the instrument")
                           : tr("WARNING the recording has a gap here: the values shown are from "
                                "before it"));
    });
}

void SessionLines::noteStart(const StreamHeader &header)
{
    const QString unit = header.readingUnit();
    const QString inUnit = unit.isEmpty() ? QString() : tr(", in %1").arg(unit);
    if (header.hasFrames())
        Q_EMIT written(tr("frames begin: %1%2").arg(header.detector.summary(), inUnit));
    else
        Q_EMIT written(
            tr("readings begin: %1, layout %2%3")
                .arg(Text::countedInEnglish("%n channel(s)", nullptr, header.channels.size()),
                     layoutName(header),
                     inUnit));
    noteAssumptions(header);
}

//! Says that the places of strips or pixels are not known, and how they can be stated.
void SessionLines::noteAssumptions(const StreamHeader &header)
{
    using Axis = Corvale_Qt::DetectorLayout::Axis;
    const Corvale_Qt::DetectorLayout shown = detectorOf(header);
    const auto isCounted = [&shown](Axis axis) {
        return shown.cells(axis) > 0 && shown.unit(axis).isEmpty();
    };
    if (isCounted(Axis::X) || isCounted(Axis::Y))
        Q_EMIT written(
            tr("positions are counted in cells: nothing says how far apart the cells are. Describe "
               "the detector in File > Settings > Readings, with --detector or in the stream"));
}

void SessionLines::noteRefused(const RefusedLine &line)
{
    tellHeldBack();
    if (!m_refused.admits(m_clock.seconds()))
        return;
    const auto text = LoggedText::of([&line] {
        return line.text();
    });
    Q_EMIT written(QStringLiteral("WARNING ") + text.logged());
}

//! Writes what the source says of its state, in English as all of the log.
void SessionLines::noteState(Source::State state, const QString &text)
{
    tellHeldBack();
    const bool bad = state == Source::State::Failed || state == Source::State::Retrying;
    if (!text.isEmpty() && m_states.admits(m_clock.seconds()))
        Q_EMIT written((bad ? QStringLiteral("ERROR ") : QString()) + text);
}

void SessionLines::tellHeldBack()
{
    const double now = m_clock.seconds();
    if (const qint64 lines = m_refused.takeHeldBack(now))
        Q_EMIT written(
            tr("WARNING not listed: %1; corvale-monitor --check FILE lists those of a file")
                .arg(Text::countedInEnglish("%n more bad line(s)", nullptr, lines)));
    if (const qint64 states = m_states.takeHeldBack(now))
        Q_EMIT written(
            tr("WARNING not listed: %1")
                .arg(Text::countedInEnglish("%n more connection change(s)", nullptr, states)));
}

} // namespace Monitor
