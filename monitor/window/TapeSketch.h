// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/tape/TapeSurvey.h"

#include <QFontMetrics>
#include <QPalette>
#include <QRect>

#include <vector>

class QPainter;

namespace Monitor {

//! Draws a tape into a band: the outline of the sums, gaps, parts, a line for each of several recordings where it lies, flags of events above it, and times below it.
class TapeSketch
{
public:
    //! The room beside the band, and the height of a flag above it, in pixels.
    static constexpr int margin = 8, flagHeight = 7;

    //! \a survey must outlive the sketch.
    TapeSketch(const TapeSurvey &survey,
               const QRect &band,
               const QPalette &palette,
               const QFont &font);

    //! Returns the position on the tape, in seconds, of a point at \a x.
    double positionAt(int x) const;
    //! Returns where a position lies.
    int xOf(double position) const;
    void paint(QPainter *painter) const;

private:
    void paintOutline(QPainter *painter) const;
    std::vector<bool> columnsInGaps() const;
    void paintMarks(QPainter *painter) const;
    void paintLanes(QPainter *painter) const;
    void paintTimes(QPainter *painter) const;
    int paintTimesOf(const TapeSurvey::Stretch &stretch, int from, QPainter *painter) const;

    const TapeSurvey &m_survey;
    const QRect m_band;
    const QPalette m_palette;
    const QFontMetrics m_metrics;
};

} // namespace Monitor
