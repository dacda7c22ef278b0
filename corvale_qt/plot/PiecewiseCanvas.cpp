// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/PiecewiseCanvas_p.h"

#include <QPaintEvent>

namespace Corvale_Qt {

namespace {

constexpr int kMostPieces = 16; // with more, such as those of a mask of letters, the clip is faster

} // namespace

void PiecewiseCanvas::paintEvent(QPaintEvent *event)
{
    const QRegion &region = event->region();
    const bool isCopy = testPaintAttribute(BackingStore);
    if (!isCopy || region.rectCount() == 1 || region.rectCount() > kMostPieces) {
        QwtPlotCanvas::paintEvent(event);
        return;
    }
    for (const QRect &piece : region) {
        QPaintEvent part(piece);
        QwtPlotCanvas::paintEvent(&part); // the first one makes the picture anew if it has changed
    }
}

} // namespace Corvale_Qt
