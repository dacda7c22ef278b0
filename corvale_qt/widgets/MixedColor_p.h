// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QColor>

namespace Corvale_Qt {

//! Returns an opaque colour between two: \a one where \a part is 0, \a other where it is 1.
inline QColor mixedColor(const QColor &one, const QColor &other, double part)
{
    const auto mix = [part](int from, int to) {
        return qRound(from + (to - from) * part);
    };
    return QColor(mix(one.red(), other.red()),
                  mix(one.green(), other.green()),
                  mix(one.blue(), other.blue()));
}

} // namespace Corvale_Qt
