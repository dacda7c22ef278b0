// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_plot_item.h>

namespace Corvale_Qt {

//! Says "no beam" in the middle of a canvas. It is hidden at the start.
class NoBeamText : public QwtPlotItem
{
public:
    NoBeamText();

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;
};

} // namespace Corvale_Qt
