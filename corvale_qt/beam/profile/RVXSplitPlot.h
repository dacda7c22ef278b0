// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QScopedPointer>
#include <QWidget>

namespace Corvale_Qt {

class RVXSplitPlotPrivate;

/*! One or more split indicators, one above the other: each a bar from 0 to its value, with the number.

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
    explicit RVXSplitPlot(QWidget *parent = nullptr);
    ~RVXSplitPlot() override;

public Q_SLOTS:
    /*! Replaces the plots by \a n new ones that show [-1, 1] until the next setScale or setXScale; none where
        \a n < 1, and never more than 256. */
    void setNumberPlots(int n);
    //! Shows \a value in plot \a i, counted from 0, at once. Ignored where there is no such plot.
    void setData(double value, int i);
    /*! Shows \a a in the first plot and \a b in the second. Not more often than every 100 ms: values between
        two ticks are dropped. */
    void setData(double a, double b);
    //! Title of the bottom axis of plot \a i.
    void setAxisLabel(const QString &text, int i);
    //! Part of the range that the bottom axes show, by the same index as RVXPositionPlot::setScale.
    void setScale(int index);
    //! Range of the bottom axes; ignored unless \a min < \a max. [-1, 1] at the start.
    void setXScale(double min, double max);
    //! Applies scale and range once more.
    void updateScale();

private Q_SLOTS:
    void update();

private:
    Q_DECLARE_PRIVATE(RVXSplitPlot)
    const QScopedPointer<RVXSplitPlotPrivate> d_ptr;
};

} // namespace Corvale_Qt
