// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/units/MeasurementUnit.h>

#include <QString>

#include <memory>

namespace Monitor {

/*! Returns the unit that a symbol in a file or on a line stands for: the name of a unit, also with u for the micro
    sign, or "counts". The symbol must match exactly, also in case: "fc" is the name of a channel and not a charge.
    Returns null for any other text. */
std::unique_ptr<Corvale_Qt::Units::MeasurementUnit> unitFromSymbol(const QString &symbol);

/*! Splits "left_nA", "left (nA)" or "left [nA]" into the name "left" and the symbol "nA". If the text does not end in the
    symbol of a unit, all of it is the name and the symbol is empty. So it is where the symbol means something else: the
    C of "temp_C" is not a coulomb. */
void splitUnitSuffix(const QString &text, QString *name, QString *symbol);

//! Returns whether both units measure the same quantity, so that values in one can be shown in the other.
bool sameQuantity(const Corvale_Qt::Units::MeasurementUnit &one,
                  const Corvale_Qt::Units::MeasurementUnit &other);

} // namespace Monitor
