// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QColor>
#include <QIcon>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <QWidget>

class QTabWidget;

namespace Corvale_Qt {

//! The properties of a tab, without its page.
struct TabLook
{
    QString text;
    QIcon icon;
    QString toolTip;
    QString whatsThis;
    QString accessibleName;
    QColor textColor;
    QVariant data;
    bool isEnabled = true;
    bool isVisible = true;
    //! Buttons of the tab, owned by the tab bar or by the owner given to takeButtons().
    QPointer<QWidget> leftButton;
    QPointer<QWidget> rightButton;

    //! Moves the buttons, hidden, to \a owner, since they would be deleted with the tab.
    void takeButtons(QTabWidget &tabs, int index, QWidget *owner) const;
    //! Gives tab \a index these properties and the buttons.
    void apply(QTabWidget &tabs, int index) const;
};

//! Returns the properties of tab \a index.
TabLook tabLook(const QTabWidget &tabs, int index);

} // namespace Corvale_Qt
