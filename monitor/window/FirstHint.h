// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/window/NoticeLine.h"

namespace Monitor {

class Session;
class WindowSettings;

//! A line that names the source and says how to choose another one, until the operator dismisses it for good.
class FirstHint : public NoticeLine
{
    Q_OBJECT

public:
    //! Session and settings must outlive the line.
    FirstHint(Session &session, WindowSettings &settings, QWidget *parent = nullptr);

private:
    void refresh();

    const Session &m_session;
    const WindowSettings &m_settings;
};

} // namespace Monitor
