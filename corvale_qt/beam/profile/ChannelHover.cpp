// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/ChannelHover_p.h"
#include "corvale_qt/beam/profile/SpectrogramPlot_p.h"

#include <qwt_text.h>

namespace Corvale_Qt {

ChannelHover::ChannelHover(SpectrogramPlot *plot)
    : QwtPlotPicker(plot->canvas())
    , m_plot(plot)
{
    setTrackerMode(AlwaysOn);
    setTrackerPen(QPen(Qt::white));
}

ChannelHover::~ChannelHover() = default;

QwtText ChannelHover::trackerTextF(const QPointF &position) const
{
    QwtText text(m_plot->hoverText(position), QwtText::PlainText);
    text.setColor(Qt::white);
    text.setBackgroundBrush(QColor(0, 0, 0, 200));
    return text;
}

} // namespace Corvale_Qt
