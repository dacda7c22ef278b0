// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/SpaceForecast.h"

#include "monitor/core/Text.h"

#include <cmath>

namespace Monitor {

namespace {

constexpr double shortestInterval = 1.0; // s
constexpr double memory = 30.0; // s, over which the rate is averaged

} // namespace

void SpaceForecast::note(double now, qint64 written, qint64 free)
{
    const double elapsed = now - m_notedAt;
    if (m_any && elapsed < shortestInterval) {
        m_free = free;
        return;
    }
    if (m_any && written >= m_written) {
        const double rate = double(written - m_written) / elapsed;
        const double weight = m_rate > 0.0 ? 1.0 - std::exp(-elapsed / memory) : 1.0;
        m_rate += weight * (rate - m_rate);
    }
    m_any = true;
    m_notedAt = now;
    m_written = written;
    m_free = free;
}

std::optional<double> SpaceForecast::secondsLeft() const
{
    return m_rate > 0.0 ? std::optional<double>(double(m_free) / m_rate) : std::nullopt;
}

QString SpaceForecast::text(double seconds)
{
    constexpr double minute = 60.0, hour = 3600.0, day = 86400.0, year = 365.0 * day;
    if (seconds >= year)
        return Text::tr("over a year");
    if (seconds >= 2.0 * day)
        return Text::tr("%1 d").arg(std::floor(seconds / day));
    if (seconds >= 2.0 * hour)
        return Text::tr("%1 h").arg(std::floor(seconds / hour));
    if (seconds >= minute)
        return Text::tr("%1 min").arg(std::floor(seconds / minute));
    return Text::tr("less than a minute");
}

} // namespace Monitor
