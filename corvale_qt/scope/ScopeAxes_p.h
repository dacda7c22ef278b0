// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/ValueAxis_p.h"

#include <QFont>
#include <QString>
#include <QStringList>

#include <utility>

class QwtPlot;

namespace Corvale_Qt {

//! The scale that was chosen for the y axis.
struct YScale
{
    int mode = 0; //!< a value of RVXScopePlotView::PlotScales
    std::pair<double, double> range{-1.0, 1.0}; //!< full scale
    bool positiveOnly = false;
    bool isRangeGiven = false; //!< the host has set the range
    bool followsFullScale = false; //!< without a given range, the full scale is that of the data
    bool isLogarithmic = false;
    bool isSteady = false; //!< an axis that follows the data has hysteresis

    //! Returns whether the axis follows the data.
    bool isAutomatic() const;
    //! Returns whether the axis shows a part of the data's own full scale.
    bool isOfFullScale() const;
    //! Returns lower and upper bound of the axis while it does not follow the data.
    std::pair<double, double> bounds() const;
};

/*! Sets up the axes of the plot for its modes. No number disturbs an axis: a bound that is not finite, or too large to
    be divided into steps, never reaches the tick marks. */
class ScopeAxes
{
public:
    explicit ScopeAxes(QwtPlot *plot);

    void setYScale(const YScale &scale);
    //! Sets up the x axis for time.
    void prepareTimeAxis();
    //! Sets up the x axis for channels 1 to \a channels.
    void prepareChannelAxis(int channels);
    //! Labels channels 1 and up on the x axis, which prepareChannelAxis() has set up, with their names.
    void showChannelNames(const QStringList &names);

    //! The y axis, whose ticks and title may have a prefix.
    ValueAxis &values() { return m_values; }
    const ValueAxis &values() const { return m_values; }
    void setYTitle(const QString &title);
    void setXTitle(const QString &title);

private:
    QwtPlot *m_plot;
    ValueAxis m_values;
    QFont m_timeFont; //!< of the x axis while x is time
    // Setting a title lays out the plot even if the title is the same.
    QString m_xTitle;
    QString m_yTitle;
};

} // namespace Corvale_Qt
