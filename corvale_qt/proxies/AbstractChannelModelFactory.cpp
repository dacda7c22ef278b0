// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/AbstractChannelModelFactory.h"

namespace Corvale_Qt {

AbstractChannelModelFactory::AbstractChannelModelFactory(QObject *parent)
    : QObject(parent)
{
}

AbstractChannelModelFactory::~AbstractChannelModelFactory() = default;

QAbstractItemModel *
AbstractChannelModelFactory::createModel(const QString &name, int *column, QObject *parent)
{
    return createModel(QStringList(name), column, parent);
}

} // namespace Corvale_Qt
