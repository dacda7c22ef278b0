// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QItemSelection>

namespace Corvale_Qt {

/*! Each range of \a selection between its corners as \a map gives them; a range that loses a corner is left out. Flat
    tables need no more, and a column of 100000 rows is not mapped cell by cell. */
template<typename Map>
QItemSelection mapRanges(const QItemSelection &selection, Map map)
{
    QItemSelection mapped;
    for (const QItemSelectionRange &range : selection) {
        const QModelIndex topLeft = map(range.topLeft());
        const QModelIndex bottomRight = map(range.bottomRight());
        if (topLeft.isValid() && bottomRight.isValid())
            mapped.append(QItemSelectionRange(topLeft, bottomRight));
    }
    return mapped;
}

//! Each of \a indexes as \a map gives it.
template<typename Map>
QModelIndexList mapIndexes(const QModelIndexList &indexes, Map map)
{
    QModelIndexList mapped;
    mapped.reserve(indexes.size());
    for (const QModelIndex &index : indexes)
        mapped.append(map(index));
    return mapped;
}

} // namespace Corvale_Qt
