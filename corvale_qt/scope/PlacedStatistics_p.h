// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/HistogramPlaces_p.h"
#include "corvale_qt/scope/HistogramStatistics_p.h"
#include "corvale_qt/scope/statistics/PlacedFit_p.h"

namespace Corvale_Qt {

/*! Computes what a statistics item of a \a type with \a parameters (see RVXScopePlotView::enableHistogramItem()) finds in a frame
    on the strips of a detector. \a deviceFit is what the device found, in channels of the group. Channels of several planes
    have no fit. \a limitFactor is what 1 in the unit of the limits is in the unit of the readings. */
PlacedFit placedFit(RVXScopePlotView::HistogramItemTypes type,
                    const QVector<double> &parameters,
                    const ChannelGroup &group,
                    const HistogramPlaces &places,
                    const DetectorFrame &frame,
                    const ProfileFit &deviceFit,
                    double limitFactor);

} // namespace Corvale_Qt
