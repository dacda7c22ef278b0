// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QObject>

namespace Corvale_Qt {

/*! Connects the 18 signals with which \a source announces changes to the slots of \a receiver that are named after
    them: rowsInserted() to _q_sourceRowsInserted(), and so on. */
void connectSource(const QObject *source, const QObject *receiver);
//! Takes back what connectSource() did.
void disconnectSource(const QObject *source, const QObject *receiver);

/*! Connects the source's unitsChanged() to \a method of \a receiver (a SIGNAL() or SLOT() text). Not every plot model
    has that signal; where it is missing nothing happens, and the connection is invalid. */
QMetaObject::Connection connectUnitsChanged(const QObject *source,
                                            const QObject *receiver,
                                            const char *method,
                                            Qt::ConnectionType type = Qt::AutoConnection);

} // namespace Corvale_Qt
