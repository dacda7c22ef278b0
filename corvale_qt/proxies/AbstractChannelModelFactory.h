// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QObject>
#include <QStringList>

class QAbstractItemModel;

namespace Corvale_Qt {

/*! Makes the model of a channel that is known by name only. A host that can be asked for a channel of that name (a
    signal of a control system, a device in a list) gives RVXMultichannelProxyModel a factory of its own.

    The proxy's channelNames() reads a model's dynamic property "channel"; a factory whose channels should be
    found there sets it:

    \code
    QAbstractItemModel *HostFactory::createModel(const QStringList &names, int *column, QObject *parent)
    {
        auto *model = new HostModel(names.value(0), parent);
        model->setProperty("channel", names.value(0));
        if (column)
            *column = 1; // the column of the model that holds the channel
        return model;
    }
    \endcode */
class CORVALE_QT_EXPORT AbstractChannelModelFactory : public QObject
{
    Q_OBJECT

public:
    ~AbstractChannelModelFactory() override;

    /*! A new model, child of \a parent, for the channels \a names; null where there is none. \a column, where it is not
        null, receives the model's column that holds the channel. The model has to be a
        RVXAbstractPlotDataModel for a proxy to take it. */
    virtual QAbstractItemModel *
    createModel(const QStringList &names, int *column, QObject *parent) = 0;
    //! The same for one name.
    QAbstractItemModel *createModel(const QString &name, int *column, QObject *parent);

protected:
    explicit AbstractChannelModelFactory(QObject *parent = nullptr);
};

} // namespace Corvale_Qt
