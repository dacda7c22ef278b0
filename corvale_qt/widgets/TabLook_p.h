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

//! What a tab has beside its page.
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
    //! Owned by the tab bar, or by the widget they were taken to.
    QPointer<QWidget> leftButton;
    QPointer<QWidget> rightButton;

    //! Gives the buttons, hidden, to \a owner: with the tab they would be deleted.
    void takeButtons(QTabWidget &tabs, int index, QWidget *owner) const;
    //! Makes tab \a index look so, with the buttons.
    void apply(QTabWidget &tabs, int index) const;
};

TabLook tabLook(const QTabWidget &tabs, int index);

} // namespace Corvale_Qt
