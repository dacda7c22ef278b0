// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QtGlobal>

class QwtScaleMap;

namespace Corvale_Qt {

struct ColumnSpans;

/*! Identifies the pixels that the samples of a chart have along the x axis. What was found for a key is right for each key
    that matches it, so all channels of a chart share one result. */
class SampleXKey
{
public:
    SampleXKey() = default;
    //! \a version is that of x in RVXBulkPlotData::xVersion(); 0 means that changes of x are not counted.
    SampleXKey(const ColumnSpans &x, quint64 version, const QwtScaleMap &map);

    /*! Returns true if both keys are certain to mean the same pixels. Keys without a version match none, and neither do those
        of a map with a transformation, which its ends do not describe. */
    bool matches(const SampleXKey &other) const;

private:
    quint64 m_version = 0;
    const double *m_memory = nullptr; // of the first sample
    int m_count = 0;
    double m_scale[2] = {0.0, 0.0};
    double m_paint[2] = {0.0, 0.0};
};

} // namespace Corvale_Qt
