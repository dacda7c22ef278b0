// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/detector/DetectorFrame.h"

#include <QCoreApplication>
#include <QVector>

class QwtPlot;

namespace Corvale_Qt {

struct ChannelGroup;

/*! Where the bars of a histogram stand: at their channel numbers, or at the places of a detector's strips. Two planes stand side by
    side, each with the labels of its own places. */
class HistogramPlaces
{
public:
    //! Takes a detector; only strips have places on one axis.
    void setLayout(const DetectorLayout &layout);
    const DetectorLayout &layout() const { return m_layout; }
    //! Returns whether bars of \a channels stand at places, and not at their numbers.
    bool apply(int channels) const { return channels > 0 && channels == int(m_bars.size()); }

    //! Where the bar of a channel stands on the x axis of the plot.
    struct Bar
    {
        double left = 0;
        double right = 0;
        double place =
            0; //!< of the strip: not in the middle, if its neighbours are not equally far away
        int cell = -1; //!< -1 for a reading that belongs to no strip; it has no bar
    };
    //! Returns the bar of a channel, counted from 0.
    const Bar &bar(int channel) const { return m_bars[channel]; }
    //! Returns the channel, counted from 0, whose strip is nearest to a place on the x axis of the plot.
    int nearestChannel(double x) const;

    //! Returns the axis of the plane that has all channels of a group; none if they belong to several planes.
    bool planeOf(const ChannelGroup &group, DetectorLayout::Axis *axis) const;
    //! Returns where a plane stands on the x axis of the plot: x = shift + position.
    double shift(DetectorLayout::Axis axis) const;
    double lower() const { return m_lower; }
    double upper() const { return m_upper; }

    //! Sets the range, the ticks and the labels of the x axis of a plot.
    void prepareAxis(QwtPlot *plot) const;
    //! Returns the title of the x axis, with its unit.
    QString title() const;
    //! Returns the label of a place on the x axis of the plot.
    QString label(double x) const;

private:
    void addPlane(DetectorLayout::Axis axis, double shift);

    DetectorLayout m_layout;
    QVector<Bar> m_bars; //!< by channel
    double m_shiftY = 0;
    double m_lower = 0;
    double m_upper = 0;

    Q_DECLARE_TR_FUNCTIONS(Corvale_Qt::HistogramPlaces)
};

} // namespace Corvale_Qt
