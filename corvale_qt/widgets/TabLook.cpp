// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/TabLook_p.h"

#include <QTabBar>
#include <QTabWidget>

namespace Corvale_Qt {

namespace {

void takeButton(QTabBar &bar, int index, QTabBar::ButtonPosition side, QWidget *owner)
{
    if (QWidget *button = bar.tabButton(index, side)) {
        bar.setTabButton(index, side, nullptr);
        button->setParent(owner);
    }
}

void putButton(QTabBar &bar, int index, QTabBar::ButtonPosition side, QWidget *button)
{
    if (!button)
        return;
    // A closable tab is created with a new close button.
    QWidget *other = bar.tabButton(index, side);
    bar.setTabButton(index, side, button);
    if (other)
        other->deleteLater();
}

} // namespace

TabLook tabLook(const QTabWidget &tabs, int index)
{
    const QTabBar &bar = *tabs.tabBar();
    return {tabs.tabText(index),
            tabs.tabIcon(index),
            tabs.tabToolTip(index),
            tabs.tabWhatsThis(index),
            bar.accessibleTabName(index),
            bar.tabTextColor(index),
            bar.tabData(index),
            tabs.isTabEnabled(index),
            tabs.isTabVisible(index),
            bar.tabButton(index, QTabBar::LeftSide),
            bar.tabButton(index, QTabBar::RightSide)};
}

void TabLook::takeButtons(QTabWidget &tabs, int index, QWidget *owner) const
{
    takeButton(*tabs.tabBar(), index, QTabBar::LeftSide, owner);
    takeButton(*tabs.tabBar(), index, QTabBar::RightSide, owner);
}

void TabLook::apply(QTabWidget &tabs, int index) const
{
    QTabBar &bar = *tabs.tabBar();
    tabs.setTabText(index, text);
    tabs.setTabIcon(index, icon);
    tabs.setTabToolTip(index, toolTip);
    tabs.setTabWhatsThis(index, whatsThis);
    bar.setAccessibleTabName(index, accessibleName);
    bar.setTabTextColor(index, textColor);
    bar.setTabData(index, data);
    tabs.setTabEnabled(index, isEnabled);
    tabs.setTabVisible(index, isVisible);
    putButton(bar, index, QTabBar::LeftSide, leftButton);
    putButton(bar, index, QTabBar::RightSide, rightButton);
}

} // namespace Corvale_Qt
