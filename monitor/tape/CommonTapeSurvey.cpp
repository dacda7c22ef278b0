// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/tape/CommonTape.h"
#include "monitor/tape/TapeIndexThread.h"

#include <cmath>

namespace Monitor {

//! The outline is that of the first recording: sums of different instruments have no common scale.
TapeSurvey CommonTape::surveyOfTracks() const
{
    TapeSurvey survey;
    survey.length = m_times.length();
    if (m_tracks.empty())
        return survey;
    const double leadOrigin = m_times.origin(0, 0);
    for (const CommonTimes::Stretch &stretch : m_times.stretches()) {
        survey.stretches.append({stretch.position, stretch.moment - leadOrigin, stretch.length});
        if (stretch.position > 0.0)
            survey.borders.append(stretch.position);
    }
    for (int track = 0; track < count(); ++track) {
        TapeSurvey::Lane lane{m_tracks[std::size_t(track)].name, {}};
        for (int part = 0; part < m_times.parts(track); ++part)
            lane.covered.append({m_times.begin(track, part),
                                 m_tracks[std::size_t(track)].index.part(part).firstTime,
                                 m_times.end(track, part) - m_times.begin(track, part)});
        survey.lanes.append(lane);
        addMarks(track, &survey);
    }
    survey.outline = [this](int columns) {
        return m_tracks.front().index.outline(columns, length(), [this](const TapeSpot &spot) {
            return m_times.shift(0, spot.part) + spot.time;
        });
    };
    return survey;
}

void CommonTape::addMarks(int track, TapeSurvey *survey) const
{
    const Track &its = m_tracks[std::size_t(track)];
    for (const TapeMark &mark : its.index.marks()) {
        const int part = std::clamp(mark.spot.part, 0, m_times.parts(track) - 1);
        const double time = std::max(mark.spot.time, its.index.part(part).firstTime);
        survey->marks.append(
            {mark.kind, m_times.shift(track, part) + time, mark.length, mark.text, its.name});
    }
}

TapeReadout CommonTape::readoutAt(double position) const
{
    if (m_tracks.empty() || !m_isPlaced)
        return {};
    const double moment = m_times.momentAt(position);
    TapeReadout readout;
    readout.isInGap = survey().isInGap(position);
    readout.time = moment - m_times.origin(0, 0);
    constexpr double milliseconds = 1000.0;
    if (m_times.isDated())
        readout.moment = QDateTime::fromMSecsSinceEpoch(
            qint64(std::round((m_times.zero() + moment) * milliseconds)),
            Qt::UTC);
    return readout;
}

} // namespace Monitor
