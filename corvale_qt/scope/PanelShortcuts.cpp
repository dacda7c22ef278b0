// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/PanelShortcuts_p.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

#include <algorithm>

namespace Corvale_Qt {

namespace {

bool isWithControl(const QKeyEvent &event)
{
    // Some keyboards need Shift for a digit; on the others, Shift and the digit's key make another key.
    const bool isDigit = event.key() >= Qt::Key_0 && event.key() <= Qt::Key_9;
    const Qt::KeyboardModifiers ignored =
        isDigit ? Qt::KeypadModifier | Qt::ShiftModifier : Qt::KeypadModifier;
    return (event.modifiers() & ~ignored) == Qt::ControlModifier;
}

} // namespace

PanelShortcuts::PanelShortcuts(QWidget *panel)
    : QObject(panel)
    , m_panel(panel)
{
    panel->installEventFilter(this);
}

void PanelShortcuts::add(Qt::Key key, QAbstractButton *button)
{
    m_shortcuts.append({key, button});
}

bool PanelShortcuts::eventFilter(QObject *, QEvent *event)
{
    // Both events are sent to the control that has the focus first, and then to its parents up to the panel.
    if (event->type() == QEvent::ShortcutOverride)
        return claim(static_cast<QKeyEvent &>(*event));
    if (event->type() == QEvent::KeyPress)
        return press(static_cast<QKeyEvent &>(*event));
    return false;
}

QAbstractButton *PanelShortcuts::buttonFor(const QKeyEvent &event) const
{
    const auto found =
        std::find_if(m_shortcuts.begin(), m_shortcuts.end(), [&](const Shortcut &shortcut) {
            return shortcut.key == event.key() && isWithControl(event);
        });
    if (found == m_shortcuts.end() || found->button->isHidden() || !found->button->isEnabled())
        return nullptr;
    return found->button;
}

bool PanelShortcuts::claim(QKeyEvent &event)
{
    if (!buttonFor(event))
        return false;
    event.accept();
    QWidget *focus = QApplication::focusWidget();
    if (focus && focus != m_panel && m_panel->isAncestorOf(focus)) {
        focus->installEventFilter(this);
        m_receiver = focus;
    }
    return true;
}

bool PanelShortcuts::press(const QKeyEvent &event)
{
    if (m_receiver)
        m_receiver->removeEventFilter(this);
    m_receiver = nullptr;
    QAbstractButton *button = buttonFor(event);
    if (!button)
        return false;
    if (!event.isAutoRepeat())
        button->click(); // may delete the panel
    return true;
}

} // namespace Corvale_Qt
