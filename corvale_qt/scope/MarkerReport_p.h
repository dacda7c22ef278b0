// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QString>

namespace Corvale_Qt {

class ScopeModel;
struct ScopeMarkerStatistics;

/*! Returns what the markers read as lines of text whose cells are separated by tabs, so that a spreadsheet takes them: the
    samples with time, channel and reading, and each statistic with its unit. A number that does not exist has no line. Empty
    if no marker is set. */
QString markerReport(const ScopeMarkerStatistics &statistics, const ScopeModel &model);

} // namespace Corvale_Qt
