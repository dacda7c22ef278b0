// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/proxies/AbstractChannelModelFactory.h"

namespace Corvale_Qt {

/*! Makes an empty RVXSingleChannelDataModel with the first of the names as its channelName(). It sets no dynamic
    property; hosts find the new model among the proxy's children and feed it. */
class CORVALE_QT_EXPORT SingleChannelModelFactory : public AbstractChannelModelFactory
{
    Q_OBJECT

public:
    explicit SingleChannelModelFactory(QObject *parent = nullptr);
    ~SingleChannelModelFactory() override;

    using AbstractChannelModelFactory::createModel;
    QAbstractItemModel *
    createModel(const QStringList &names, int *column, QObject *parent) override;
};

} // namespace Corvale_Qt
