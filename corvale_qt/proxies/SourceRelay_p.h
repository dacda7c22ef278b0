// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/proxies/ProxyIndexes_p.h"

#include <QVarLengthArray>

namespace Corvale_Qt {

/*! What a proxy says when its source says something: the same, with the indexes mapped. One function for each of the
    signals that connectSource() wires; private classes of proxies derive from it and hide those in which they
    differ. \a Proxy makes its relay a friend, since a model's announcements are protected.

    The hooks of the proxy (sourceRowsInserted() and its like) run after the source has changed and before the
    proxy's own end signal, so that its state is up to date when views react.

    Announcements come in pairs, and so do those of the proxy. A proxy that was given its source in the middle of a
    change hears an end without its beginning: it starts anew from what is there then. A change whose source goes away
    in the middle of it is ended by the proxy itself. */
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
        Q_EMIT q->layoutChanged();
    }

    void _q_sourceModelAboutToBeReset() { beginReset(); }
    void _q_sourceModelReset()
    {
        if (m_resets == 0) {
            startAnew();
            return;
        }
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
    /*! Ends all other open changes, the last one first. While the beginning of one is being announced this waits until
        all listeners have heard of it. */
    void endChanges()
    {
        m_endsAll = m_beginning > 0;
        while (!m_endsAll && !m_open.isEmpty()) {
            const Change change = m_open.last();
            m_open.removeLast();
            end(change);
        }
    }
    bool isResetting() const { return m_resets > 0; }

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

    //! \a announce says whether there is an end to come.
    template<typename Announce>
    void begin(Change change, Announce announce)
    {
        ++m_beginning;
        if (announce())
            m_open.append(change);
        --m_beginning;
        if (m_endsAll && m_beginning == 0) {
            endChanges();
            startAnew();
        }
    }

    //! Whether \a change is open, which it is no longer then. If it is not, the proxy starts anew.
    bool take(Change change)
    {
        const int position = m_open.lastIndexOf(change);
        if (position >= 0)
            m_open.remove(position);
        else
            startAnew();
        return position >= 0;
    }

    void takeAndEnd(Change change)
    {
        if (take(change))
            end(change);
    }

    void end(Change change)
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

    void startAnew()
    {
        beginReset();
        q->sourceModelReset();
        endReset();
    }

    int m_resets = 0;
    // Announced by the source, and not ended.
    QVarLengthArray<Change, 4> m_open;
    // How many beginnings are being announced right now, and whether all is to be ended after them.
    int m_beginning = 0;
    bool m_endsAll = false;
    HeldIndexes m_held;
};

} // namespace Corvale_Qt
