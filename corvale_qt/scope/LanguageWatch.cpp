// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/LanguageWatch_p.h"

#include <QEvent>
#include <QWidget>

namespace Corvale_Qt {

LanguageWatch::LanguageWatch(QWidget *widget)
    : QObject(widget)
{
    widget->installEventFilter(this);
}

bool LanguageWatch::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        Q_EMIT changed();
    return false;
}

} // namespace Corvale_Qt
