// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QScopedPointer>
#include <QWidget>

namespace Corvale_Qt {

class RVXSplitPlotPrivate;

/*! Shows one or more split indicators, one above the other. Each is a bar from 0 to its value, with the number. A
    bar that ends beyond the axis has an arrow there.

    \code
    auto *plot = new Corvale_Qt::RVXSplitPlot(window);
    plot->setNumberPlots(2);
    plot->setAxisLabel("A - B", 0);
    plot->setData(0.12, -0.4); // both, at most ten times a second
    \endcode */
class CORVALE_QT_EXPORT RVXSplitPlot : public QWidget
{
    Q_OBJECT
    //! Sum of charge, or of another measure of the beam, below which there is no beam; 0 at the start, which every sum reaches.
    Q_PROPERTY(double minimumSum READ minimumSum WRITE setMinimumSum)

public:
    //! Makes a widget without plots; see setNumberPlots().
    explicit RVXSplitPlot(QWidget *parent = nullptr);
    ~RVXSplitPlot() override;

    //! Returns the property minimumSum.
    double minimumSum() const;
    //! Sets the property minimumSum, in the unit of the sums. It counts from the next values on.
    void setMinimumSum(double sum);
    //! Returns whether plot \a i (counted from 0) says "no beam".
    bool showsNoBeam(int i) const;

public Q_SLOTS:
    /*! Replaces the plots by \a n new ones, at most 256, none if \a n < 1. They show [-1, 1] until the next
        setScale() or setXScale(). */
    void setNumberPlots(int n);
    //! Shows \a value in plot \a i (counted from 0) at once. Ignored if that plot does not exist.
    void setData(double value, int i);
    /*! Shows \a a in the first plot and \a b in the second, at most once every 100 ms: further values before the
        next tick are dropped. */
    void setData(double a, double b);
    /*! Shows \a a and \a b as setData(a, b) does, or "no beam" in the first two plots if \a sum is below minimumSum or not
        finite. */
    void setData(double a, double b, double sum);
    //! Removes the bars of all plots and says "no beam" in each until its next value.
    void showNoBeam();
    //! Sets the title of the bottom axis of plot \a i (counted from 0). Ignored if that plot does not exist.
    void setAxisLabel(const QString &text, int i);
    //! Sets the part of the range that the bottom axes show, by the indexes of RVXPositionPlot::setScale().
    void setScale(int index);
    //! Sets the range of the bottom axes, [-1, 1] at the start. Ignored unless \a min < \a max.
    void setXScale(double min, double max);
    //! Applies the scale and the range again.
    void updateScale();

private Q_SLOTS:
    void update();

private:
    Q_DECLARE_PRIVATE(RVXSplitPlot)
    const QScopedPointer<RVXSplitPlotPrivate> d_ptr;
};

} // namespace Corvale_Qt
