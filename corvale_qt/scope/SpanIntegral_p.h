// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/SampleRows_p.h"

namespace Corvale_Qt {

class PlotDataReader;
class TimeGaps;
struct ScopeMarkerStatistics;

//! The integral of readings over x by the trapezoidal rule, which bridges neither missing readings nor outages.
struct SpanIntegral
{
    double integral = 0.0; //!< reading times x
    double covered = 0.0; //!< x between neighbouring readings, without that of gaps
    int outages = 0; //!< rows before which readings are missing

    //! Returns the integral of one column over a range of rows.
    static SpanIntegral
    ofRows(const PlotDataReader &reader, int column, RowRange rows, const TimeGaps &gaps);
    //! Writes the numbers into the form that hosts read.
    void writeTo(ScopeMarkerStatistics &result) const;
};

} // namespace Corvale_Qt
