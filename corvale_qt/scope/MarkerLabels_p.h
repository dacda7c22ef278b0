// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QBrush>
#include <QString>

class QwtPlotMarker;

namespace Corvale_Qt {

class MarkerStatistics;
class ScopeModel;

/*! Returns time, channel and value of a sample, a line each. The time has enough digits to tell it from a time that
    differs by \a resolution; if that is 0, it has the digits that its unit gives. */
QString
sampleText(const ScopeModel &model, double x, int channel, double value, double resolution = 0.0);
//! Returns only the time, for a marker that does not stand on a sample.
QString timeText(const ScopeModel &model, double x, double resolution);
//! Returns the text of a sample, followed by period and statistics of the samples between two markers.
QString spanText(const QString &sample, double period, const MarkerStatistics &statistics);
//! Returns the text of a bar, followed by the statistics of the bars between two markers.
QString spanText(const QString &bar, const MarkerStatistics &statistics);

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
