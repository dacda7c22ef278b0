// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/StateBadge.h"

#include "monitor/window/Look.h"

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
    setText(state);
    setVisible(!state.isEmpty());
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
