// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/units/MeasurementUnit.h"

namespace Corvale_Qt {

//! Text of a number that is in \a unit already; as it is where there is no unit.
inline QString shownText(const Units::MeasurementUnit *unit, double value)
{
    return unit ? unit->formatUnscaled(value) : QString::number(value);
}

//! The same with the unit's symbol.
inline QString shownTextWithUnit(const Units::MeasurementUnit *unit, double value)
{
    return unit ? unit->formatSuffixUnscaled(value) : QString::number(value);
}

} // namespace Corvale_Qt
