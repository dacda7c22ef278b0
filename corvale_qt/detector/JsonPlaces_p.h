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

//! A key that stands twice in one object, or that is spelt with a backslash; line 0 for none.
struct RepeatedKey
{
    int line = 0;
    QString key;
};

/*! Returns the first such key of \a json, which need not be valid. QJsonDocument takes the last of several values without a
    word, and never frees the others if they are lists or objects. */
RepeatedKey repeatedKey(const QByteArray &json);

} // namespace Corvale_Qt
