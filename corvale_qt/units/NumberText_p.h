// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QByteArray>

namespace Corvale_Qt {
namespace Units {

/*! Appends exactly what QByteArray::number() gives, several times as fast for the numbers that readings are.
    \a format is 'e', 'f' or 'g'. */
void appendNumber(QByteArray &text, double value, char format, int precision);

} // namespace Units
} // namespace Corvale_Qt
