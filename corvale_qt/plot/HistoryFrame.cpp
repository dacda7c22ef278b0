// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/HistoryFrame_p.h"
#include "corvale_qt/plot/PixelRuns_p.h"

#include <qwt_scale_map.h>

#include <algorithm>
#include <iterator>

namespace Corvale_Qt {

void HistoryFrame::show(const RVXPlotHistory *history, double left, double right, int most)
{
    clear();
    if (!history)
        return;
    m_history = history;
    m_pieces = coverByHistory(*history, left, right, most);
    for (const HistoryPiece &piece : qAsConst(m_pieces)) {
        for (qint64 block = piece.first; block < piece.end; ++block)
            m_intervals.append(history->interval(piece.level, block));
    }
    m_reachesRows = !isEmpty() && !(m_intervals.last().first > right);
}

void HistoryFrame::clear()
{
    m_history = nullptr;
    m_pieces.clear();
    m_intervals.resize(0);
    m_places.resize(0);
}

bool HistoryFrame::isGapAfter(int i, double next) const
{
    if (!(m_gapIntervals > 0.0))
        return false;
    const auto usual = [](const RVXPlotHistory::Interval &block) {
        return block.rows > 1 ? (block.last - block.first) / (block.rows - 1) : 0.0;
    };
    const bool isLast = i + 1 == m_intervals.size();
    const double interval =
        std::max(usual(m_intervals[i]), isLast ? 0.0 : usual(m_intervals[i + 1]));
    const double step = (isLast ? next : m_intervals[i + 1].first) - m_intervals[i].last;
    return interval > 0.0 && step > m_gapIntervals * interval;
}

bool HistoryFrame::read(int column, QVector<RVXPlotHistory::Block> &blocks) const
{
    blocks.resize(m_intervals.size());
    RVXPlotHistory::Block *out = blocks.data();
    for (const HistoryPiece &piece : m_pieces) {
        const bool isThere = piece.first >= m_history->firstBlock(piece.level)
            && piece.end <= m_history->endBlock(piece.level);
        if (!isThere)
            std::fill_n(out, piece.count(), RVXPlotHistory::Block());
        else if (!m_history->read(piece.level, column, piece.first, int(piece.count()), out))
            return false;
        out += piece.count();
    }
    return true;
}

const QVector<HistoryFrame::Place> &HistoryFrame::places(const QwtScaleMap &map) const
{
    const double key[] = {map.s1(), map.s2(), map.p1(), map.p2()};
    if (m_places.size() == m_intervals.size() && !map.transformation()
        && std::equal(std::begin(key), std::end(key), m_map))
        return m_places;
    std::copy(std::begin(key), std::end(key), m_map);
    m_places.resize(0);
    for (const RVXPlotHistory::Interval &interval : m_intervals) {
        const auto [left, right] =
            std::minmax({pixelOf(map, interval.first), pixelOf(map, interval.last)});
        m_places.append({left, right});
    }
    return m_places;
}

} // namespace Corvale_Qt
