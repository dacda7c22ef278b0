// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/NumberText.h"

#include <cmath>

namespace Monitor {

QString numberText(double value, int digits)
{
    constexpr double exactBelow = 9007199254740992.0; // 2^53
    if (std::isnan(value))
        return QStringLiteral("-");
    const bool isInteger = std::abs(value) < exactBelow && value == std::trunc(value);
    // Adding 0 turns a negative zero into a plain one.
    return isInteger ? QString::number(value + 0.0, 'f', 0) : QString::number(value, 'g', digits);
}

} // namespace Monitor
