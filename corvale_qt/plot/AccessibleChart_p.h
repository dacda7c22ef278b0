// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QString>

#include <functional>

class QWidget;

namespace Corvale_Qt {

//! What a screen reader says of a chart behind its name.
struct ChartWords
{
    QString state; //!< what the chart shows and whether it stands still: "Strip, live"
    QString values; //!< the newest values: "left, 1.2 nA; right, 3 nA"
};

/*! Makes a widget a chart for screen readers. Its name is its accessible name, its value the newest values, and its description
    both parts of \a words. \a words is called only when a screen reader asks; it is called no more when \a chart is deleted. */
void describeChart(QWidget *chart, std::function<ChartWords()> words);
//! Tells screen readers that the state of a chart has changed.
void announceChartState(QWidget *chart);

} // namespace Corvale_Qt
