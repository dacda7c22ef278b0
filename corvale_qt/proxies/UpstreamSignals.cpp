// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/UpstreamSignals_p.h"

#include <QMetaObject>
#include <QObject>

namespace Corvale_Qt {

namespace {

struct Wire
{
    const char *signal;
    const char *slot;
};

const Wire wires[] = {
    {SIGNAL(rowsAboutToBeInserted(QModelIndex, int, int)),
     SLOT(_q_sourceRowsAboutToBeInserted(QModelIndex, int, int))},
    {SIGNAL(rowsInserted(QModelIndex, int, int)),
     SLOT(_q_sourceRowsInserted(QModelIndex, int, int))},
    {SIGNAL(rowsAboutToBeRemoved(QModelIndex, int, int)),
     SLOT(_q_sourceRowsAboutToBeRemoved(QModelIndex, int, int))},
    {SIGNAL(rowsRemoved(QModelIndex, int, int)), SLOT(_q_sourceRowsRemoved(QModelIndex, int, int))},
    {SIGNAL(rowsAboutToBeMoved(QModelIndex, int, int, QModelIndex, int)),
     SLOT(_q_sourceRowsAboutToBeMoved(QModelIndex, int, int, QModelIndex, int))},
    {SIGNAL(rowsMoved(QModelIndex, int, int, QModelIndex, int)),
     SLOT(_q_sourceRowsMoved(QModelIndex, int, int, QModelIndex, int))},
    {SIGNAL(columnsAboutToBeInserted(QModelIndex, int, int)),
     SLOT(_q_sourceColumnsAboutToBeInserted(QModelIndex, int, int))},
    {SIGNAL(columnsInserted(QModelIndex, int, int)),
     SLOT(_q_sourceColumnsInserted(QModelIndex, int, int))},
    {SIGNAL(columnsAboutToBeRemoved(QModelIndex, int, int)),
     SLOT(_q_sourceColumnsAboutToBeRemoved(QModelIndex, int, int))},
    {SIGNAL(columnsRemoved(QModelIndex, int, int)),
     SLOT(_q_sourceColumnsRemoved(QModelIndex, int, int))},
    {SIGNAL(columnsAboutToBeMoved(QModelIndex, int, int, QModelIndex, int)),
     SLOT(_q_sourceColumnsAboutToBeMoved(QModelIndex, int, int, QModelIndex, int))},
    {SIGNAL(columnsMoved(QModelIndex, int, int, QModelIndex, int)),
     SLOT(_q_sourceColumnsMoved(QModelIndex, int, int, QModelIndex, int))},
    {SIGNAL(dataChanged(QModelIndex, QModelIndex)),
     SLOT(_q_sourceDataChanged(QModelIndex, QModelIndex))},
    {SIGNAL(headerDataChanged(Qt::Orientation, int, int)),
     SLOT(_q_sourceHeaderDataChanged(Qt::Orientation, int, int))},
    {SIGNAL(layoutAboutToBeChanged()), SLOT(_q_sourceLayoutAboutToBeChanged())},
    {SIGNAL(layoutChanged()), SLOT(_q_sourceLayoutChanged())},
    {SIGNAL(modelAboutToBeReset()), SLOT(_q_sourceModelAboutToBeReset())},
    {SIGNAL(modelReset()), SLOT(_q_sourceModelReset())},
};

} // namespace

void connectUpstream(const QObject *source, const QObject *receiver)
{
    for (const Wire &wire : wires)
        QObject::connect(source, wire.signal, receiver, wire.slot);
}

void disconnectUpstream(const QObject *source, const QObject *receiver)
{
    for (const Wire &wire : wires)
        QObject::disconnect(source, wire.signal, receiver, wire.slot);
}

QMetaObject::Connection connectUnitsChanged(const QObject *source,
                                            const QObject *receiver,
                                            const char *method,
                                            Qt::ConnectionType type)
{
    const char *const signal = SIGNAL(unitsChanged(const Corvale_Qt::Units::MeasurementUnit *));
    const QByteArray signature = QMetaObject::normalizedSignature(signal + 1);
    if (source->metaObject()->indexOfSignal(signature) < 0)
        return QMetaObject::Connection();
    return QObject::connect(source, signal, receiver, method, type);
}

} // namespace Corvale_Qt
