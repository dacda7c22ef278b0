// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_plot_grid.h>

namespace Corvale_Qt {

/*! A grid whose lines are filled as areas of their pixels where that gives the same picture: Qt sets each pixel of a thin line alone, which
    takes ten times as long. */
class GridLines : public QwtPlotGrid
{
public:
    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    void fill(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &area,
              bool isMajor) const;
};

} // namespace Corvale_Qt
