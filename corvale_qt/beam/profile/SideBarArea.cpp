// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/SideBarArea_p.h"

#include <QEvent>
#include <QScrollBar>

namespace Corvale_Qt {

SideBarArea::SideBarArea(QWidget *parent)
    : QScrollArea(parent)
{
    setFocusPolicy(Qt::NoFocus); // its controls have it, and Qt scrolls to them
}

SideBarArea::~SideBarArea() = default;

QSize SideBarArea::sizeHint() const
{
    QSize hint = QScrollArea::sizeHint();
    if (widget()) {
        const int bar = verticalScrollBar()->sizeHint().width();
        hint.setWidth(widget()->minimumSizeHint().width() + bar + 2 * frameWidth());
        hint.setHeight(widget()->sizeHint().height() + 2 * frameWidth());
    }
    return hint;
}

QSize SideBarArea::minimumSizeHint() const
{
    return {sizeHint().width(), QScrollArea::minimumSizeHint().height()};
}

bool SideBarArea::eventFilter(QObject *watched, QEvent *event)
{
    // The base class installs this filter on its contents, whose size hint has changed.
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

} // namespace Corvale_Qt
