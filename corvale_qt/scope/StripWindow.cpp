// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/scope/StripWindow_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

bool hasWidth(const StripRequest &request)
{
    return request.width > 0.0 && std::isfinite(request.width);
}

//! Mean distance of samples times how many the chart shows.
double widthOfSamples(const StripWindow &window, const StripRequest &request, int count)
{
    return (window.newest - window.oldest) / request.samples * count;
}

double followingLeft(const PlotColumnReader &reader,
                     const StripWindow &window,
                     const StripRequest &request)
{
    if (hasWidth(request))
        return window.newest - request.width;
    const int missing = request.sweepLength - request.samples;
    if (missing < 0)
        return sampleX(reader, 1 - missing);
    // The trace has not filled the chart yet and begins inside it.
    return window.oldest - widthOfSamples(window, request, missing);
}

int toScrollUnits(double value)
{
    constexpr double largest = std::numeric_limits<int>::max();
    return std::isfinite(value) ? int(std::lround(std::clamp(value, 0.0, largest))) : 0;
}

} // namespace

bool StripWindow::isFinite() const
{
    return std::isfinite(left) && std::isfinite(right) && std::isfinite(right - left);
}

StripWindow stripWindow(const PlotColumnReader &reader, const StripRequest &request)
{
    StripWindow window;
    window.oldest = sampleX(reader, 1);
    window.newest = sampleX(reader, request.samples);
    if (request.following) {
        window.left = followingLeft(reader, window, request);
        window.right = window.newest;
    } else {
        window.left = request.scrollValue / request.scrollUnits + window.oldest;
        window.right = window.left
            + (hasWidth(request) ? request.width
                                 : widthOfSamples(window, request, request.sweepLength));
    }
    window.rows = rowsAround(reader, request.samples, window.left, window.right);
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

} // namespace Corvale_Qt
