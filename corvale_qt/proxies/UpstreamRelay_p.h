// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include "corvale_qt/proxies/ProxyIndexes_p.h"

#include <QVarLengthArray>

#include <algorithm>
#include <utility>

namespace Corvale_Qt {

/*! Makes a proxy announce what its source announces, with the indexes mapped. It has one function for each signal that
    connectUpstream() connects; the private class of a proxy derives from it.
    \a Proxy makes its relay a friend, since a model's announcements are protected.

    The hooks of the proxy, such as sourceRowsInserted(), run after the source has changed and before the proxy's
    end signal, so that the proxy is up to date when views react.

    Announcements of the proxy always come in pairs. If it got its source in the middle of a change, and so hears an
    end without a beginning, it resets. If it loses its source in the middle of a change, it ends the change itself.

    Listeners may hear of a change before the proxy does, and reset the proxy or change the source once more. What the
    proxy keeps may then hold the change already, so such a change ends within a reset, in which the proxy starts afresh. */
template<typename Proxy>
class UpstreamRelay
{
public:
    explicit UpstreamRelay(Proxy *proxy)
        : q(proxy)
    {
    }

    void _q_sourceRowsAboutToBeInserted(const QModelIndex &parent, int first, int last)
    {
        begin(Change::RowInsertion, [&] {
            q->beginInsertRows(q->mapFromSource(parent), first, last);
            return true;
        });
    }
    void _q_sourceRowsInserted(const QModelIndex &parent, int first, int last)
    {
        if (!take(Change::RowInsertion))
            return;
        q->sourceRowsInserted(parent, first, last);
        end(Change::RowInsertion);
        announceChanged();
    }

    void _q_sourceRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
    {
        begin(Change::RowRemoval, [&] {
            q->beginRemoveRows(q->mapFromSource(parent), first, last);
            return true;
        });
    }
    void _q_sourceRowsRemoved(const QModelIndex &parent, int first, int last)
    {
        if (!take(Change::RowRemoval))
            return;
        q->sourceRowsRemoved(parent, first, last);
        end(Change::RowRemoval);
        announceChanged();
    }

    void _q_sourceRowsAboutToBeMoved(const QModelIndex &from,
                                     int first,
                                     int last,
                                     const QModelIndex &to,
                                     int row)
    {
        begin(Change::RowMove, [&] {
            return q->beginMoveRows(q->mapFromSource(from), first, last, q->mapFromSource(to), row);
        });
    }
    void _q_sourceRowsMoved(const QModelIndex &, int, int, const QModelIndex &, int)
    {
        takeAndEnd(Change::RowMove);
        announceChanged();
    }

    void _q_sourceColumnsAboutToBeInserted(const QModelIndex &parent, int first, int last)
    {
        begin(Change::ColumnInsertion, [&] {
            q->beginInsertColumns(q->mapFromSource(parent), first, last);
            return true;
        });
    }
    void _q_sourceColumnsInserted(const QModelIndex &, int, int)
    {
        takeAndEnd(Change::ColumnInsertion);
    }

    void _q_sourceColumnsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
    {
        begin(Change::ColumnRemoval, [&] {
            q->beginRemoveColumns(q->mapFromSource(parent), first, last);
            return true;
        });
    }
    void _q_sourceColumnsRemoved(const QModelIndex &, int, int)
    {
        takeAndEnd(Change::ColumnRemoval);
    }

    void _q_sourceColumnsAboutToBeMoved(const QModelIndex &from,
                                        int first,
                                        int last,
                                        const QModelIndex &to,
                                        int column)
    {
        begin(Change::ColumnMove, [&] {
            return q->beginMoveColumns(q->mapFromSource(from),
                                       first,
                                       last,
                                       q->mapFromSource(to),
                                       column);
        });
    }
    void _q_sourceColumnsMoved(const QModelIndex &, int, int, const QModelIndex &, int)
    {
        takeAndEnd(Change::ColumnMove);
    }

    void _q_sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight)
    {
        // It may come in the middle of a change that gives the cells other places.
        m_isOvertaken = m_isOvertaken || mayShiftCells();
        const QModelIndex from = q->mapFromSource(topLeft);
        const QModelIndex to = q->mapFromSource(bottomRight);
        q->sourceDataChanged(from, to);
        const bool reachesFurther =
            std::exchange(m_changedFrom, 0) > 0 && to.row() < q->rowCount() - 1;
        Q_EMIT q->dataChanged(from, reachesFurther ? q->index(q->rowCount() - 1, to.column()) : to);
    }

    void _q_sourceHeaderDataChanged(Qt::Orientation orientation, int first, int last)
    {
        Q_EMIT q->headerDataChanged(orientation, first, last);
    }

    void _q_sourceLayoutAboutToBeChanged()
    {
        // Views store their selections in persistent indexes when they receive this signal, so it comes first.
        Q_EMIT q->layoutAboutToBeChanged();
        m_held.hold(q->persistentIndexList(), [this](const QModelIndex &index) {
            return q->mapToSource(index);
        });
    }
    void _q_sourceLayoutChanged()
    {
        const auto now = m_held.now([this](const QModelIndex &source, const QModelIndex &) {
            return q->mapFromSource(source);
        });
        q->changePersistentIndexList(m_held.before(), now);
        m_held.clear();
        m_isOvertaken = true;
        Q_EMIT q->layoutChanged();
    }

    void _q_sourceModelAboutToBeReset() { beginReset(); }
    void _q_sourceModelReset()
    {
        if (m_resets == 0) {
            reset();
            return;
        }
        q->sourceModelReset();
        endReset();
    }

    //! Begins a reset. Resets may be nested; views hear of the outermost only.
    void beginReset()
    {
        m_isOvertaken = true;
        if (m_resets++ == 0)
            q->beginResetModel();
    }
    void endReset()
    {
        if (m_resets > 0 && --m_resets == 0)
            q->endResetModel();
    }
    //! Ends all resets, including those whose end the source will never announce.
    void endAllResets()
    {
        m_resets = qMin(m_resets, 1);
        endReset();
    }
    /*! Ends all open changes other than resets, the last one first. If the beginning of a change is being emitted, this
        happens once all listeners have heard it. */
    void endChanges()
    {
        m_endsAll = m_beginning > 0;
        while (!m_endsAll && !m_open.isEmpty()) {
            const Change change = m_open.last();
            m_open.removeLast();
            end(change);
        }
    }

    //! Makes the rows from \a row to the newest changed as well, beside those of the change whose hook calls this.
    void alsoChanged(int row) { m_changedFrom = row; }

protected:
    Proxy *const q;

private:
    enum class Change {
        RowInsertion,
        RowRemoval,
        RowMove,
        ColumnInsertion,
        ColumnRemoval,
        ColumnMove
    };

    //! Opens \a change. \a announce tells the views and returns whether an end will follow.
    template<typename Announce>
    void begin(Change change, Announce announce)
    {
        const bool isInner = m_beginning > 0 || !m_open.isEmpty();
        const bool isOfRows = change == Change::RowInsertion || change == Change::RowRemoval;
        m_isOvertaken = isInner && (m_isOvertaken || mayShiftCells() || !isOfRows);
        ++m_beginning;
        if (announce())
            m_open.append(change);
        --m_beginning;
        if (m_endsAll && m_beginning == 0) {
            endChanges();
            reset();
        }
    }

    //! Removes \a change from the open ones and returns true. Resets and returns false if it is not among them.
    bool take(Change change)
    {
        if (!m_open.isEmpty() && m_open.last() == change) { // as nearly always
            m_open.removeLast();
            return true;
        }
        const int position = m_open.lastIndexOf(change);
        if (position >= 0)
            m_open.remove(position);
        else
            reset();
        return position >= 0;
    }

    void takeAndEnd(Change change)
    {
        if (take(change))
            end(change);
    }

    void end(Change change)
    {
        const bool startsAfresh = m_isOvertaken && m_open.isEmpty();
        if (startsAfresh)
            beginReset();
        announceEnd(change);
        if (startsAfresh) {
            q->sourceModelReset();
            endReset();
        }
    }

    void announceEnd(Change change)
    {
        switch (change) {
        case Change::RowInsertion:
            q->endInsertRows();
            break;
        case Change::RowRemoval:
            q->endRemoveRows();
            break;
        case Change::RowMove:
            q->endMoveRows();
            break;
        case Change::ColumnInsertion:
            q->endInsertColumns();
            break;
        case Change::ColumnRemoval:
            q->endRemoveColumns();
            break;
        case Change::ColumnMove:
            q->endMoveColumns();
            break;
        }
    }

    /*! Returns whether a change is open that gives cells of the source other places. Rows that are inserted, nearly always
        at the end, leave the others where they are; some models open their insertion around the removal of the oldest row. */
    bool mayShiftCells() const
    {
        return m_beginning > 0 || std::any_of(m_open.begin(), m_open.end(), [](Change change) {
                   return change != Change::RowInsertion;
               });
    }

    //! Emits dataChanged() from the row that a hook passed to alsoChanged() to the newest.
    void announceChanged()
    {
        const int first = std::exchange(m_changedFrom, 0);
        if (first < 1)
            return; // nearly always: the counts below ask all models beneath
        const int last = q->rowCount() - 1;
        const int lastColumn = q->columnCount() - 1;
        if (first <= last && lastColumn >= 1)
            Q_EMIT q->dataChanged(q->index(first, 1), q->index(last, lastColumn));
    }

    void reset()
    {
        beginReset();
        q->sourceModelReset();
        endReset();
    }

    int m_resets = 0;
    // Changes that the source has begun and not ended.
    QVarLengthArray<Change, 4> m_open;
    // How many beginnings are being emitted right now, and whether all changes end after them.
    int m_beginning = 0;
    bool m_endsAll = false;
    // Whether the proxy was reset, or the source changed again, since the outermost open change began.
    bool m_isOvertaken = false;
    // The row that a hook passed to alsoChanged(); 0 for none.
    int m_changedFrom = 0;
    HeldIndexes m_held;
};

} // namespace Corvale_Qt
