// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LoggedText.h"
#include "monitor/window/NoticeLine.h"

namespace Monitor {

class DisplayTabs;
class Session;

/*! A notice while the displays lack something that the stream or the operator has asked for: columns beyond those that are read,
    cells without a wire, or a detector, limits and computed channels that make no sense. */
class LeftOutNotice : public NoticeLine
{
    Q_OBJECT

public:
    LeftOutNotice(Session &session, DisplayTabs &displays, QWidget *parent = nullptr);

private:
    void refresh();
    void tellShortly(const QStringList &texts);
    void noteInDisplays(const LoggedText &text);

    Session &m_session;
    LoggedText m_inDisplays;
};

} // namespace Monitor
