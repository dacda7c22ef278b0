// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/LabelRoom_p.h"

#include <QEvent>
#include <QLabel>
#include <QLayout>

namespace Corvale_Qt {

LabelRoom::LabelRoom(QLabel *label)
    : QWidget(label->parentWidget())
    , m_label(label)
{
    setSizePolicy(label->sizePolicy());
    delete label->parentWidget()->layout()->replaceWidget(label, this);
    label->setParent(this);
    reserve(label->sizeHint().width());
}

void LabelRoom::reserve(int width)
{
    m_room = QSize(width, 0).expandedTo(m_label->sizeHint());
    updateGeometry();
}

bool LabelRoom::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest && m_room != m_room.expandedTo(m_label->sizeHint()))
        reserve(m_room.width());
    return QWidget::event(event);
}

void LabelRoom::resizeEvent(QResizeEvent *)
{
    m_label->setGeometry(rect());
}

} // namespace Corvale_Qt
