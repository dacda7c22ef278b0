// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QScopedPointer>
#include <QWidget>

namespace Corvale_Qt {

class RVXSplitPlotPrivate;

/*! Shows one or more split indicators, one above the other. Each is a bar from 0 to its value, with the number.

    \code
    auto *plot = new Corvale_Qt::RVXSplitPlot(window);
    plot->setNumberPlots(2);
    plot->setAxisLabel("A - B", 0);
    plot->setData(0.12, -0.4); // both, at most ten times a second
    \endcode */
class CORVALE_QT_EXPORT RVXSplitPlot : public QWidget
{
    Q_OBJECT

public:
    //! Makes a widget without plots; see setNumberPlots().
    explicit RVXSplitPlot(QWidget *parent = nullptr);
    ~RVXSplitPlot() override;

public Q_SLOTS:
    /*! Replaces the plots by \a n new ones, at most 256, none if \a n < 1. They show [-1, 1] until the next
        setScale() or setXScale(). */
    void setNumberPlots(int n);
    //! Shows \a value in plot \a i (counted from 0) at once. Ignored if that plot does not exist.
    void setData(double value, int i);
    /*! Shows \a a in the first plot and \a b in the second, at most once every 100 ms: further values before the
        next tick are dropped. */
    void setData(double a, double b);
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
