// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/StateBadge.h"

#include "monitor/window/Look.h"

#include <QAccessible>
#include <QEvent>

namespace Monitor {

StateBadge::StateBadge(QWidget *numbers)
    : QLabel(numbers)
{
    setObjectName(QStringLiteral("stateBadge"));
    setTextFormat(Qt::PlainText);
    setMargin(Look::gap / 2);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    Look::dress(this, Look::State::Processed);
    numbers->installEventFilter(this);
    hide();
}

void StateBadge::tell(const QString &state)
{
    const bool isNew = state != text() && !state.isEmpty();
    setText(state);
    setVisible(!state.isEmpty());
    if (isNew) { // a screen reader says it at once, wherever the keyboard is
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
    place();
}

bool StateBadge::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        place();
    return false;
}

void StateBadge::place()
{
    adjustSize();
    move(parentWidget()->width() - width() - Look::gap, Look::gap / 2);
    raise();
}

} // namespace Monitor
