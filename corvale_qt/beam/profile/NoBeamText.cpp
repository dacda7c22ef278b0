// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/NoBeamText_p.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace Corvale_Qt {

NoBeamText::NoBeamText()
{
    setZ(100);
    setVisible(false);
}

QString NoBeamText::noBeam()
{
    return QCoreApplication::translate("Corvale_Qt::RVXPositionPlot", "no beam");
}

void NoBeamText::draw(QPainter *painter,
                      const QwtScaleMap & /*xMap*/,
                      const QwtScaleMap & /*yMap*/,
                      const QRectF &canvasRect) const
{
    QFont font = painter->font();
    const double most = std::min(canvasRect.height() / 3, canvasRect.width() / 8);
    font.setPixelSize(std::clamp(int(most), 9, 48));
    font.setBold(true);
    const double room = 0.9 * canvasRect.width();
    const int width = QFontMetrics(font).horizontalAdvance(m_text);
    if (width > room)
        font.setPixelSize(std::max(int(font.pixelSize() * room / width), 9));
    painter->setFont(font);
    painter->setPen(QColor(255, 179, 0));
    painter->drawText(canvasRect, Qt::AlignCenter, m_text);
}

} // namespace Corvale_Qt
