// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QPointer>

class QAction;
class QMainWindow;
class QToolBar;

namespace Monitor {

class Companions;
class Session;

/*! Keeps a tape deck below a window while the session plays a file, and takes it away with that file. The deck plays the recordings
    beside that file as well. */
class TapeBar : public QObject
{
    Q_OBJECT

public:
    //! \a members are the session and its companions.
    TapeBar(Session &session, const Companions &members, QMainWindow *window);

    //! Returns the menu entry that shows and hides the deck; it is disabled while there is none.
    QAction *action() const { return m_action; }

private:
    void openTape();
    void closeTape();
    void followMembers();

    const Companions &m_members;
    QMainWindow *m_window;
    QAction *m_action;
    std::size_t m_played = 0; //!< how many members the deck was made for
    QPointer<QToolBar> m_bar; //!< null while no file is played
};

} // namespace Monitor
