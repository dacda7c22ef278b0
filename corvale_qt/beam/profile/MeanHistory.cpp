// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/MeanHistory_p.h"
#include "corvale_qt/beam/profile/SpectrogramCalc.h"

#include <limits>

namespace Corvale_Qt {

void MeanHistory::append(const Entry &entry)
{
    // Time may have run back while the side bar, and with it the history, was off.
    if (!m_entries.empty() && entry.time < m_entries.back().time)
        clear();
    // Drops one entry for each new one. Entries beyond the limit from an unlimited time stay until clear().
    if (!m_unlimited && m_entries.size() >= limit) {
        m_entries.pop_front();
        m_firstShown -= m_firstShown > 0;
    }
    m_entries.push_back(entry);
    // Time rises, so the window only moves forward. The entry before it is needed to draw the line from the left edge.
    while (m_firstShown + 1 < m_entries.size()
           && m_entries[m_firstShown + 1].time < entry.time - span)
        ++m_firstShown;
}

void MeanHistory::clear()
{
    m_entries.clear();
    m_firstShown = 0;
}

void MeanHistory::mirror(bool x, bool y)
{
    for (Entry &entry : m_entries) {
        if (x && entry.meanX != SpectrogramCalc::invalid)
            entry.meanX = -entry.meanX;
        if (y && entry.meanY != SpectrogramCalc::invalid)
            entry.meanY = -entry.meanY;
    }
}

MeanSeries::MeanSeries(std::shared_ptr<const MeanHistory> history, double MeanHistory::Entry::*mean)
    : m_history(std::move(history))
    , m_mean(mean)
{
}

std::size_t MeanSeries::size() const
{
    return m_history->entries().size() - m_history->firstShown();
}

QPointF MeanSeries::sample(std::size_t i) const
{
    const MeanHistory::Entry &entry = m_history->entries()[m_history->firstShown() + i];
    const double mean = entry.*m_mean;
    return {entry.time,
            mean == SpectrogramCalc::invalid ? std::numeric_limits<double>::quiet_NaN() : mean};
}

QRectF MeanSeries::boundingRect() const
{
    return qwtBoundingRect(*this); // the curve skips what is not finite
}

} // namespace Corvale_Qt
