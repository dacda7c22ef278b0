// SPDX-License-Identifier: LGPL-2.1-or-later
/* +------------------------------------------------------------------+
   | Not part of the interface: this header may change in any version. |
   +------------------------------------------------------------------+ */
#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

class QAbstractButton;
class QKeyEvent;
class QWidget;

namespace Corvale_Qt {

/*! Keys that press buttons of a panel while the focus is in it.

    They are no QShortcuts: a host's action with the same keys would be ambiguous then, and neither would work. Instead
    the panel claims the key before shortcuts are looked up, and only while the button is neither hidden nor disabled;
    at all other times the key is the host's. A control in the panel that wants the key itself comes first. */
class PanelShortcuts : public QObject
{
public:
    explicit PanelShortcuts(QWidget *panel);

    //! Has Ctrl and \a key press \a button.
    void add(Qt::Key key, QAbstractButton *button);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAbstractButton *buttonFor(const QKeyEvent &event) const;
    bool claim(QKeyEvent &event);
    bool press(const QKeyEvent &event);

    struct Shortcut
    {
        int key;
        QAbstractButton *button;
    };

    QWidget *const m_panel;
    QVector<Shortcut> m_shortcuts;
    //! The control that a claimed key press goes to first; it might do something of its own with it.
    QPointer<QWidget> m_receiver;
};

} // namespace Corvale_Qt
