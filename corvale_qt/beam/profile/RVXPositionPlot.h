// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QScopedPointer>
#include <QWidget>

namespace Corvale_Qt {

class RVXPositionPlotPrivate;

/*! The beam's latest position on an X/Y plane, with a trail of the last 20 positions, of which it is the newest.

    Positions may come at any rate: the plot is painted at most ten times a second, and the newest position always
    is, at the next tick at the latest. One beyond the axes is an arrow at their edge. A position that is not finite
    keeps its place in the trail but is not drawn, and the marker is gone until the next good one.

    \code
    auto *plot = new Corvale_Qt::RVXPositionPlot(window);
    plot->setXScale(-20, 20); // mm
    plot->setYScale(-20, 20);
    plot->setScale(1);        // all of it; 0 follows the data
    plot->setData(1.5, -0.3);
    \endcode */
class CORVALE_QT_EXPORT RVXPositionPlot : public QWidget
{
    Q_OBJECT

public:
    explicit RVXPositionPlot(QWidget *parent = nullptr);
    ~RVXPositionPlot() override;

public Q_SLOTS:
    //! The newest position, in the unit of the axes.
    void setData(double x, double y);
    /*! Part of the ranges that is shown: 0 follows the data, 1 and 2 all, then 0.5, 0.2, 0.1 ... down to
        0.0001 for 14; any other index all. */
    void setScale(int index);
    //! Range of the bottom axis; ignored unless \a min < \a max. [-1, 1] at the start.
    void setXScale(double min, double max);
    //! Range of the left axis; ignored unless \a min < \a max. [-1, 1] at the start.
    void setYScale(double min, double max);
    //! Applies scale and ranges once more.
    void updateScale();

private Q_SLOTS:
    void update();

private:
    Q_DECLARE_PRIVATE(RVXPositionPlot)
    const QScopedPointer<RVXPositionPlotPrivate> d_ptr;
};

} // namespace Corvale_Qt
