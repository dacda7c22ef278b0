// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/scope/CanvasNote_p.h"

#include <qwt_text.h>

#include <QPainter>

namespace Corvale_Qt {

namespace {

constexpr double zOfNote = 35.0; // above the markers
constexpr double noteMargin = 4.0;

} // namespace

CanvasNote::CanvasNote()
{
    setZ(zOfNote);
}

void CanvasNote::setText(const QString &text)
{
    m_text = text;
}

void CanvasNote::draw(QPainter *painter,
                      const QwtScaleMap &,
                      const QwtScaleMap &,
                      const QRectF &canvas) const
{
    if (m_text.isEmpty())
        return;
    const QFontMetricsF metrics(painter->font(), painter->device());
    const QString shown =
        metrics.elidedText(m_text, Qt::ElideRight, canvas.width() - 4.0 * noteMargin);
    QwtText text(shown, QwtText::PlainText);
    text.setColor(RVXPlotColors::labelTextColor());
    QColor background = RVXPlotColors::labelBackgroundColor();
    background.setAlpha(230); // it may lie on bars
    text.setBackgroundBrush(background);
    const QSizeF size = text.textSize(painter->font());
    text.draw(painter,
              QRectF(canvas.left() + noteMargin,
                     canvas.bottom() - noteMargin - size.height(),
                     size.width(),
                     size.height()));
}

} // namespace Corvale_Qt
