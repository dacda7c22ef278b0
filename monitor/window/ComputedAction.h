// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QAction>

namespace Monitor {

class Session;
class WindowSettings;

/*! A menu entry that edits the channels that are computed. They are kept in the settings, unless those of the command line are
    computed and were not edited. */
class ComputedAction : public QAction
{
    Q_OBJECT

public:
    //! Computes the channels that were kept, unless the session computes others. \a window is the parent of the dialog.
    ComputedAction(Session &session, WindowSettings &settings, QWidget *window);

private:
    void edit();

    Session &m_session;
    WindowSettings &m_settings;
    QWidget *m_window;
};

} // namespace Monitor
