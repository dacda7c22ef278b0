// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QByteArray>
#include <QString>

namespace Corvale_Qt {

//! Returns the line, from 1, in which the byte at \a offset lies.
int lineOfOffset(const QByteArray &text, int offset);
/*! Returns the line, from 1, in which the value at a place like "x.positions[4]" begins. \a json must be a valid document. A
    place that the document does not have gives the line of the nearest place around it. */
int lineOfPlace(const QByteArray &json, const QString &place);

} // namespace Corvale_Qt
