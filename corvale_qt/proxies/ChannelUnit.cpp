// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/proxies/ChannelUnit_p.h"
#include "corvale_qt/proxies/UpstreamChain_p.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QAbstractItemModel>

namespace Corvale_Qt {

namespace {

QVariant ownUnit(const QAbstractItemModel *model, int column)
{
    return model->index(0, column).data(RVXAbstractPlotDataModel::ChannelUnitRole);
}

} // namespace

const RVXAbstractPlotDataModel *plotModelOf(const QAbstractItemModel *model)
{
    while (model) {
        if (const auto *plot = dynamic_cast<const RVXAbstractPlotDataModel *>(model))
            return plot;
        model = sourceOf(model);
    }
    return nullptr;
}

bool hasChannelUnits(const QAbstractItemModel *model)
{
    for (int column = model ? model->columnCount() - 1 : 0; column >= 1; --column) {
        if (ownUnit(model, column).isValid())
            return true;
    }
    return false;
}

const Units::MeasurementUnit *channelUnit(const QAbstractItemModel *model, int column)
{
    if (!model)
        return nullptr;
    const QVariant own = ownUnit(model, column);
    if (own.isValid())
        return own.value<const Units::MeasurementUnit *>();
    const RVXAbstractPlotDataModel *plot = plotModelOf(model);
    return plot ? plot->units() : nullptr;
}

} // namespace Corvale_Qt
