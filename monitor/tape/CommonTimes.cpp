// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/tape/CommonTimes.h"

#include "monitor/sources/PlayLimit.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Monitor {

namespace {

//! Returns the seconds between two moments since 1970, without the digits that such large numbers have not.
double difference(double moment, double zero)
{
    constexpr double microseconds = 1e6;
    return std::round((moment - zero) * microseconds) / microseconds;
}

} // namespace

CommonTimes::CommonTimes(const std::vector<Track> &tracks)
{
    // Moments are counted from one of them: those since 1970 would lose the last digits of the times.
    double zero = std::numeric_limits<double>::infinity();
    for (const Track &track : tracks)
        for (const Part &part : track)
            zero = std::min(zero, part.origin.value_or(zero));
    m_isDated = zero < std::numeric_limits<double>::infinity();
    m_zero = m_isDated ? zero : 0.0;
    const double begin = earliest(tracks);
    for (const Track &track : tracks)
        placeTrack(track, begin);
    layStretches(tracks);
}

//! Returns the earliest moment that a recording states for a reading.
double CommonTimes::earliest(const std::vector<Track> &tracks) const
{
    double earliest = std::numeric_limits<double>::infinity();
    for (const Track &track : tracks)
        for (const Part &part : track)
            if (part.origin)
                earliest = std::min(earliest, difference(*part.origin, m_zero) + part.firstTime);
    return m_isDated ? earliest : 0.0;
}

//! Finds the moments of the parts of one recording.
void CommonTimes::placeTrack(const Track &track, double earliest)
{
    std::vector<Place> places;
    State state;
    const auto first = std::find_if(track.begin(), track.end(), [](const Part &part) {
        return part.hasReadings;
    });
    state.isDated = first != track.end() && first->origin;
    double end = earliest; // of the parts so far
    double next = earliest; // where a part begins that states nothing
    for (const Part &part : track) {
        Place place;
        const double stated =
            part.origin ? difference(*part.origin, m_zero) + part.firstTime : next;
        const bool overlaps = !places.empty() && stated < end;
        state.movedParts += overlaps ? 1 : 0;
        place.begin = !part.hasReadings ? end : overlaps ? next : stated;
        place.origin = part.origin && !overlaps && part.hasReadings
            ? difference(*part.origin, m_zero)
            : place.begin - part.firstTime;
        place.end = place.origin + part.lastTime;
        if (part.hasReadings) {
            end = place.end;
            next = end + part.step;
        }
        places.push_back(place);
    }
    m_places.push_back(places);
    m_states.push_back(state);
}

//! Cuts the long holes out, and turns the moments of the parts into positions.
void CommonTimes::layStretches(const std::vector<Track> &tracks)
{
    std::vector<Place> all;
    for (const std::vector<Place> &places : m_places)
        all.insert(all.end(), places.begin(), places.end());
    std::sort(all.begin(), all.end(), [](const Place &a, const Place &b) {
        return a.begin < b.begin;
    });
    for (const Place &place : all) {
        const Stretch last = m_stretches.empty() ? Stretch() : m_stretches.back();
        if (!m_stretches.empty() && place.begin <= last.moment + last.length + longestHole)
            m_stretches.back().length = std::max(last.length, place.end - last.moment);
        else
            m_stretches.push_back(
                {m_stretches.empty() ? 0.0 : last.position + last.length + shownHole,
                 place.begin,
                 place.end - place.begin});
    }
    for (std::size_t track = 0; track < m_places.size(); ++track) {
        for (std::size_t part = 0; part < m_places[track].size(); ++part) {
            Place &place = m_places[track][part];
            const Stretch &its = stretchAtMoment(place.begin);
            place.shift = place.origin - (its.moment - its.position);
            // As the positions of its readings are computed, to the last bit.
            place.begin = PlayLimit::position(tracks[track][part].firstTime, place.shift);
            place.end = PlayLimit::position(tracks[track][part].lastTime, place.shift);
            m_length = std::max(m_length, place.end);
        }
    }
}

const CommonTimes::Stretch &CommonTimes::stretchAtMoment(double moment) const
{
    const auto after = std::upper_bound(m_stretches.begin() + 1,
                                        m_stretches.end(),
                                        moment,
                                        [](double wanted, const Stretch &stretch) {
                                            return wanted < stretch.moment;
                                        });
    return *(after - 1);
}

int CommonTimes::partAt(int track, double position) const
{
    const std::vector<Place> &places = m_places[std::size_t(track)];
    const auto after =
        std::upper_bound(places.begin(), places.end(), position, [](double wanted, const Place &p) {
            return wanted < p.begin;
        });
    return int(after - places.begin()) - 1;
}

double CommonTimes::momentAt(double position) const
{
    if (m_stretches.empty())
        return 0.0;
    const auto after = std::upper_bound(m_stretches.begin() + 1,
                                        m_stretches.end(),
                                        position,
                                        [](double wanted, const Stretch &stretch) {
                                            return wanted < stretch.position;
                                        });
    const Stretch &its = *(after - 1);
    return its.moment + std::clamp(position - its.position, 0.0, its.length);
}

} // namespace Monitor
