// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/LimitActions.h"

#include "monitor/core/Clock.h"
#include "monitor/session/Session.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/LimitsDialog.h"
#include "monitor/window/WindowSettings.h"
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>

#include <QAction>
#include <QApplication>
#include <QMenu>

#include <algorithm>
#include <limits>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

constexpr double soundInterval = 2.0; // s

} // namespace

LimitActions::LimitActions(Session &session,
                           DisplayTabs &displays,
                           WindowSettings &settings,
                           QMenu *menu,
                           QWidget *window)
    : QObject(window)
    , m_session(session)
    , m_displays(displays)
    , m_settings(settings)
    , m_window(window)
    , m_acknowledge(menu->addAction(tr("&Acknowledge alarms")))
    , m_soundAction(nullptr)
    , m_sound(&QApplication::beep)
    , m_soundedAt(-std::numeric_limits<double>::infinity())
{
    m_acknowledge->setObjectName(QStringLiteral("acknowledge"));
    m_acknowledge->setShortcut(QKeySequence(Qt::Key_F8));
    m_acknowledge->setShortcutContext(Qt::ApplicationShortcut);
    connect(m_acknowledge, &QAction::triggered, &session.alarms(), &Alarms::acknowledge);
    m_soundAction = menu->addAction(tr("Alarms make a &sound"));
    m_soundAction->setObjectName(QStringLiteral("alarmSound"));
    m_soundAction->setCheckable(true);
    m_soundAction->setChecked(settings.isAlarmSoundOn());
    connect(m_soundAction, &QAction::toggled, this, [this](bool on) {
        m_settings.setAlarmSoundOn(on);
        soundIfDue();
    });
    QAction *limits = menu->addAction(tr("&Limits..."), this, &LimitActions::edit);
    limits->setObjectName(QStringLiteral("limits"));
    limits->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_I));
    limits->setShortcutContext(Qt::ApplicationShortcut);

    session.setLimits(settings.limits());
    connect(&session, &Session::streamStarted, this, &LimitActions::showLines);
    connect(&session, &Session::limitsChanged, this, &LimitActions::showLines);
    connect(displays.scope(), &RVXScope::zeroedChanged, this, &LimitActions::showLines);
    connect(&session.alarms(), &Alarms::changed, this, &LimitActions::refresh);
    connect(&session.clock(), &Clock::tick, this, &LimitActions::soundIfDue);
    refresh();
}

void LimitActions::edit()
{
    LimitsDialog dialog(m_session.statistics().header(), m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    NamedLimits chosen = m_session.chosenLimits();
    const NamedLimits changed = dialog.changed();
    for (auto limits = changed.begin(); limits != changed.end(); ++limits)
        chosen.insert(limits.key(), limits.value());
    m_settings.setLimits(chosen);
    m_session.setLimits(chosen);
}

void LimitActions::watch(Session &session)
{
    m_watched.append(&session.alarms());
    connect(m_acknowledge, &QAction::triggered, &session.alarms(), &Alarms::acknowledge);
    connect(&session.alarms(), &Alarms::changed, this, &LimitActions::refresh);
    connect(&session.alarms(), &QObject::destroyed, this, [this] {
        m_watched.removeAll(nullptr);
        refresh();
    });
}

bool LimitActions::isUnacknowledged() const
{
    return m_session.alarms().isUnacknowledged()
        || std::any_of(m_watched.begin(), m_watched.end(), [](const auto &alarms) {
               return alarms && alarms->isUnacknowledged();
           });
}

void LimitActions::refresh()
{
    m_acknowledge->setEnabled(isUnacknowledged());
    soundIfDue();
}

void LimitActions::showLines()
{
    drawLimits(m_session.statistics().header(), *m_displays.scope());
}

void LimitActions::drawLimits(const StreamHeader &header, RVXScope &scope)
{
    const bool hasPlace = !scope.isZeroed();
    for (int i = 0; i < StreamHeader::maxChannels; ++i)
        scope.plotView()->setChannelLimits(i + 1, hasPlace ? header.limitsOf(i) : ChannelLimits());
}

void LimitActions::soundIfDue()
{
    if (!m_soundAction || !m_soundAction->isChecked() || !isUnacknowledged())
        return;
    const double now = m_session.clock().seconds();
    if (now - m_soundedAt < soundInterval)
        return;
    m_soundedAt = now;
    m_sound();
}

} // namespace Monitor
