// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

class QAbstractItemModel;

namespace Corvale_Qt {

class RVXAbstractPlotDataModel;

namespace Units {
class MeasurementUnit;
} // namespace Units

/*! Returns the plot interface of \a model or, through the proxies below it, of the first model that has one; null if none
    has one. */
const RVXAbstractPlotDataModel *plotModelOf(const QAbstractItemModel *model);
//! Returns whether any channel of \a model answers RVXAbstractPlotDataModel::ChannelUnitRole.
bool hasChannelUnits(const QAbstractItemModel *model);
//! Returns the unit of the channel in \a column: the channel's own, else that of plotModelOf(\a model), else null.
const Units::MeasurementUnit *channelUnit(const QAbstractItemModel *model, int column);

} // namespace Corvale_Qt
