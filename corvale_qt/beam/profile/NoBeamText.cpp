// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/NoBeamText_p.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>

namespace Corvale_Qt {

NoBeamText::NoBeamText()
{
    setZ(100);
    setVisible(false);
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
    painter->setFont(font);
    painter->setPen(QColor(255, 179, 0));
    painter->drawText(canvasRect,
                      Qt::AlignCenter,
                      QCoreApplication::translate("Corvale_Qt::RVXPositionPlot", "no beam"));
}

} // namespace Corvale_Qt
