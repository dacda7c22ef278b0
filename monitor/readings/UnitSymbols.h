// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/units/MeasurementUnit.h>

#include <QString>

#include <memory>

namespace Monitor {

/*! The unit that a symbol means in a file or on a line: the units' own names, u for the micro sign, and "counts".
    Unlike a typed text it must be exact: "fc" is a channel, no charge. Null for any other text. */
std::unique_ptr<Corvale_Qt::Units::MeasurementUnit> unitFromSymbol(const QString &symbol);

/*! Splits "left_nA" into the name "left" and the symbol "nA"; a text whose end is no unit's symbol is all
    name. */
void splitUnitSuffix(const QString &text, QString *name, QString *symbol);

//! Whether values in the one unit can be shown in the other: both measure the same quantity.
bool sameQuantity(const Corvale_Qt::Units::MeasurementUnit &one,
                  const Corvale_Qt::Units::MeasurementUnit &other);

} // namespace Monitor
