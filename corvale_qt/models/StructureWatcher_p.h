// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QAbstractItemModel>
#include <QVector>

namespace Corvale_Qt {

/*! Listens to the signals after which any row may hold other values, and which a QAbstractItemView does not
    pass on to its subclasses, and to the model's deletion.

    It ends with this object, which is a member of a view's private part: a model that is a child of its view
    is deleted after that part. */
class ModelRearrangements
{
public:
    ModelRearrangements() = default;
    ~ModelRearrangements() { stop(); }
    Q_DISABLE_COPY(ModelRearrangements)

    //! Has them call \a reload, and no longer those of the former model. \a model may be null.
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
