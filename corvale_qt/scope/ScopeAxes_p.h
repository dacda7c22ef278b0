// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/ValueAxis_p.h"
#include "corvale_qt/scope/ValueRange.h"

#include <qwt_plot.h>

#include <QFont>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <utility>

namespace Corvale_Qt {

class ChannelUnits;

//! The scale that was chosen for the y axis.
struct YScale
{
    int mode = 0; //!< a value of RVXScopePlotView::PlotScales
    std::pair<double, double> range{-1.0, 1.0}; //!< full scale
    bool positiveOnly = false;
    bool isRangeGiven = false; //!< the host has set the range
    std::optional<QString> rangeUnit; //!< the unit that the range is in, once it is known
    std::optional<ValueRange> otherRange; //!< that was set for the right axis
    bool followsFullScale = false; //!< without a given range, the full scale is that of the data
    bool isLogarithmic = false;
    bool isSteady = false; //!< an axis that follows the data has hysteresis

    //! Returns whether the axis follows the data.
    bool isAutomatic() const;
    //! Returns whether the axis shows a part of the data's own full scale.
    bool isOfFullScale() const;
    //! Returns lower and upper bound of the axis while it does not follow the data.
    std::pair<double, double> bounds() const;
    //! Returns the scale of an axis in another unit than that of the range, which such an axis cannot show.
    YScale withoutRange() const;
    //! Returns the scale of the axis that has the other range, which it shows whole.
    YScale withOtherRange() const;
};

/*! Sets up the axes of the plot for its modes. No number disturbs an axis: a bound that is not finite, or too large to
    be divided into steps, never reaches the tick marks. */
class ScopeAxes
{
public:
    //! Which channels are drawn.
    enum class Show {
        AllUnits, //!< all channels on the left axis, whose numbers have no unit
        FirstUnit, //!< those of the first unit, on the left axis
        TwoUnits, //!< those of the first unit on the left axis, those of the second one on the right axis
    };
    //! Not an axis: that of a channel that is not drawn.
    static constexpr int noAxis = -1;

    ScopeAxes(QwtPlot *plot, const ChannelUnits &units);

    void setYScale(const YScale &scale);
    /*! Gives the y axes the units of the channels, and shows the right axis if it has one. The left axis of relative values has
        no unit. Returns whether an axis has another unit than before. */
    bool followUnits(Show show, bool isRelative);
    //! Returns the y axis of a channel, counted from 1; noAxis if its unit has none.
    int axisOf(int channel) const;
    //! Returns a number that is another one whenever axisOf() may return something else.
    int version() const;
    //! Returns the names of the channels that are shown and whose unit has no axis.
    QStringList namesWithoutAxis() const;
    //! Returns whether the right axis is shown.
    bool hasRight() const { return m_hasRight; }
    //! Shows [-1, 1] on y axes that follow the data, as there are none; Qwt would show [0, 1000].
    void showEmpty();
    //! Sets up the x axis for time.
    void prepareTimeAxis();
    //! Sets up the x axis for channels 1 to \a channels.
    void prepareChannelAxis(int channels);
    //! Labels channels 1 and up on the x axis, which prepareChannelAxis() has set up, with their names.
    void showChannelNames(const QStringList &names);

    //! Returns the left or the right y axis, whose ticks and title may have a prefix.
    ValueAxis &values(int axis = QwtPlot::yLeft) { return m_values[size_t(axis)]; }
    const ValueAxis &values(int axis = QwtPlot::yLeft) const { return m_values[size_t(axis)]; }
    void setYTitle(int axis, const QString &title);
    void setXTitle(const QString &title);
    //! Shows the scales that were set, and those of the data on axes that follow them.
    void update();

private:
    void applyYScale(int axis, const YScale &scale);
    bool labelOnlyShown(int axis);

    QwtPlot *m_plot;
    const ChannelUnits &m_units;
    std::array<ValueAxis, 2> m_values; //!< left and right
    Show m_show = Show::AllUnits;
    bool m_hasRight = false;
    int m_showVersion = 0; //!< counts what else is drawn of channels that are told apart
    QFont m_timeFont; //!< of the x axis while x is time
    // Setting a title lays out the plot even if the title is the same.
    QString m_xTitle;
    std::array<QString, 2> m_yTitles;
    std::array<bool, QwtPlot::axisCnt> m_isWithoutLabels{}; //!< while the axis is not shown
};

} // namespace Corvale_Qt
