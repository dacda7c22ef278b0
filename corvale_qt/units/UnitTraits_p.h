// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/units/MeasurementUnit.h"

class QByteArray;
class QDebug;

namespace Corvale_Qt {
namespace Units {

//! What the library knows of a unit beyond the unit's public interface.
struct UnitTraits
{
    //! Returns a new unit of the library's class for \a type, owned by the caller; null if no class has it.
    static MeasurementUnit *make(MeasurementUnitType type);
    /*! Returns true if scale(value) is certain to be scale(1.0) * value, and format() the plain text of that number.
        This holds for exactly the classes of the library; a host's subclass may override either. */
    static bool isPlain(const MeasurementUnit &unit);
    //! Appends unit.format(value) in UTF-8, calling an overridden format() if the unit has one.
    static void appendFormatted(QByteArray &text, const MeasurementUnit &unit, double value);
};

//! Writes the symbol and the type of a unit, or that there is none.
QDebug operator<<(QDebug debug, const MeasurementUnit *unit);

} // namespace Units
} // namespace Corvale_Qt
