// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/Source.h"

#include "monitor/core/Clock.h"
#include "monitor/core/Logging.h"

namespace Monitor {

Source::Source(Clock &clock, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
{
    qRegisterMetaType<Monitor::StreamHeader>();
    qRegisterMetaType<Monitor::ReadingBlock>();
    qRegisterMetaType<Monitor::RefusedLine>();
    qRegisterMetaType<Monitor::Source::State>();
}

Source::~Source() = default;

LineCounts Source::counts() const
{
    return {};
}

void Source::holdAfter(double) { }

void Source::setReconnecting(bool) { }

bool Source::readsFrom(const QString &) const
{
    return false;
}

QString Source::emptyReason() const
{
    return {};
}

QString Source::remedy() const
{
    return {};
}

void Source::setState(State state, const LoggedText &text)
{
    if (state != State::Retrying) // a source that is missing for days lets the clock rest
        m_clock.stayAwake(); // what follows a change is to follow at once
    if (state == m_state && text == m_stateText)
        return;
    m_state = state;
    m_stateText = text;
    qCDebug(monitorLog) << description() << state << text.logged();
    Q_EMIT stateChanged(state, text.shown());
}

} // namespace Monitor
