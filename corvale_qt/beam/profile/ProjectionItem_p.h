// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/JudgedFrame_p.h"

#include <qwt_plot_item.h>

namespace Corvale_Qt {

/*! Draws the profiles of a frame along the lower and the left edge of the canvas, with the Gaussians of their estimates. */
class ProjectionItem : public QwtPlotItem
{
public:
    ProjectionItem();

    void setPlanes(const PlaneResult &x, const PlaneResult &y);

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    PlaneResult m_x;
    PlaneResult m_y;
};

/*! Marks cells that are not trusted: a cross on dead ones, a frame around saturated ones, a ring on hot ones; and ticks at the
    edges beside cells that are narrower than half of the usual. */
class CellMarks : public QwtPlotItem
{
public:
    CellMarks();

    void setFrame(const JudgedFrame &frame);
    void setNarrow(const QVector<QPair<double, double>> &columns,
                   const QVector<QPair<double, double>> &rows);

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    struct Mark
    {
        QRectF cell; //!< in the units of the axes
        CellFlags flags;
    };
    QVector<Mark> m_marks;
    QVector<QPair<double, double>> m_narrowColumns;
    QVector<QPair<double, double>> m_narrowRows;
};

} // namespace Corvale_Qt
