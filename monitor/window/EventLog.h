// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/session/FloodGate.h"
#include "monitor/sources/Source.h"
#include <corvale_qt/widgets/RVXLogBrowser.h>

namespace Monitor {

class Session;

//! The events of a session with their times. It lists only a few bad lines and changes of state per second.
class EventLog : public Corvale_Qt::RVXLogBrowser
{
    Q_OBJECT

public:
    explicit EventLog(Session &session, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void adoptPalette();
    void noteStart(const StreamHeader &header);
    void noteAssumptions(const StreamHeader &header);
    void write(const QString &text);
    void noteRefused(const RefusedLine &line);
    void noteState(Source::State state, const QString &text);
    void tellHeldBack();

    Session &m_session;
    FloodGate m_refused;
    FloodGate m_states;
};

} // namespace Monitor
