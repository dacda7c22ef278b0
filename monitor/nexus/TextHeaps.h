// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace Monitor {

/*! \file
    The heaps in which an HDF5 file keeps texts of any length (its global heap collections). The HDF5 library walks through a heap by
    the sizes that stand in it, and never ends where one of them is 0, as a power cut leaves it. Section III.E of version 3 of the
    HDF5 group's description of the format has the layout. */

//! Returns how many bytes a length has in an HDF5 file; 0 if its superblock does not say that in a way that is known.
int lengthSizeOf(const QString &path);
//! Returns whether these bytes begin a heap.
bool beginsTextHeap(const QByteArray &bytes);
//! Returns how long a heap is by its own account, in bytes; 0 if the bytes end before they say so. They must begin a heap.
quint64 textHeapSize(const QByteArray &bytes, int lengthSize);
//! Returns whether a walk through a heap reaches its end. The bytes must be all of a heap.
bool textHeapHasEnd(const QByteArray &heap, int lengthSize);

} // namespace Monitor
