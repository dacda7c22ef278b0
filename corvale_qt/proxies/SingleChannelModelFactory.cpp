// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/SingleChannelModelFactory.h"

#include "corvale_qt/models/RVXSingleChannelDataModel.h"

namespace Corvale_Qt {

SingleChannelModelFactory::SingleChannelModelFactory(QObject *parent)
    : AbstractChannelModelFactory(parent)
{
}

SingleChannelModelFactory::~SingleChannelModelFactory() = default;

QAbstractItemModel *
SingleChannelModelFactory::createModel(const QStringList &names, int *column, QObject *parent)
{
    if (column)
        *column = 1;
    auto *model = new RVXSingleChannelDataModel(parent);
    model->setChannelName(names.value(0));
    return model;
}

} // namespace Corvale_Qt
