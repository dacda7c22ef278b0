// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/TimeScaleDraw_p.h"

#include <qwt_scale_map.h>
#include <qwt_text.h>

#include <QPainter>

#include <limits>

namespace Corvale_Qt {

bool TimeScaleDraw::setTicks(const TimeTicks &ticks)
{
    const bool isOther = !m_hasTicks || ticks.labels != m_ticks.labels;
    m_hasTicks = true;
    m_ticks = ticks;
    // Labels may change while the ticks stay, and Qwt keeps the text of each tick.
    if (isOther)
        invalidateCache();
    return isOther;
}

void TimeScaleDraw::useNumbers()
{
    if (!m_hasTicks)
        return;
    m_hasTicks = false;
    invalidateCache();
}

QwtText TimeScaleDraw::label(double value) const
{
    return m_hasTicks ? QwtText(m_ticks.labelOf(value), QwtText::PlainText)
                      : NumberScaleDraw::label(value);
}

void TimeScaleDraw::draw(QPainter *painter, const QPalette &palette) const
{
    m_taken = std::numeric_limits<double>::lowest();
    NumberScaleDraw::draw(painter, palette);
}

void TimeScaleDraw::drawLabel(QPainter *painter, double value) const
{
    const QwtText text = tickLabel(painter->font(), value);
    const QSizeF size = text.textSize(painter->font());
    const double left = scaleMap().transform(value) - 0.5 * size.width();
    if (left < m_taken)
        return;
    m_taken = left + size.width() + 2.0;
    if (!m_hasTicks) {
        NumberScaleDraw::drawLabel(painter, value);
        return;
    }
    // Qwt would put the lines of a label one below the other at the left, and the upper one not below its tick.
    const QRectF place(QPointF(left, labelPosition(value).y()), size);
    painter->drawText(place, Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip, text.text());
}

} // namespace Corvale_Qt
