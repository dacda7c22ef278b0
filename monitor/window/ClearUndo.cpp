// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ClearUndo.h"

#include "monitor/core/Clock.h"
#include "monitor/core/Text.h"
#include "monitor/session/Session.h"
#include "monitor/window/NoticeLine.h"
#include <corvale_qt/scope/RVXScope.h>

#include <QAction>

namespace Monitor {

using Corvale_Qt::RVXScope;

ClearUndo::ClearUndo(Session &session, RVXScope &scope, NoticeLine &notice, QObject *parent)
    : QObject(parent)
    , m_session(session)
    , m_scope(scope)
    , m_notice(notice)
    , m_action(new QAction(tr("&Undo clear"), this))
    , m_period(scope.period())
{
    m_action->setObjectName(QStringLiteral("undoClear"));
    m_action->setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Z));
    m_action->setEnabled(false);
    notice.setDismissible(tr("Bring back"));
    connect(m_action, &QAction::triggered, this, &ClearUndo::undo);
    connect(&notice, &NoticeLine::dismissed, this, &ClearUndo::undo);
    connect(&scope, &RVXScope::aboutToClear, this, &ClearUndo::keep);
    connect(&session, &Session::streamStarted, this, &ClearUndo::forget);
    connect(&session, &Session::sourceReplaced, this, &ClearUndo::forget);
    connect(&session.clock(), &Clock::tick, this, &ClearUndo::expire);
}

void ClearUndo::keep()
{
    MultichannelDeviceModel &model = m_session.model();
    model.putReadingsBefore(m_kept); // an operator who clears twice gets all of it back
    model.showWaiting();
    const int rows = model.rowCount() - 1;
    m_kept = model.takeReadings();
    m_period = m_scope.period();
    m_keptAt = m_session.clock().seconds();
    m_action->setEnabled(true);
    const QString text =
        Text::counted("%n reading(s) was/were cleared from the displays. For a minute "
                      "it/they can be brought back (%1).",
                      nullptr,
                      rows);
    m_notice.tell(text.arg(m_action->shortcut().toString(QKeySequence::NativeText)),
                  NoticeLine::Kind::Hint);
}

void ClearUndo::expire()
{
    if (m_kept && m_session.clock().seconds() - m_keptAt >= patience)
        forget();
}

void ClearUndo::undo()
{
    if (!m_kept)
        return;
    m_scope.setPeriod(m_period);
    m_session.model().putReadingsBefore(m_kept);
    forget();
}

void ClearUndo::forget()
{
    m_kept.reset();
    m_action->setEnabled(false);
    m_notice.tell(QString(), NoticeLine::Kind::Hint);
}

} // namespace Monitor
