// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/RVXPlotHistory.h"

#include <QBrush>
#include <QString>

#include <utility>

class QwtPlotMarker;

namespace Corvale_Qt {

class BlockStatistics;
class MarkerStatistics;
class ScopeModel;
struct SpanIntegral;

//! A sample that a marker stands on.
struct MarkedSample
{
    double x = 0.0;
    int channel = 1;
    double value = 0.0;
    double resolution =
        0.0; //!< a difference of x that its text must show; 0 for the digits that the unit of x gives
    double noise = 0.0; //!< of the value; 0 if it is not known
};

/*! Returns time, channel and value of a sample, a line each. The time has enough digits to tell it from a time that
    differs by the resolution. */
QString sampleText(const ScopeModel &model, const MarkedSample &sample);
//! Returns a difference of time that is about one pixel wide in a plot from \a xRange.first to xRange.second.
inline double resolutionOf(const std::pair<double, double> &xRange)
{
    return (xRange.second - xRange.first) / 1000.0;
}
//! Returns lines with the channel and with what is known of the readings of a block.
QString blockText(const ScopeModel &model, int channel, const RVXPlotHistory::Block &block);
/*! Returns lines with the period between two markers and with what blocks tell of the readings between them, and over which time;
    they say that RMS and standard deviation are not known. */
QString blocksText(const ScopeModel &model,
                   int channel,
                   const BlockStatistics &statistics,
                   double period,
                   double resolution);
//! Returns only the time, for a marker that does not stand on a sample.
QString timeText(const ScopeModel &model, double x, double resolution);
/*! Returns a time with its unit, or the time of the clock that the axis shows, for a line of text. It has enough digits to tell
    it from a time that differs by \a resolution. */
QString placeText(const ScopeModel &model, double x, double resolution);
//! Returns a reading with its unit, for the box beside the pointer.
QString hoverText(const ScopeModel &model, const MarkedSample &sample);
//! Returns the text of a sample, followed by period and statistics of the samples between two markers.
QString spanText(const ScopeModel &model,
                 const MarkedSample &sample,
                 double period,
                 const MarkerStatistics &statistics);
//! Returns the text \a bar of a bar, followed by the statistics of the bars between two markers.
QString spanText(const ScopeModel &model,
                 int channel,
                 const QString &bar,
                 const MarkerStatistics &statistics);
//! Returns lines for the integral between two markers and for how much of the period it covers.
QString integralText(const ScopeModel &model, int channel, const SpanIntegral &span, double period);
/*! Returns further lines for the text of a span: the difference of the readings at both markers, and what the statistics say
    of extremes and slope. */
QString detailText(const ScopeModel &model,
                   int channel,
                   double difference,
                   const MarkerStatistics &statistics);

//! Sets up the line of a new marker.
void prepareMarker(QwtPlotMarker &marker);
//! Sets the text of a label; the selected marker, which keys move, has a border.
void setMarkerLabel(QwtPlotMarker &marker, const QString &text, bool selected);
//! Colours line and symbol with the brush of a channel. Qt::NoBrush means the colour of the label's text.
void setMarkerLine(QwtPlotMarker &marker, const QBrush &brush);
//! Puts the label at the top of the line, on its left or right side.
void alignMarkerLabel(QwtPlotMarker &marker, Qt::AlignmentFlag side);
//! Turns the labels of two markers away from each other if the markers are less than a quarter of \a width apart.
void keepLabelsApart(QwtPlotMarker &a, QwtPlotMarker &b, double width);

} // namespace Corvale_Qt
