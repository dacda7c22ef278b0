// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QPointer>

class QAction;
class QMainWindow;
class QToolBar;

namespace Monitor {

class Session;

//! Keeps a tape deck below a window while the session plays a file, and takes it away with that file.
class TapeBar : public QObject
{
    Q_OBJECT

public:
    TapeBar(Session &session, QMainWindow *window);

    //! Returns the menu entry that shows and hides the deck; it is disabled while there is none.
    QAction *action() const { return m_action; }

private:
    void openTape();
    void closeTape();

    Session &m_session;
    QMainWindow *m_window;
    QAction *m_action;
    QPointer<QToolBar> m_bar; //!< null while no file is played
};

} // namespace Monitor
