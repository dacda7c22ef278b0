// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/TimeAxisActions.h"

#include "monitor/session/Session.h"
#include <corvale_qt/scope/RVXScope.h>

#include <QAction>
#include <QMenu>

namespace Monitor {

using namespace Corvale_Qt;

TimeAxisActions::TimeAxisActions(Session &session, RVXScope &scope, QMenu *menu)
    : QObject(menu)
    , m_session(session)
    , m_scope(scope)
    , m_actions(this)
{
    QMenu *axis = menu->addMenu(tr("Time &axis"));
    axis->setObjectName(QStringLiteral("timeAxis"));
    axis->setToolTipsVisible(true);
    const auto add = [&](const char *name, const QString &text, const QString &toolTip) {
        QAction *action = axis->addAction(text);
        action->setObjectName(QLatin1String(name));
        action->setCheckable(true);
        action->setToolTip(toolTip);
        m_actions.addAction(action);
    };
    add("auto",
        tr("&Automatic"),
        tr("Local time where the source tells the moment of its readings, otherwise seconds."));
    add("seconds", tr("&Seconds"), tr("The times as the source gives them."));
    add("relative", tr("&Relative"), tr("The time from the newest reading."));
    add("local", tr("&Local time"), tr("Date and time in the time zone of this computer."));
    add("utc", tr("&UTC"), tr("Date and time in UTC."));
    choose(QStringLiteral("auto"));
    connect(&m_actions, &QActionGroup::triggered, this, [this](QAction *action) {
        apply();
        Q_EMIT chosen(action->objectName());
    });
    connect(&session, &Session::streamStarted, this, &TimeAxisActions::beginStream);
    connect(&session.model(),
            &QAbstractItemModel::rowsInserted,
            this,
            &TimeAxisActions::lookAtFirstReading);
    apply();
}

QString TimeAxisActions::choice() const
{
    return m_actions.checkedAction()->objectName();
}

void TimeAxisActions::choose(const QString &name)
{
    const QList<QAction *> actions = m_actions.actions();
    for (QAction *action : actions) {
        if (action->objectName() == name)
            action->setChecked(true);
    }
    apply();
}

void TimeAxisActions::beginStream(const StreamHeader &header)
{
    m_hasTime = !header.isList();
    m_hasClock = m_hasTime && header.startTime.isValid();
    m_waitsForReading = m_hasTime && !m_hasClock;
    m_scope.setTimeOrigin(header.startTime);
    apply();
}

void TimeAxisActions::lookAtFirstReading()
{
    if (!m_waitsForReading)
        return;
    m_waitsForReading = false;
    m_hasClock = StreamHeader::countsFrom1970(m_session.model().doubleData(1, 0));
    apply();
}

void TimeAxisActions::setArrivalOrigin(const QDateTime &origin)
{
    if (m_session.model().header().startTime.isValid() || !m_hasTime)
        return;
    m_waitsForReading = false;
    m_hasClock = origin.isValid();
    m_scope.setTimeOrigin(origin);
    apply();
}

void TimeAxisActions::apply()
{
    const QList<QAction *> actions = m_actions.actions();
    for (QAction *action : actions) {
        const QString name = action->objectName();
        const bool needsClock = name == QLatin1String("local") || name == QLatin1String("utc");
        action->setEnabled(m_hasTime && (m_hasClock || !needsClock));
    }
    const QString name = choice();
    RVXScope::TimeAxis axis = RVXScope::Seconds;
    if (m_hasTime && name == QLatin1String("relative"))
        axis = RVXScope::RelativeToNow;
    else if (m_hasClock && name == QLatin1String("utc"))
        axis = RVXScope::Utc;
    else if (m_hasClock && name != QLatin1String("seconds"))
        axis = RVXScope::LocalTime;
    m_scope.setTimeAxis(axis);
}

} // namespace Monitor
