// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/TapeBar.h"

#include "monitor/session/Companions.h"
#include "monitor/tape/Tape.h"
#include "monitor/window/SessionTape.h"
#include "monitor/window/TapePanel.h"

#include <QAction>
#include <QMainWindow>
#include <QToolBar>

namespace Monitor {

TapeBar::TapeBar(Session &session, const Companions &members, QMainWindow *window)
    : QObject(window)
    , m_members(members)
    , m_window(window)
    , m_action(new QAction(tr("Tape &deck"), this))
{
    m_action->setObjectName(QStringLiteral("showTape"));
    m_action->setCheckable(true);
    m_action->setChecked(true);
    connect(m_action, &QAction::toggled, this, [this](bool on) {
        if (m_bar)
            m_bar->setVisible(on);
    });
    // The deck works on the source, so that it must go first.
    connect(&session, &Session::sourceClosing, this, &TapeBar::closeTape);
    connect(&session, &Session::sourceReplaced, this, &TapeBar::openTape);
    connect(&members, &Companions::closing, this, &TapeBar::closeTape);
    connect(&members, &Companions::changed, this, &TapeBar::followMembers);
    openTape();
}

//! Makes a deck for other members.
void TapeBar::followMembers()
{
    if (m_members.members().size() == m_played)
        return;
    closeTape();
    openTape();
}

void TapeBar::openTape()
{
    m_played = m_members.members().size();
    std::unique_ptr<Tape> tape = tapeOf(m_members);
    m_action->setEnabled(tape != nullptr);
    if (!tape)
        return;
    m_bar = TapePanel::toolBarFor(std::move(tape), m_window);
    m_window->addToolBar(Qt::BottomToolBarArea, m_bar);
    m_bar->setVisible(m_action->isChecked());
    // A restored layout, or the menu of the window's edge, hides it as well.
    connect(m_bar->toggleViewAction(), &QAction::toggled, m_action, &QAction::setChecked);
}

void TapeBar::closeTape()
{
    if (m_bar)
        m_bar->toggleViewAction()->disconnect(m_action); // it goes, but stays wanted
    delete m_bar;
    m_played = 0;
}

} // namespace Monitor
