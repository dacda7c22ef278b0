// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QAbstractItemModel>
#include <QVector>

namespace Corvale_Qt {

/*! Calls a function when a model was rearranged, that is when any row may hold other values, and when the
    model was deleted. QAbstractItemView does not pass these signals on to its subclasses.

    The destructor disconnects. So a view may keep this object in its private part: a model that is a child
    of the view is deleted after that part. */
class StructureWatcher
{
public:
    StructureWatcher() = default;
    ~StructureWatcher() { stop(); }
    Q_DISABLE_COPY(StructureWatcher)

    //! Replaces the watched model, which may be null. \a reload is called as long as \a context exists.
    template<typename Reload>
    void watch(const QAbstractItemModel *model, const QObject *context, const Reload &reload)
    {
        stop();
        if (!model)
            return;
        using Model = QAbstractItemModel;
        m_connections = {QObject::connect(model, &Model::layoutChanged, context, reload),
                         QObject::connect(model, &Model::rowsMoved, context, reload),
                         QObject::connect(model, &Model::columnsInserted, context, reload),
                         QObject::connect(model, &Model::columnsRemoved, context, reload),
                         QObject::connect(model, &Model::columnsMoved, context, reload),
                         QObject::connect(model, &QObject::destroyed, context, reload)};
    }

private:
    void stop()
    {
        for (const QMetaObject::Connection &connection : qAsConst(m_connections))
            QObject::disconnect(connection);
    }

    QVector<QMetaObject::Connection> m_connections;
};

} // namespace Corvale_Qt
