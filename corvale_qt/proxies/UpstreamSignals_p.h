// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include <QObject>

namespace Corvale_Qt {

/*! Connects the 18 change signals of the model \a source to the slots of \a receiver that are named after them:
    rowsInserted() to _q_sourceRowsInserted(), and so on. */
void connectUpstream(const QObject *source, const QObject *receiver);
//! Undoes connectUpstream().
void disconnectUpstream(const QObject *source, const QObject *receiver);

/*! Connects unitsChanged() of \a source to \a method of \a receiver, a SIGNAL() or SLOT() text. Does nothing and returns
    an invalid connection if \a source has no such signal, which is optional for plot models. */
QMetaObject::Connection connectUnitsChanged(const QObject *source,
                                            const QObject *receiver,
                                            const char *method,
                                            Qt::ConnectionType type = Qt::AutoConnection);

} // namespace Corvale_Qt
