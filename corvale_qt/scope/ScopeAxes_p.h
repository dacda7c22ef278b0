// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: the axes of the scope plot view.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QFont>
#include <QString>

#include <utility>

class QwtPlot;

namespace Corvale_Qt {

//! What is asked of the y axis.
struct YScale
{
    int mode = 0; //!< a value of RVXScopePlotView::PlotScales
    std::pair<double, double> range{-1.0, 1.0}; //!< full scale
    bool positiveOnly = false;

    //! The axis follows the data.
    bool isAutomatic() const;
    //! Bounds of the axis while it does not.
    std::pair<double, double> bounds() const;
};

/*! Sets up the axes of the plot for its modes. Axes survive any number: what is not finite, or too large to be
    divided, never reaches the tick marks. */
class ScopeAxes
{
public:
    explicit ScopeAxes(QwtPlot *plot);

    void setYScale(const YScale &scale);
    //! x is time.
    void prepareTimeAxis();
    //! x is the channel, 1 to \a channels.
    void prepareChannelAxis(int channels);
    //! A range that is not finite leaves the axis as it is.
    void setTimeRange(double left, double right);

    void setYTitle(const QString &title);
    void setXTitle(const QString &title);

private:
    QwtPlot *m_plot;
    QFont m_timeFont; //!< the channel axis has another
    // Setting a title lays out the plot, also where it is the same.
    QString m_xTitle;
    QString m_yTitle;
};

} // namespace Corvale_Qt
