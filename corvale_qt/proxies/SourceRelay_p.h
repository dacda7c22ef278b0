// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QList>
#include <QModelIndex>
#include <QPersistentModelIndex>

namespace Corvale_Qt {

/*! What a proxy says when its source says something: the same, with the indexes mapped. One function for each of the
    signals that connectSource() wires; private classes of proxies derive from it and hide those in which they
    differ. \a Proxy makes its relay a friend, since a model's announcements are protected.

    The hooks of the proxy (sourceRowsInserted() and its like) run after the source has changed and before the
    proxy's own end signal, so that its state is up to date when views react. */
template<typename Proxy>
class SourceRelay
{
public:
    explicit SourceRelay(Proxy *proxy)
        : q(proxy)
    {
    }

    void _q_sourceRowsAboutToBeInserted(const QModelIndex &parent, int first, int last)
    {
        q->beginInsertRows(q->mapFromSource(parent), first, last);
    }
    void _q_sourceRowsInserted(const QModelIndex &parent, int first, int last)
    {
        q->sourceRowsInserted(parent, first, last);
        q->endInsertRows();
    }

    void _q_sourceRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
    {
        q->beginRemoveRows(q->mapFromSource(parent), first, last);
    }
    void _q_sourceRowsRemoved(const QModelIndex &parent, int first, int last)
    {
        q->sourceRowsRemoved(parent, first, last);
        q->endRemoveRows();
    }

    void _q_sourceRowsAboutToBeMoved(const QModelIndex &from,
                                     int first,
                                     int last,
                                     const QModelIndex &to,
                                     int row)
    {
        m_movesRows =
            q->beginMoveRows(q->mapFromSource(from), first, last, q->mapFromSource(to), row);
    }
    void _q_sourceRowsMoved(const QModelIndex &, int, int, const QModelIndex &, int)
    {
        if (m_movesRows)
            q->endMoveRows();
    }

    void _q_sourceColumnsAboutToBeInserted(const QModelIndex &parent, int first, int last)
    {
        q->beginInsertColumns(q->mapFromSource(parent), first, last);
    }
    void _q_sourceColumnsInserted(const QModelIndex &, int, int) { q->endInsertColumns(); }

    void _q_sourceColumnsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
    {
        q->beginRemoveColumns(q->mapFromSource(parent), first, last);
    }
    void _q_sourceColumnsRemoved(const QModelIndex &, int, int) { q->endRemoveColumns(); }

    void _q_sourceColumnsAboutToBeMoved(const QModelIndex &from,
                                        int first,
                                        int last,
                                        const QModelIndex &to,
                                        int column)
    {
        m_movesColumns =
            q->beginMoveColumns(q->mapFromSource(from), first, last, q->mapFromSource(to), column);
    }
    void _q_sourceColumnsMoved(const QModelIndex &, int, int, const QModelIndex &, int)
    {
        if (m_movesColumns)
            q->endMoveColumns();
    }

    void _q_sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight)
    {
        const QModelIndex from = q->mapFromSource(topLeft);
        const QModelIndex to = q->mapFromSource(bottomRight);
        q->sourceDataChanged(from, to);
        Q_EMIT q->dataChanged(from, to);
    }

    void _q_sourceHeaderDataChanged(Qt::Orientation orientation, int first, int last)
    {
        Q_EMIT q->headerDataChanged(orientation, first, last);
    }

    void _q_sourceLayoutAboutToBeChanged()
    {
        // Views keep their selections in persistent indexes when they hear this, so it comes before the search.
        Q_EMIT q->layoutAboutToBeChanged();
        const auto persistent = q->persistentIndexList();
        for (const QModelIndex &index : persistent) {
            const QModelIndex source = q->mapToSource(index);
            const QModelIndex back = q->mapFromSource(source);
            // A cell that repeats another one's sample stays where it is.
            if (back.row() != index.row() || back.column() != index.column())
                continue;
            m_layoutProxyIndexes.append(index);
            m_layoutSourceIndexes.append(source);
        }
    }
    void _q_sourceLayoutChanged()
    {
        for (int i = 0; i < m_layoutProxyIndexes.size(); ++i)
            q->changePersistentIndex(m_layoutProxyIndexes[i],
                                     q->mapFromSource(m_layoutSourceIndexes[i]));
        m_layoutProxyIndexes.clear();
        m_layoutSourceIndexes.clear();
        Q_EMIT q->layoutChanged();
    }

    void _q_sourceModelAboutToBeReset() { beginReset(); }
    void _q_sourceModelReset()
    {
        q->sourceModelReset();
        endReset();
    }

    //! Resets may stand within each other; views hear of the outermost.
    void beginReset()
    {
        if (m_resets++ == 0)
            q->beginResetModel();
    }
    void endReset()
    {
        if (m_resets > 0 && --m_resets == 0)
            q->endResetModel();
    }
    //! Ends all resets, those too whose end the source will never announce.
    void endAllResets()
    {
        m_resets = qMin(m_resets, 1);
        endReset();
    }
    bool isResetting() const { return m_resets > 0; }

protected:
    Proxy *const q;

private:
    int m_resets = 0;
    bool m_movesRows = false;
    bool m_movesColumns = false;
    QList<QModelIndex> m_layoutProxyIndexes;
    QList<QPersistentModelIndex> m_layoutSourceIndexes;
};

} // namespace Corvale_Qt
