// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/statistics/LimitLog.h"

#include <algorithm>
#include <utility>

namespace Monitor {

using namespace Corvale_Qt;

void LimitLog::startStream(const StreamHeader &header)
{
    *this = LimitLog();
    setLimits(header.limits, 0.0);
}

void LimitLog::setLimits(const QVector<ChannelLimits> &limits, double time)
{
    for (int channel = 0; channel < limits.size(); ++channel) {
        const auto at = std::find_if(m_watched.begin(), m_watched.end(), [&](const Watched &each) {
            return each.channel == channel;
        });
        if (at == m_watched.end()) {
            if (!limits[channel].isEmpty())
                m_watched.push_back({channel, LimitWatch(limits[channel]), {}, 0});
            continue;
        }
        if (limits[channel] == at->watch.limits())
            continue;
        if (at->watch.state() != LimitState::Normal) {
            LimitExcursion cutShort = at->watch.excursion();
            cutShort.ended = time;
            keep(*at, cutShort);
        }
        at->watch = LimitWatch(limits[channel]);
    }
}

void LimitLog::note(Watched &each, LimitState before, double time, double reading)
{
    const LimitExcursion &former = each.watch.former();
    const bool turned = former.state != LimitState::Normal; // to the other side, in one step
    if (turned)
        keep(each, former);
    else if (each.watch.state() == LimitState::Normal)
        keep(each, each.watch.excursion());
    if (before == LimitState::Normal || turned)
        ++each.count;
    if (m_changes.size() >= mostChanges) {
        ++m_unlisted;
        return;
    }
    m_changes.push_back(
        {each.channel, time, reading, before, each.watch.state(), each.watch.excursion()});
}

void LimitLog::keep(Watched &each, const LimitExcursion &excursion)
{
    each.ended.push_back(excursion);
    if (each.ended.size() > mostExcursions)
        each.ended.pop_front();
}

const LimitLog::Watched *LimitLog::find(int channel) const
{
    const auto at = std::find_if(m_watched.begin(), m_watched.end(), [&](const Watched &each) {
        return each.channel == channel;
    });
    return at == m_watched.end() ? nullptr : &*at;
}

LimitState LimitLog::state(int channel) const
{
    const Watched *watched = find(channel);
    return watched ? watched->watch.state() : LimitState::Normal;
}

std::deque<LimitExcursion> LimitLog::excursions(int channel) const
{
    const Watched *watched = find(channel);
    if (!watched)
        return {};
    std::deque<LimitExcursion> all = watched->ended;
    if (watched->watch.state() != LimitState::Normal)
        all.push_back(watched->watch.excursion());
    return all;
}

qint64 LimitLog::excursionCount(int channel) const
{
    const Watched *watched = find(channel);
    return watched ? watched->count : 0;
}

std::vector<LimitLog::Change> LimitLog::takeChanges()
{
    return std::exchange(m_changes, {});
}

qint64 LimitLog::takeUnlisted()
{
    return std::exchange(m_unlisted, 0);
}

} // namespace Monitor
