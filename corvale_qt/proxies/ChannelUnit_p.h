// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

class QAbstractItemModel;

namespace Corvale_Qt {

class RVXAbstractPlotDataModel;

namespace Units {
class MeasurementUnit;
} // namespace Units

/*! The plot side of \a model, or of the first model below it that has one, by way of the proxies in between; null where
    there is none. */
const RVXAbstractPlotDataModel *plotModelOf(const QAbstractItemModel *model);
//! Whether any channel of \a model answers RVXAbstractPlotDataModel::ChannelUnitRole.
bool hasChannelUnits(const QAbstractItemModel *model);
//! The unit of the channel in \a column, its own or else that of the plot model; null where it has none.
const Units::MeasurementUnit *channelUnit(const QAbstractItemModel *model, int column);

} // namespace Corvale_Qt
