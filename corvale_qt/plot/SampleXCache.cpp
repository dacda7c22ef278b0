// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/plot/PixelRuns_p.h"
#include "corvale_qt/plot/SampleXCache_p.h"

#include <cmath>
#include <limits>

namespace Corvale_Qt {

bool SampleXCache::Request::operator==(const Request &other) const
{
    return version == other.version && memory == other.memory && count == other.count
        && s1 == other.s1 && s2 == other.s2 && p1 == other.p1 && p2 == other.p2
        && whole == other.whole;
}

const double *
SampleXCache::find(const ColumnSpans &x, quint64 version, const QwtScaleMap &map, bool whole)
{
    const Request request{version,
                          x.size[0] > 0 ? x.piece[0] : x.piece[1],
                          x.count(),
                          map.s1(),
                          map.s2(),
                          map.p1(),
                          map.p2(),
                          whole};
    // A map that bends is not told by its ends.
    const bool isKept = version != 0 && request == m_request && !map.transformation();
    if (isKept)
        return m_positions.constData();
    m_request = map.transformation() ? Request() : request;
    m_positions.resize(x.count());
    m_finite = true;
    for (int i = 0; i < m_positions.size(); ++i) {
        const double value = x.value(i);
        if (!std::isfinite(value))
            m_positions[i] = std::numeric_limits<double>::quiet_NaN();
        else
            m_positions[i] = whole ? pixelOf(map, value) : map.transform(value);
        m_finite = m_finite && std::isfinite(m_positions[i]);
    }
    return m_positions.constData();
}

} // namespace Corvale_Qt
