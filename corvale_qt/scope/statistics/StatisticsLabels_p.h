// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QString>

namespace Corvale_Qt {

class RVX_FitHistogramItem;
class RVX_StatisticsHistogramItem;

/*! Rich texts of the statistics items, in a fixed-width font, with one number per line and the colons aligned. \a lines
    is the number of lines of the item's result; texts without a result are padded to the same height, so that the plot
    below does not move. */
namespace StatisticsLabels {

//! Returns the text of an item that has not computed anything.
QString empty(int lines);
//! Returns "Error: " and the message.
QString error(const QString &message, int lines);
//! Returns "Fit error: " and the message.
QString fitError(const QString &message, int lines);

//! Returns position and width.
QString shortForm(const RVX_StatisticsHistogramItem &item);
//! Returns position, width, skewness and kurtosis.
QString moments(const RVX_StatisticsHistogramItem &item);
//! Returns position, width, height, integral, signal to noise and residual noise of a fit.
QString fit(const RVX_FitHistogramItem &item);
//! Returns the text of a fit made by the device: as fit(), but without height and integral.
QString deviceFit(const RVX_FitHistogramItem &item);

/*! Returns \a label with the verdict and the first reason for it on separate lines, if the item's channels have
    places. */
QString withVerdict(const QString &label, const RVX_StatisticsHistogramItem &item);
//! Returns \a label with a line for the energy added at the end.
QString withEnergy(const QString &label, const QString &energy);

//! Returns \a label with its lines shifted to the right until their first colons are aligned.
QString withAlignedColons(const QString &label);

} // namespace StatisticsLabels
} // namespace Corvale_Qt
