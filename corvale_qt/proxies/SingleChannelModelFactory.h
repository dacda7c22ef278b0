// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/proxies/AbstractChannelModelFactory.h"

namespace Corvale_Qt {

/*! Creates empty RVXSingleChannelDataModels. The first of the names becomes the channelName(); no dynamic property is
    set. Hosts find the new model among the children of the proxy and feed it. */
class CORVALE_QT_EXPORT SingleChannelModelFactory : public AbstractChannelModelFactory
{
    Q_OBJECT

public:
    //! Creates a factory; \a parent may be null.
    explicit SingleChannelModelFactory(QObject *parent = nullptr);
    ~SingleChannelModelFactory() override;

    using AbstractChannelModelFactory::createModel;
    QAbstractItemModel *
    createModel(const QStringList &names, int *column, QObject *parent) override;
};

} // namespace Corvale_Qt
