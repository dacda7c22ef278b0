// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include <QItemSelection>
#include <QPersistentModelIndex>

namespace Corvale_Qt {

/*! Returns \a selection with the two corners of each range passed through \a map; a range with an invalid corner is left
    out. This is enough for flat tables, and a column of 100000 rows is not mapped cell by cell. */
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

//! Returns \a indexes, each passed through \a map.
template<typename Map>
QModelIndexList mapIndexes(const QModelIndexList &indexes, Map map)
{
    QModelIndexList mapped;
    mapped.reserve(indexes.size());
    for (const QModelIndex &index : indexes)
        mapped.append(map(index));
    return mapped;
}

/*! Follows persistent indexes of a proxy through a layout change of its source, by persistent indexes of the source. A
    cell that repeats an older sample is left out: it stays where it is. */
class HeldIndexes
{
public:
    //! Stores \a indexes with the cells of the source that \a toSource(index) returns for them.
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
    //! Returns the stored indexes of the proxy as they were before the change.
    const QModelIndexList &before() const { return m_before; }
    //! Returns where they are now, in the same order: \a fromSource(source index now, proxy index before) for each.
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
