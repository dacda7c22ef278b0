// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/MemberNotices.h"

#include "monitor/core/Text.h"
#include "monitor/window/MonitorStatusBar.h"

#include <cmath>

namespace Monitor {

namespace {

using NoticeState = Look::State;

//! Returns the state of the connection; nothing while readings come.
std::optional<StatusField::Part> connectionNotice(const Session &session)
{
    const Source &source = session.source();
    switch (source.state()) {
    case Source::State::Failed:
    case Source::State::Retrying:
        return StatusField::Part{Text::tr("LOST"), source.stateText(), NoticeState::Trouble};
    case Source::State::Connecting:
        return StatusField::Part{Text::tr("CONNECTING"), source.stateText(), NoticeState::Waiting};
    case Source::State::Finished:
        return StatusField::Part{Text::tr("END"), source.stateText(), NoticeState::Ended};
    default:
        break;
    }
    if (session.isStale())
        return StatusField::Part{Text::tr("STALE"),
                                 Text::tr("no reading has come for three of the usual intervals; "
                                          "check the beam and the instrument"),
                                 NoticeState::Trouble};
    return std::nullopt;
}

} // namespace

std::optional<StatusField::Part> clockNotice(const StreamClock &clock)
{
    if (!clock.origin() || clock.isInStep())
        return std::nullopt;
    return StatusField::Part{Text::tr("CLOCK %1 s").arg(clock.lead(), 0, 'f', 1),
                             Text::tr("the clock of the source differs from this computer's by "
                                      "this much, so its chart shows another time than the others"),
                             NoticeState::Waiting};
}

QVector<StatusField::Part> memberNotices(const Companions::Member &member)
{
    const Session &session = *member.session;
    QVector<StatusField::Part> notices = MonitorStatusBar::alarmNotice(session);
    if (const auto connection = connectionNotice(session))
        notices.append(*connection);
    const Recorder *recorder = session.recorder();
    if (recorder && !recorder->error().isEmpty())
        notices.append(
            {Text::tr("RECORDING FAILS"), recorder->error().shown(), NoticeState::Trouble});
    if (member.isLeftOutOfRecording())
        notices.append({Text::tr("NOT RECORDED"),
                        Text::tr("the file of this source could not be begun; the log says why. "
                                 "Stop the recording and begin another one"),
                        NoticeState::Trouble});
    if (const auto clock = clockNotice(*member.clock))
        notices.append(*clock);
    if (session.source().isSimulated())
        notices.append(
            {Text::tr("SIMULATED"), Text::tr("no instrument is read"), NoticeState::Simulated});
    return notices;
}

} // namespace Monitor
