// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/LabelRoom_p.h"

#include <QEvent>
#include <QLabel>
#include <QLayout>

#include <utility>

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
    if (event->type() == QEvent::LayoutRequest) {
        if (m_room != m_room.expandedTo(m_label->sizeHint()))
            reserve(m_room.width());
        fitLabel();
    }
    return QWidget::event(event);
}

void LabelRoom::resizeEvent(QResizeEvent *)
{
    fitLabel();
}

void LabelRoom::fitLabel()
{
    m_label->setGeometry(rect());
    const bool isEnough = width() >= m_label->sizeHint().width();
    if (std::exchange(m_isEnough, isEnough) != isEnough)
        m_label->setVisible(isEnough);
}

} // namespace Corvale_Qt
