// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QItemSelectionModel>
#include <QVector>

namespace Corvale_Qt {

/*! Does what QItemSelectionModel::select() does with \a rows, which must rise. A rubber band may select thousands of rows far apart,
    of which the selection model compares each with each, both to join them and to find what has changed. Where the last selection
    is replaced, this takes a time that grows with the number of rows. The selection model emits the same signal, once. */
void selectRows(QItemSelectionModel &selection,
                const QModelIndex &parent,
                const QVector<int> &rows,
                QItemSelectionModel::SelectionFlags command);

} // namespace Corvale_Qt
