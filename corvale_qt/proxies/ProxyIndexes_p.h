// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QItemSelection>
#include <QPersistentModelIndex>

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

/*! Cells of a proxy, held by the cells of its source while those change places. A cell that repeats another one's
    sample is not held: it stays where it is. */
class HeldIndexes
{
public:
    //! Holds \a indexes, each by the cell of the source that \a toSource gives for it.
    template<typename ToSource>
    void hold(const QModelIndexList &indexes, ToSource toSource)
    {
        clear();
        for (const QModelIndex &index : indexes) {
            const QModelIndex source = toSource(index);
            if (source.row() != index.row())
                continue;
            m_before.append(index);
            m_sources.append(source);
        }
    }
    //! The cells as they were held.
    const QModelIndexList &before() const { return m_before; }
    //! Where they are now, in the same order: as \a fromSource says of a cell of the source and the cell as it was.
    template<typename FromSource>
    QModelIndexList now(FromSource fromSource) const
    {
        QModelIndexList indexes;
        for (int i = 0; i < m_before.size(); ++i)
            indexes.append(fromSource(m_sources[i], m_before[i]));
        return indexes;
    }
    void clear()
    {
        m_before.clear();
        m_sources.clear();
    }

private:
    QModelIndexList m_before;
    QList<QPersistentModelIndex> m_sources;
};

} // namespace Corvale_Qt
