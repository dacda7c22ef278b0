// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/plot/PixelRuns_p.h"
#include "corvale_qt/plot/SampleXCache_p.h"

#include <cmath>
#include <limits>

namespace Corvale_Qt {

const double *
SampleXCache::find(const ColumnSpans &x, quint64 version, const QwtScaleMap &map, bool whole)
{
    const SampleXKey key(x, version, map);
    if (key.matches(m_key) && whole == m_whole)
        return m_positions.constData();
    m_key = key;
    m_whole = whole;
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
