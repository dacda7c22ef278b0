// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/PixelPen_p.h"

#include <qwt_painter.h>

#include <QPainter>

namespace Corvale_Qt {

bool paintsThinOpaque(const QPainter &painter)
{
    const QPen &pen = painter.pen();
    return QwtPainter::roundingAlignment(const_cast<QPainter *>(&painter))
        && !painter.testRenderHint(QPainter::Antialiasing)
        && painter.compositionMode() == QPainter::CompositionMode_SourceOver
        && painter.opacity() == 1.0 && pen.style() != Qt::NoPen && pen.widthF() <= 1.0
        && pen.brush().style() == Qt::SolidPattern && pen.color().alpha() == 255;
}

bool isFiner(const QPainter &painter)
{
    return painter.device()->devicePixelRatioF() > 1.0;
}

} // namespace Corvale_Qt
