// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/ScopeMarkerStatistics.h"

#include <cmath>

namespace Corvale_Qt {

namespace {

bool isSame(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

} // namespace

bool ScopeMarkerStatistics::Marker::operator==(const Marker &other) const
{
    return isSet == other.isSet && row == other.row && channel == other.channel
        && isSame(time, other.time) && isSame(reading, other.reading);
}

bool ScopeMarkerStatistics::operator==(const ScopeMarkerStatistics &other) const
{
    return first == other.first && second == other.second && isSame(period, other.period)
        && isSame(frequency, other.frequency) && isSame(difference, other.difference)
        && count == other.count && missing == other.missing && isSame(sum, other.sum)
        && isSame(mean, other.mean) && isSame(rms, other.rms)
        && isSame(standardDeviation, other.standardDeviation) && isSame(integral, other.integral)
        && isSame(coveredTime, other.coveredTime) && outages == other.outages
        && isSame(minimum, other.minimum) && isSame(maximum, other.maximum)
        && isSame(slope, other.slope) && isSame(blocksBegin, other.blocksBegin)
        && isSame(blocksEnd, other.blocksEnd);
}

} // namespace Corvale_Qt
