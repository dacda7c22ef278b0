// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: rich texts of the statistics items.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QString>

namespace Corvale_Qt {

class RVX_FitHistogramItem;
class RVX_StatisticsHistogramItem;

/*! Texts in a fixed-width font, one number a line, the colons below each other. \a lines is how many lines the item's
    text has when there is a result: the others are as tall, so that nothing jumps. */
namespace StatisticsLabels {

QString empty(int lines);
QString error(const QString &message, int lines);
//! As error(), for what is fitted.
QString fitError(const QString &message, int lines);

//! Position and width alone.
QString shortForm(const RVX_StatisticsHistogramItem &item);
//! With skewness and kurtosis.
QString moments(const RVX_StatisticsHistogramItem &item);
//! With height, integral and how well the fit stands.
QString fit(const RVX_FitHistogramItem &item);
//! The same of a fit made elsewhere, whose height and integral are not ours to tell.
QString deviceFit(const RVX_FitHistogramItem &item);

//! One more line at the end of a label.
QString withEnergy(const QString &label, const QString &energy);

//! Shifts lines to the right until their first colons stand below each other.
QString withAlignedColons(const QString &label);

} // namespace StatisticsLabels
} // namespace Corvale_Qt
