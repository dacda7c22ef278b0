// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/ChannelName_p.h"

#include <QAbstractProxyModel>

namespace Corvale_Qt {

namespace {

//! Follows proxies down to the cell that they show.
QModelIndex innermost(QModelIndex index)
{
    while (const auto *proxy = qobject_cast<const QAbstractProxyModel *>(index.model()))
        index = proxy->mapToSource(index);
    return index;
}

} // namespace

QString channelName(const QAbstractItemModel *model, int column)
{
    if (!model)
        return QString();
    // A property belongs to a whole model, so it cannot tell several channels apart.
    QString property =
        model->columnCount() <= 2 ? model->property("channel").toString() : QString();
    if (!property.isEmpty())
        return property;
    const QModelIndex header = innermost(model->index(0, column));
    QString text = header.data().toString();
    if (!text.isEmpty() && text != QString::number(header.column()))
        return text;
    const auto *single = qobject_cast<const RVXSingleChannelDataModel *>(header.model());
    return single ? single->channelName() : QString();
}

} // namespace Corvale_Qt
