// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/HistoryCover_p.h"

#include <algorithm>
#include <limits>

namespace Corvale_Qt {

namespace {

using Interval = RVXPlotHistory::Interval;

//! Searches the blocks of one history.
class Coverer
{
public:
    Coverer(const RVXPlotHistory &history, double left, double right)
        : m_history(history)
        , m_left(left)
        , m_right(right)
    {
    }

    //! Returns the blocks of a window that are at least those of \a level, as far as there are such blocks.
    QVector<HistoryPiece> cover(int level) const
    {
        QVector<HistoryPiece> pieces;
        qint64 row = 0; // all rows before it are covered
        for (int above = m_history.levels() - 1; above >= level; --above) {
            const qint64 next =
                above > level ? firstRowOf(above - 1) : std::numeric_limits<qint64>::max();
            row = add(pieces, above, row, next);
        }
        for (int below = level - 1; below >= 0; --below)
            row = add(pieces, below, row, std::numeric_limits<qint64>::max());
        return pieces;
    }

private:
    //! Returns the row that the oldest block of a level begins with; the largest number without blocks.
    qint64 firstRowOf(int level) const
    {
        const qint64 first = m_history.firstBlock(level);
        return first < m_history.endBlock(level) ? m_history.interval(level, first).firstRow
                                                 : std::numeric_limits<qint64>::max();
    }

    /*! Adds the blocks of a level from row \a from on that begin before row \a to, as far as the window shows them. Returns the
        row that is to be covered next. */
    qint64 add(QVector<HistoryPiece> &pieces, int level, qint64 from, qint64 to) const
    {
        const qint64 begin = m_history.firstBlock(level);
        const qint64 first = find(level, begin, [from](const Interval &block) {
            return block.firstRow >= from;
        });
        const qint64 end = find(level, first, [to](const Interval &block) {
            return block.firstRow >= to;
        });
        if (first == end)
            return from;
        const Interval last = m_history.interval(level, end - 1);
        append(pieces, level, first, end);
        return last.firstRow + last.rows;
    }

    //! Appends those of the blocks that the window shows, with one beyond either edge.
    void append(QVector<HistoryPiece> &pieces, int level, qint64 first, qint64 end) const
    {
        const qint64 inside = find(level, first, [this](const Interval &block) {
            return block.last >= m_left;
        });
        const qint64 beyond = find(level, inside, [this](const Interval &block) {
            return block.first > m_right;
        });
        const HistoryPiece piece{level,
                                 std::max(std::min(inside, end) - 1, first),
                                 std::min(beyond + 1, end)};
        // Only the nearest block beyond the left edge is shown.
        if (!pieces.isEmpty() && isBefore(piece))
            pieces.clear();
        if (piece.first < piece.end && (pieces.isEmpty() || !isBeyond(pieces.last())))
            pieces.append(piece);
    }

    //! Returns whether the first block of a piece ends before the window, as then do all pieces before.
    bool isBefore(const HistoryPiece &piece) const
    {
        return piece.first < piece.end
            && m_history.interval(piece.level, piece.first).last < m_left;
    }
    //! Returns whether the last block of a piece begins beyond the window.
    bool isBeyond(const HistoryPiece &piece) const
    {
        return m_history.interval(piece.level, piece.end - 1).first > m_right;
    }

    //! Returns the first block from \a first on that meets a condition, if all blocks after it do, or else the end.
    template<typename Condition>
    qint64 find(int level, qint64 first, Condition condition) const
    {
        qint64 count = m_history.endBlock(level) - first;
        while (count > 0) {
            const qint64 half = count / 2;
            if (condition(m_history.interval(level, first + half))) {
                count = half;
            } else {
                first += half + 1;
                count -= half + 1;
            }
        }
        return first;
    }

    const RVXPlotHistory &m_history;
    double m_left;
    double m_right;
};

} // namespace

QVector<HistoryPiece>
coverByHistory(const RVXPlotHistory &history, double left, double right, qint64 most)
{
    const Coverer coverer(history, left, right);
    QVector<HistoryPiece> pieces;
    for (int level = 0; level < history.levels(); ++level) {
        pieces = coverer.cover(level);
        if (blocksOf(pieces) <= most)
            break;
    }
    return pieces;
}

qint64 blocksOf(const QVector<HistoryPiece> &pieces)
{
    qint64 blocks = 0;
    for (const HistoryPiece &piece : pieces)
        blocks += piece.count();
    return blocks;
}

} // namespace Corvale_Qt
