// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

namespace Corvale_Qt {
namespace Units {

class MeasurementUnit;

/*! Whether scale() is surely the product with scale(1.0): true for exactly the classes of the library, since a
    host's unit may do what it likes. */
bool scalesByFactor(const MeasurementUnit &unit);

} // namespace Units
} // namespace Corvale_Qt
