// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QVariant>

namespace Corvale_Qt {

//! Returns whether \a role asks a cell for its reading, as a text or a number.
inline bool asksForReading(int role)
{
    return role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::ToolTipRole
        || role == RVXAbstractPlotDataModel::NumericValueRole;
}

//! Returns \a value, which is in \a unit already, for such a role. Only a tool tip shows the symbol; \a unit may be null.
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
