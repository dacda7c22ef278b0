// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/numerics/ClampedInt_p.h"
#include "corvale_qt/scope/StripWindow_p.h"
#include "corvale_qt/scope/ViewHold_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

//! Returns the time that \a count samples take.
double widthOfSamples(const PlotDataReader &reader,
                      const StripWindow &window,
                      const StripRequest &request,
                      int count)
{
    const int samples = request.samples - request.first + 1;
    if (samples > 1)
        return (window.newest - window.firstRow) / samples * count;
    return typicalInterval(reader, request.samples)
        * count; // measured on the rows before the chart
}

double
wantedLeft(const PlotDataReader &reader, const StripWindow &window, const StripRequest &request)
{
    if (request.whole)
        return window.oldest;
    if (request.hasWidth())
        return window.newest - request.width;
    const int missing = request.sweepLength - (request.samples - request.first + 1);
    if (missing < 0)
        return sampleX(reader, request.first - missing);
    // The trace does not fill the chart yet, so it begins inside.
    return window.firstRow - widthOfSamples(reader, window, request, missing);
}

//! Returns whether numbers as large as the end that is asked for still differ within the window.
bool canEndAt(const StripRequest &request, const StripWindow &window)
{
    const double left = request.whole ? window.oldest : request.end - request.width;
    const QwtInterval wanted = QwtInterval(left, request.end).normalized();
    return divisible(wanted) == wanted;
}

double
followingLeft(const PlotDataReader &reader, const StripWindow &window, const StripRequest &request)
{
    const double left = wantedLeft(reader, window, request);
    // Samples at a single moment have no width, so the chart keeps the wanted one.
    const bool hasTimeBefore = left < window.oldest && window.oldest < window.newest;
    return request.beginsAtFirst && hasTimeBefore ? window.oldest : left;
}

/*! Moves a window of constant width by whole pixels: it ends at the newest sample, or less than a pixel later. Its pixel columns
    are those of any other moment, and what is drawn in them stays. */
void alignToPixels(StripWindow &window, double width, int pixels)
{
    const PixelGrid grid = PixelGrid::endingAt(window.right, width, pixels);
    if (!grid.isValid())
        return;
    window.grid = grid;
    window.left = grid.x(grid.left);
    window.right = grid.x(grid.left + pixels);
}

} // namespace

int toScrollUnits(double value)
{
    return std::isfinite(value) ? clampedToInt(std::round(value), 0) : 0;
}

bool StripRequest::hasWidth() const
{
    return width > 0.0 && std::isfinite(width);
}

StripWindow stripWindow(const PlotDataReader &reader, const StripRequest &request)
{
    StripWindow window;
    window.firstRow = sampleX(reader, request.first);
    window.oldest = std::min(window.firstRow, request.remembered);
    window.newest = sampleX(reader, request.samples);
    const bool isTimed = request.whole || request.hasWidth();
    if (isTimed && request.end > window.newest && canEndAt(request, window))
        window.newest = request.end;
    if (request.following) {
        window.left = followingLeft(reader, window, request);
        window.right = window.newest;
        // Disordered time stamps must not reverse the axis.
        if (window.left > window.right)
            window.left =
                window.right - typicalInterval(reader, request.samples) * request.sweepLength;
        // A chart that grows with its samples has other columns at each moment.
        if (request.hasWidth() && !request.whole && window.left == window.right - request.width)
            alignToPixels(window, request.width, request.pixels);
    } else {
        window.left = request.scrollValue / request.scrollUnits + window.oldest;
        window.right = window.left
            + (request.hasWidth() ? request.width
                                  : widthOfSamples(reader, window, request, request.sweepLength));
    }
    window.rows = rowsAround(reader, {request.first, request.samples}, window.left, window.right);
    return window;
}

StripScrollBar stripScrollBar(const StripWindow &window, const StripRequest &request)
{
    const double span = window.right - window.left;
    const double hidden = window.newest - window.oldest - span;
    StripScrollBar bar;
    const double longest = std::max(hidden, span);
    while (std::isfinite(longest) && longest * bar.units > std::numeric_limits<int>::max())
        bar.units /= 10.0;

    bar.maximum = toScrollUnits(hidden * bar.units);
    bar.pageStep = toScrollUnits(std::floor(span * bar.units));
    bar.singleStep = std::max(1, toScrollUnits(span * bar.units / request.sweepLength));
    if (request.following)
        bar.value = bar.maximum;
    else if (bar.units == request.scrollUnits)
        bar.value = request.scrollValue;
    else
        bar.value = toScrollUnits((window.left - window.oldest) * bar.units);
    return bar;
}

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
