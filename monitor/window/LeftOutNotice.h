// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LoggedText.h"
#include "monitor/window/NoticeLine.h"

namespace Monitor {

class DisplayTabs;
class Session;

//! A notice while the displays lack a part of the readings: columns beyond those that are read, or cells without a wire.
class LeftOutNotice : public NoticeLine
{
    Q_OBJECT

public:
    LeftOutNotice(Session &session, DisplayTabs &displays, QWidget *parent = nullptr);

private:
    void refresh();
    void noteInDisplays(const LoggedText &text);

    Session &m_session;
    LoggedText m_inDisplays;
};

} // namespace Monitor
