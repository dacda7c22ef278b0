// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/SampleXKey_p.h"

#include <QVector>

class QwtScaleMap;

namespace Corvale_Qt {

struct ColumnSpans;

//! Finds the pixels of samples along the x axis, and keeps them for the other channels of the chart.
class SampleXCache
{
public:
    /*! Returns the x of all samples of \a x in pixels, rounded as Qwt rounds if \a whole is true; a NaN for samples that are
        not finite. \a version is that of x in RVXBulkPlotData::xVersion(). The array is valid until the next call. */
    const double *find(const ColumnSpans &x, quint64 version, const QwtScaleMap &map, bool whole);
    //! Returns true if all positions that were found last are finite.
    bool areFinite() const { return m_finite; }

private:
    SampleXKey m_key;
    bool m_whole = false;
    QVector<double> m_positions;
    bool m_finite = false;
};

} // namespace Corvale_Qt
