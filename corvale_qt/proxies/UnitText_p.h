// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QVariant>

namespace Corvale_Qt {

//! Whether a cell answers \a role with its reading, as a text or a number.
inline bool asksForReading(int role)
{
    return role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::ToolTipRole
        || role == RVXAbstractPlotDataModel::NumericValueRole;
}

//! A reading that is in \a unit already, for such a role: a tool tip has the unit's symbol. Without a unit it is as it is.
inline QVariant readingFor(int role, const Units::MeasurementUnit *unit, double value)
{
    if (role == RVXAbstractPlotDataModel::NumericValueRole)
        return value;
    if (!unit)
        return QString::number(value);
    return role == Qt::ToolTipRole ? unit->formatSuffixUnscaled(value)
                                   : unit->formatUnscaled(value);
}

} // namespace Corvale_Qt
