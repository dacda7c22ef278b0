// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/session/FloodGate.h"
#include "monitor/sources/Source.h"

namespace Monitor {

class Clock;
class Session;

//! What happens in a session, as lines for the log. There are only a few bad lines and changes of state per second.
class SessionLines : public QObject
{
    Q_OBJECT

public:
    explicit SessionLines(Session &session, QObject *parent = nullptr);

Q_SIGNALS:
    void written(const QString &line);

private:
    void noteStart(const StreamHeader &header);
    void noteAssumptions(const StreamHeader &header);
    void noteRefused(const RefusedLine &line);
    void noteState(Source::State state, const QString &text);
    void tellHeldBack();

    Clock &m_clock;
    FloodGate m_refused;
    FloodGate m_states;
};

} // namespace Monitor
