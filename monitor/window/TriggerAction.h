// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QAction>

namespace Monitor {

class DisplayTabs;
class Session;
class TriggerDialog;

//! A menu entry that shows the sweeps of the scope and the dialog for their trigger, which stays open beside them.
class TriggerAction : public QAction
{
    Q_OBJECT

public:
    //! \a window is the parent of the dialog.
    TriggerAction(Session &session, DisplayTabs &displays, QWidget *window);

    TriggerDialog *dialog() const { return m_dialog; }

private:
    void edit();

    DisplayTabs &m_displays;
    TriggerDialog *m_dialog;
};

} // namespace Monitor
