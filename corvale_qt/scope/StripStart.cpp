// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/SampleRows_p.h"
#include "corvale_qt/scope/StripStart_p.h"
#include "corvale_qt/scope/StripWindow_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

void StripStart::restart()
{
    *this = StripStart();
}

void StripStart::rowsRemoved(int start, int end)
{
    const int count = end - start + 1;
    if (start != 1) {
        restart();
        return;
    }
    m_row = std::max(m_row - count, 1);
    m_checked = std::max(m_checked - count, 0);
    m_stampRow = std::max(m_stampRow - count, 0);
}

void StripStart::rowsInserted(int start)
{
    if (start <= m_checked)
        restart();
}

void StripStart::update(const PlotDataReader &reader, const StripRequest &request)
{
    if (request.samples < m_checked)
        restart();
    if (reader.xRises()) {
        restart();
        m_checked = request.samples;
        m_stampRow = request.samples;
        m_stamp = sampleX(reader, request.samples);
        return;
    }
    constexpr int chunk = 512;
    double x[chunk];
    while (m_checked < request.samples) {
        const int first = m_checked + 1;
        const int count = std::min(chunk, request.samples - m_checked);
        reader.read(0, first, count, x);
        for (int i = 0; i < count; ++i)
            look(first + i, x[i], reader, request);
        m_checked += count;
    }
}

void StripStart::look(int row, double x, const PlotDataReader &reader, const StripRequest &request)
{
    if (!std::isfinite(x))
        return;
    const bool stepsBack = m_stampRow > 0 && x < m_stamp;
    // The width before the last stamp counts, because that stamp may be the outlier.
    const int last = m_stampRow - m_row >= 2 ? m_stampRow - 1 : m_stampRow;
    if (stepsBack && m_stamp - x > shownWidth(reader, request, last))
        m_row = row;
    m_stampRow = row;
    m_stamp = x;
}

double
StripStart::shownWidth(const PlotDataReader &reader, const StripRequest &request, int lastRow) const
{
    if (request.hasWidth())
        return request.width;
    const int samples = lastRow - m_row + 1;
    if (samples < 2)
        return 0.0;
    const int counted = std::min(samples, request.sweepLength);
    const double span = sampleX(reader, lastRow) - sampleX(reader, lastRow - counted + 1);
    const double width = span / (counted - 1.0) * request.sweepLength;
    return std::isfinite(width) ? std::max(width, 0.0) : 0.0;
}

} // namespace Corvale_Qt
