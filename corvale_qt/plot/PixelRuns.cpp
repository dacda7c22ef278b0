// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/PixelRuns_p.h"

#include <algorithm>

namespace Corvale_Qt {

void PixelRuns::begin(const QRect &clip)
{
    m_clip = clip;
    m_runs.resize(0);
    m_joints.resize(0);
    m_open = false;
}

void PixelRuns::gap()
{
    if (m_open)
        flush();
    m_open = false;
}

void PixelRuns::addColumn(int column, int first, int least, int greatest, int last)
{
    if (m_open && column == m_column) {
        m_least = std::min(m_least, least);
        m_greatest = std::max(m_greatest, greatest);
    } else {
        if (m_open) {
            joinTo(column, first);
            flush();
        }
        m_column = column;
        m_least = least;
        m_greatest = greatest;
    }
    m_last = last;
    m_open = true;
}

QVector<QLine> PixelRuns::lines() const
{
    QVector<QLine> lines = m_joints;
    lines.reserve(m_joints.size() + m_runs.size());
    for (const Run &run : m_runs)
        lines.append(QLine(run.column, run.top, run.column, run.bottom));
    return lines;
}

void PixelRuns::joinTo(int column, int y)
{
    // Qt calculates slopes with 16 bits of fraction. A long line downwards may therefore reach the right column one pixel
    // late. The length from which this happens depends on the line; below this limit it never does.
    constexpr int surelyExact = 128;
    if (column == m_column + 1 && qint64(y) - m_last < surelyExact) {
        m_least = std::min(m_least, y + 1);
        m_greatest = std::max(m_greatest, y - 1);
        return;
    }
    const bool outside = std::max(m_column, column) < m_clip.left()
        || std::min(m_column, column) > m_clip.right() || std::max(m_last, y) < m_clip.top()
        || std::min(m_last, y) > m_clip.bottom();
    if (!outside)
        m_joints.append(QLine(m_column, m_last, column, y));
}

void PixelRuns::flush()
{
    const int top = std::max(m_least, m_clip.top());
    const int bottom = std::min(m_greatest, m_clip.bottom());
    if (top <= bottom && m_column >= m_clip.left() && m_column <= m_clip.right())
        m_runs.append({m_column, top, bottom});
}

} // namespace Corvale_Qt
