// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/TriggerAction.h"

#include "monitor/session/Session.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/TriggerDialog.h"
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>

namespace Monitor {

TriggerAction::TriggerAction(Session &session, DisplayTabs &displays, QWidget *window)
    : QAction(tr("&Trigger..."), window)
    , m_displays(displays)
    , m_dialog(new TriggerDialog(*displays.scope()->plotView(), window))
{
    setObjectName(QStringLiteral("trigger"));
    setShortcut(QKeySequence(Qt::Key_F7));
    setShortcutContext(Qt::ApplicationShortcut);
    connect(this, &QAction::triggered, this, &TriggerAction::edit);
    connect(&session, &Session::streamStarted, m_dialog, &TriggerDialog::setHeader);
    m_dialog->setHeader(session.model().header());
}

void TriggerAction::edit()
{
    m_displays.showDisplay(QStringLiteral("scope"));
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

} // namespace Monitor
