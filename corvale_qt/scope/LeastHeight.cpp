// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/LeastHeight_p.h"

#include <QAbstractScrollArea>
#include <QEvent>

namespace Corvale_Qt {

LeastHeight::LeastHeight(QAbstractScrollArea *area)
    : QObject(area)
    , m_area(area)
{
    area->viewport()->installEventFilter(this);
}

bool LeastHeight::eventFilter(QObject *, QEvent *event)
{
    // A scroll bar that comes or goes resizes the viewport.
    const bool mayChange =
        event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize;
    if (!mayChange || m_area->minimumSizeHint() == m_told)
        return false;
    m_told = m_area->minimumSizeHint();
    m_area->updateGeometry();
    return false;
}

} // namespace Corvale_Qt
