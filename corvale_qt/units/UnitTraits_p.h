// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

class QByteArray;

namespace Corvale_Qt {
namespace Units {

class MeasurementUnit;

//! What is known of a unit beyond its interface.
struct UnitTraits
{
    /*! Whether scale() is surely the product with scale(1.0), and format() the plain text of that: true for
        exactly the classes of the library, since a host's unit may do what it likes. */
    static bool isPlain(const MeasurementUnit &unit);
    //! Appends unit.format(value), an own format() of a host's unit honoured.
    static void appendFormatted(QByteArray &text, const MeasurementUnit &unit, double value);
};

} // namespace Units
} // namespace Corvale_Qt
