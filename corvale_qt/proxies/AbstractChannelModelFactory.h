// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QObject>
#include <QStringList>

class QAbstractItemModel;

namespace Corvale_Qt {

/*! Creates the model of a channel from the channel's name. A host whose channels have names (signals of a control
    system, devices in a list) subclasses it and hands the factory to RVXMultichannelProxyModel.

    The proxy's channelNames() reads the dynamic property "channel" of each model, so a factory should set it:

    \code
    QAbstractItemModel *HostFactory::createModel(const QStringList &names, int *column, QObject *parent)
    {
        auto *model = new HostModel(names.value(0), parent);
        model->setProperty("channel", names.value(0));
        if (column)
            *column = 1;
        return model;
    }
    \endcode */
class CORVALE_QT_EXPORT AbstractChannelModelFactory : public QObject
{
    Q_OBJECT

public:
    ~AbstractChannelModelFactory() override;

    /*! Returns a new model for the channels \a names, with \a parent as its parent, or null if there are no such channels.
        Unless \a column is null, it receives the model's column that holds the channel, counted from 0 (the time).
        The proxy refuses a model that is not a RVXAbstractPlotDataModel. */
    virtual QAbstractItemModel *
    createModel(const QStringList &names, int *column, QObject *parent) = 0;
    //! Calls the other createModel() with \a name as the only name.
    QAbstractItemModel *createModel(const QString &name, int *column, QObject *parent);

protected:
    //! Creates a factory; \a parent may be null.
    explicit AbstractChannelModelFactory(QObject *parent = nullptr);
};

} // namespace Corvale_Qt
