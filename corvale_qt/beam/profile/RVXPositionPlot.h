// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QScopedPointer>
#include <QWidget>

namespace Corvale_Qt {

class RVXPositionPlotPrivate;

/*! Shows the latest position of the beam on an X/Y plane, with a trail of the last 20 positions (the latest
    included).

    Positions may come at any rate: the plot is painted at most ten times a second, and the newest position is shown
    at the next tick at the latest. A position beyond the axes is shown as an arrow at their edge. A position that is
    not finite counts among the 20 but is not drawn, and the marker is hidden until the next finite one.

    \code
    auto *plot = new Corvale_Qt::RVXPositionPlot(window);
    plot->setXScale(-20, 20); // mm
    plot->setYScale(-20, 20);
    plot->setScale(1);        // the whole range; 0 follows the data
    plot->setData(1.5, -0.3);
    \endcode */
class CORVALE_QT_EXPORT RVXPositionPlot : public QWidget
{
    Q_OBJECT
    //! Sum of charge, or of another measure of the beam, below which there is no beam; 0 at the start, which every sum reaches.
    Q_PROPERTY(double minimumSum READ minimumSum WRITE setMinimumSum)

public:
    //! Makes a plot without positions that follows the data.
    explicit RVXPositionPlot(QWidget *parent = nullptr);
    ~RVXPositionPlot() override;

    //! Returns the property minimumSum.
    double minimumSum() const;
    //! Sets the property minimumSum, in the unit of the sums. It counts from the next position on.
    void setMinimumSum(double sum);
    //! Returns whether the plot says "no beam".
    bool showsNoBeam() const;
    /*! Titles the axes with a unit, for example "X Position (mm)"; an empty one removes it. */
    void setPositionUnit(const QString &unit);

public Q_SLOTS:
    //! Appends the newest position, in the unit of the axes.
    void setData(double x, double y);
    /*! Appends the newest position, or shows "no beam" if \a sum is below minimumSum or if any of the numbers is not
        finite. */
    void setData(double x, double y, double sum);
    //! Removes the marker and says "no beam" until the next position; the trail stays.
    void showNoBeam();
    //! Removes the marker and says that the position of the beam is not valid, until the next position; the trail stays.
    void showNotValid();
    /*! Sets the part of the ranges that is shown. Index 0 follows the data; 1 and 2 show the whole ranges; 3 to 14
        show 0.5, 0.2, 0.1 ... down to 0.0001 of them; any other index shows the whole ranges. */
    void setScale(int index);
    //! Sets the range of the bottom axis, [-1, 1] at the start. Ignored unless \a min < \a max.
    void setXScale(double min, double max);
    //! Sets the range of the left axis, [-1, 1] at the start. Ignored unless \a min < \a max.
    void setYScale(double min, double max);
    //! Applies the scale and the ranges again.
    void updateScale();

private Q_SLOTS:
    void update();

private:
    Q_DECLARE_PRIVATE(RVXPositionPlot)
    const QScopedPointer<RVXPositionPlotPrivate> d_ptr;
};

} // namespace Corvale_Qt
