// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/plot/SampleXKey_p.h"

#include <qwt_scale_map.h>

#include <algorithm>
#include <iterator>

namespace Corvale_Qt {

SampleXKey::SampleXKey(const ColumnSpans &x, quint64 version, const QwtScaleMap &map)
    : m_version(map.transformation() ? 0 : version)
    , m_memory(x.size[0] > 0 ? x.piece[0] : x.piece[1])
    , m_count(x.count())
    , m_scale{map.s1(), map.s2()}
    , m_paint{map.p1(), map.p2()}
{
}

bool SampleXKey::matches(const SampleXKey &other) const
{
    return m_version != 0 && m_version == other.m_version && m_memory == other.m_memory
        && m_count == other.m_count
        && std::equal(std::begin(m_scale), std::end(m_scale), std::begin(other.m_scale))
        && std::equal(std::begin(m_paint), std::end(m_paint), std::begin(other.m_paint));
}

} // namespace Corvale_Qt
