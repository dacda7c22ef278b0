// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/ViewHold_p.h"

#include <qwt_scale_map.h>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

void ViewHold::show(const ViewWindow &window)
{
    if (!(window.x == m_window.x)) {
        m_rows = RowRange();
        m_isComplete = false;
    }
    if (!window.x.isValid())
        forgetRows();
    m_window = window;
}

void ViewHold::showX(const QwtInterval &x)
{
    ViewWindow window = m_window;
    window.x = x;
    show(window);
}

void ViewHold::forgetY()
{
    m_window = {m_window.x, QwtInterval(), QwtInterval()};
    for (ViewWindow &earlier : m_earlier)
        earlier = {earlier.x, QwtInterval(), QwtInterval()};
}

void ViewHold::remember()
{
    if (!m_earlier.isEmpty() && m_earlier.last() == m_window)
        return;
    if (m_earlier.size() == mostKept)
        m_earlier.removeFirst();
    m_earlier.append(m_window);
}

std::optional<ViewWindow> ViewHold::takeEarlier()
{
    while (!m_earlier.isEmpty()) {
        const ViewWindow earlier = m_earlier.takeLast();
        if (!(earlier == m_window))
            return earlier;
    }
    return std::nullopt;
}

RowRange ViewHold::rows(const PlotDataReader &reader, int firstOfPart, int lastRow)
{
    if (m_partFirst < 1)
        m_partFirst = firstOfPart;
    else if (m_partEnd == kOpen && firstOfPart > m_partFirst)
        m_partEnd = firstOfPart - 1; // another acquisition has begun
    if (!m_isComplete) {
        const RowRange searched{std::max(m_rows.first, m_partFirst),
                                m_partEnd == kOpen ? lastRow : m_partEnd};
        if (searched.size() < 1)
            return RowRange();
        m_rows = rowsAround(reader, searched, m_window.x.minValue(), m_window.x.maxValue());
        m_isComplete = sampleX(reader, m_rows.last) > m_window.x.maxValue();
    }
    return {std::max(m_rows.first, 1), m_rows.last};
}

RowRange ViewHold::part(int firstOfPart, int lastRow) const
{
    if (m_partFirst < 1)
        return {firstOfPart, lastRow};
    return {m_partFirst, m_partEnd == kOpen ? lastRow : m_partEnd};
}

void ViewHold::rowsRemoved(int start, int end)
{
    if (start != 1) {
        forgetRows();
        return;
    }
    const int count = end - start + 1;
    m_rows.first = std::max(m_rows.first - count, 0);
    m_rows.last = std::max(m_rows.last - count, 0);
    if (m_partFirst > 0)
        m_partFirst = std::max(m_partFirst - count, 1);
    if (m_partEnd != kOpen)
        m_partEnd = std::max(m_partEnd - count, 0);
}

void ViewHold::forgetRows()
{
    m_rows = RowRange();
    m_isComplete = false;
    m_partFirst = 0;
    m_partEnd = kOpen;
}

QwtInterval zoomedBy(const QwtScaleMap &map, double pixel, double factor)
{
    const double a = map.invTransform(pixel + (map.p1() - pixel) * factor);
    const double b = map.invTransform(pixel + (map.p2() - pixel) * factor);
    return QwtInterval(std::min(a, b), std::max(a, b));
}

QwtInterval movedBy(const QwtScaleMap &map, double pixels)
{
    const double a = map.invTransform(map.p1() - pixels);
    const double b = map.invTransform(map.p2() - pixels);
    return QwtInterval(std::min(a, b), std::max(a, b));
}

QwtInterval divisible(const QwtInterval &wanted)
{
    const double a = std::min(wanted.minValue(), wanted.maxValue());
    const double b = std::max(wanted.minValue(), wanted.maxValue());
    if (!std::isfinite(a) || !std::isfinite(b) || !std::isfinite(b - a) || a == b)
        return QwtInterval();
    constexpr double smallestPart = 1e-12; // a double divides this into thousands of pixels
    const double least = std::max({std::abs(a) * smallestPart, std::abs(b) * smallestPart, 1e-290});
    if (b - a >= least)
        return QwtInterval(a, b);
    const double centre = 0.5 * a + 0.5 * b;
    return QwtInterval(centre - 0.5 * least, centre + 0.5 * least);
}

QwtInterval
reachable(const QwtInterval &wanted, const QwtInterval &samples, const QwtInterval &shown)
{
    if (!wanted.isValid() || !samples.isValid())
        return wanted;
    const double widest = std::max(2.0 * samples.width(), shown.width());
    double left = wanted.minValue();
    double width = wanted.width();
    if (width > widest) {
        left += 0.5 * (width - widest);
        width = widest;
    }
    constexpr double seen = 0.05; // of the width; at least this much lies beside samples
    left = std::clamp(left,
                      samples.minValue() - (1.0 - seen) * width,
                      samples.maxValue() - seen * width);
    return QwtInterval(left, left + width);
}

} // namespace Corvale_Qt
