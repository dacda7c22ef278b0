// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/MeasureMenu.h"

#include "monitor/core/Text.h"
#include "monitor/session/Session.h"
#include "monitor/window/Baseline.h"
#include "monitor/window/ComputedAction.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/LimitActions.h"
#include "monitor/window/Symbols.h"
#include "monitor/window/TriggerAction.h"
#include "monitor/window/WindowSettings.h"
#include <corvale_qt/scope/RVXScope.h>

#include <QActionGroup>

namespace Monitor {

using Corvale_Qt::RVXScope;

MeasureMenu::MeasureMenu(Session &session,
                         DisplayTabs &displays,
                         WindowSettings &settings,
                         QWidget *window)
    : QMenu(tr("&Measure"), window)
    , m_session(session)
    , m_displays(displays)
{
    addBaseline();
    addSeparator();
    addAverages();
    addMarkers();
    addAction(new TriggerAction(session, displays, window));
    addAction(new ComputedAction(session, settings, window));
    addSeparator();
    new LimitActions(session, displays, settings, addMenu(tr("&Limits")), window);
    connect(displays.baseline(), &Baseline::changed, this, &MeasureMenu::refresh);
    connect(displays.scope(), &RVXScope::averagingChanged, this, &MeasureMenu::refresh);
    connect(displays.scope(), &RVXScope::markersEnabledChanged, this, &MeasureMenu::refresh);
    connect(this, &QMenu::aboutToShow, this, &MeasureMenu::refresh);
    refresh();
}

void MeasureMenu::addBaseline()
{
    Baseline *baseline = m_displays.baseline();
    m_zero = addAction(symbol(QStringLiteral("zero")), tr("&Zero"), baseline, &Baseline::takeZero);
    m_zero->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_0));
    m_zero->setObjectName(QStringLiteral("zero"));
    m_zero->setToolTip(tr("Subtracts the newest reading of each channel from what is shown."));
    m_background = addAction(symbol(QStringLiteral("background")),
                             tr("&Background"),
                             baseline,
                             &Baseline::takeBackground);
    m_background->setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_B));
    m_background->setObjectName(QStringLiteral("background"));
    m_background->setToolTip(Text::counted(
        "Subtracts the mean of the last %n reading(s) of each channel from what is shown.",
        nullptr,
        Baseline::backgroundLength));
    m_remove = addAction(tr("&Remove zero and background"), baseline, &Baseline::remove);
    m_remove->setObjectName(QStringLiteral("removeZero"));
    setToolTipsVisible(true);
}

void MeasureMenu::addAverages()
{
    QMenu *averages = addMenu(tr("&Average of the scope"));
    m_averages = new QActionGroup(this);
    const auto add = [&](const QString &text, int length) {
        QAction *action = averages->addAction(text);
        action->setCheckable(true);
        action->setData(length);
        m_averages->addAction(action);
    };
    add(tr("&None"), 1);
    for (const int length : {10, 100, 1000})
        add(Text::counted("%n reading(s)", nullptr, length), length);
    connect(m_averages, &QActionGroup::triggered, this, [this](QAction *action) {
        m_displays.scope()->setAveraging(action->data().toInt());
    });
}

void MeasureMenu::addMarkers()
{
    m_markers = addAction(tr("&Markers"));
    m_markers->setObjectName(QStringLiteral("markers"));
    m_markers->setCheckable(true);
    m_markers->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_M));
    m_markers->setToolTip(
        tr("Two clicks on the scope place markers; the numbers between them stand beside it."));
    connect(m_markers, &QAction::toggled, m_displays.scope(), &RVXScope::setMarkersEnabled);
}

void MeasureMenu::refresh()
{
    const bool hasReadings = m_session.model().rowCount() > 1;
    m_remove->setEnabled(m_displays.baseline()->kind() != Baseline::Kind::None);
    m_markers->setChecked(m_displays.scope()->areMarkersEnabled());
    const int averaging = m_displays.scope()->averaging();
    for (QAction *action : m_averages->actions())
        action->setChecked(action->data().toInt() == averaging);
    // A disabled action loses its key, so what has no effect without readings stays enabled while the menu is closed.
    const bool open = isVisible();
    m_zero->setEnabled(hasReadings || !open);
    m_background->setEnabled(hasReadings || !open);
}

} // namespace Monitor
