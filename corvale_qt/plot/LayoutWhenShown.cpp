// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/LayoutWhenShown_p.h"

#include <qwt_plot.h>

#include <QEvent>

namespace Corvale_Qt {

LayoutWhenShown::LayoutWhenShown(QwtPlot *plot)
    : QObject(plot)
    , m_plot(plot)
{
    plot->installEventFilter(this);
}

LayoutWhenShown::~LayoutWhenShown() = default;

bool LayoutWhenShown::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_plot && event->type() == QEvent::Show)
        m_plot->updateLayout();
    return QObject::eventFilter(watched, event);
}

} // namespace Corvale_Qt
