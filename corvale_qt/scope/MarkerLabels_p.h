// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: what markers say, and how they look.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QBrush>
#include <QString>

class QwtPlotMarker;

namespace Corvale_Qt {

class MarkerStatistics;
class ScopeModel;

//! Time, channel and value of a sample.
QString sampleText(const ScopeModel &model, double x, int channel, double value);
//! The time alone, of a marker that stands on no sample.
QString timeText(const ScopeModel &model, double x);
//! A sample's text with the numbers over the time between two markers.
QString spanText(const QString &sample, double period, const MarkerStatistics &statistics);
//! A bar's text with the numbers over the bars between two markers.
QString spanText(const QString &bar, const MarkerStatistics &statistics);

//! The looks that do not depend on what it stands on.
void prepareMarker(QwtPlotMarker &marker);
void setMarkerLabel(QwtPlotMarker &marker, const QString &text, bool selected);
//! In the channel's colour; no brush gives that of the label's text.
void setMarkerLine(QwtPlotMarker &marker, const QBrush &brush);
//! Puts the label to the left or the right of the line, at the top.
void alignMarkerLabel(QwtPlotMarker &marker, Qt::AlignmentFlag side);
//! Turns the labels of two markers away from each other where these are less than a quarter of \a width apart.
void keepLabelsApart(QwtPlotMarker &a, QwtPlotMarker &b, double width);

} // namespace Corvale_Qt
