// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/PrefixScaleDraw_p.h"

#include <qwt_scale_div.h>
#include <qwt_text.h>

#include <cmath>

namespace Corvale_Qt {

namespace {

//! Returns the distance of the major ticks around \a value; on a logarithmic axis it differs from tick to tick.
double stepAt(const QwtScaleDiv &scaleDiv, double value)
{
    const QList<double> ticks = scaleDiv.ticks(QwtScaleDiv::MajorTick);
    if (ticks.size() < 2)
        return value;
    const double first = std::abs(ticks[1] - ticks[0]);
    const double last = std::abs(ticks[ticks.size() - 1] - ticks[ticks.size() - 2]);
    return std::abs(last - first) > 0.5 * first ? value : first;
}

} // namespace

void PrefixScaleDraw::setPrefix(const std::optional<Units::SiPrefix> &prefix)
{
    m_prefix = prefix;
    invalidateCache();
}

QwtText PrefixScaleDraw::label(double value) const
{
    return m_prefix ? QwtText(m_prefix->tick(value, stepAt(scaleDiv(), value)))
                    : NumberScaleDraw::label(value);
}

} // namespace Corvale_Qt
