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

/*! The signals after which any row may hold other values, and which a QAbstractItemView does not pass on to
    its subclasses: they, and the model's deletion, call \a reload as long as \a context lives. */
template<typename Reload>
QVector<QMetaObject::Connection>
connectRearrangements(const QAbstractItemModel *model, const QObject *context, const Reload &reload)
{
    if (!model)
        return {};
    using Model = QAbstractItemModel;
    return {QObject::connect(model, &Model::layoutChanged, context, reload),
            QObject::connect(model, &Model::rowsMoved, context, reload),
            QObject::connect(model, &Model::columnsInserted, context, reload),
            QObject::connect(model, &Model::columnsRemoved, context, reload),
            QObject::connect(model, &Model::columnsMoved, context, reload),
            QObject::connect(model, &QObject::destroyed, context, reload)};
}

} // namespace Corvale_Qt
