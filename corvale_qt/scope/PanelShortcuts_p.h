// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QObject>
#include <QPointer>
#include <QVector>

class QAbstractButton;
class QKeyEvent;
class QWidget;

namespace Corvale_Qt {

/*! Keys that press buttons of a panel while the focus is in it.

    These are not QShortcuts, because a host's action with the same keys would make both ambiguous, and neither would
    work. Instead the panel claims the key before shortcuts are looked up, and only while the button is visible and
    enabled; otherwise the host gets the key. A control in the panel that uses the key itself takes precedence. */
class PanelShortcuts : public QObject
{
public:
    //! Watches the keys of \a panel, which becomes the parent.
    explicit PanelShortcuts(QWidget *panel);

    //! Makes Ctrl+\a key press \a button, a child of the panel.
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
    //! The control that receives a claimed key press first; the filter keeps it from handling the key itself.
    QPointer<QWidget> m_receiver;
};

} // namespace Corvale_Qt
