// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/NumberText.h"

#include <algorithm>
#include <cmath>

namespace Monitor {

QString numberText(double value, int digits)
{
    constexpr double exactBelow = 9007199254740992.0; // 2^53
    if (std::isnan(value))
        return QStringLiteral("-");
    const double size = std::abs(value);
    if (size >= exactBelow)
        return QString::number(value, 'g', digits);
    // Adding 0 turns a negative zero into a plain one.
    if (value == std::trunc(value))
        return QString::number(value + 0.0, 'f', 0);
    const int ofInteger = size < 1.0 ? 0 : int(std::log10(size)) + 1;
    return QString::number(value, 'g', std::max(digits, ofInteger + 1));
}

} // namespace Monitor
