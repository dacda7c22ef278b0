// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/LeftOut.h"

#include "monitor/core/NumberText.h"
#include "monitor/core/Text.h"

namespace Monitor {

QString LeftOut::text() const
{
    if (count == 0)
        return {};
    const QString amount =
        numberText(sum, 6) + (unit.isEmpty() ? QString() : QLatin1Char(' ') + unit);
    return (what == What::Cells ? Text::tr("%1 cells are not wired: %2 left out")
                                : Text::tr("%1 readings belong to no cell: %2 left out"))
        .arg(count)
        .arg(amount);
}

} // namespace Monitor
