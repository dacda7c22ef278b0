// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/scope/ScopePlotMode_p.h"

namespace Corvale_Qt {

ScopePlotMode::ScopePlotMode(ScopeContext &context)
    : m_context(context)
{
}

ScopePlotMode::~ScopePlotMode() = default;

void ScopePlotMode::moveMarker(int, int) { }

ScopeMarkerStatistics ScopePlotMode::markerStatistics() const
{
    return ScopeMarkerStatistics();
}

bool ScopePlotMode::showsReadings() const
{
    return false;
}

bool ScopePlotMode::showSample(double)
{
    return false;
}

QwtInterval ScopePlotMode::timeExtent() const
{
    return QwtInterval();
}

HoverReading ScopePlotMode::readingAt(double) const
{
    return HoverReading();
}

QString ScopePlotMode::missingText() const
{
    return QString();
}

} // namespace Corvale_Qt
