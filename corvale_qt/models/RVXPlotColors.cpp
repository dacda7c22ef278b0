// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"

namespace Corvale_Qt {

const unsigned int RVXPlotColors::NUM_SCOPE_COLORS = 8;

const QColor RVXPlotColors::colors[8] = {
    Qt::cyan,
    Qt::green,
    Qt::magenta,
    Qt::red,
    QColor(0, 85, 255),
    Qt::yellow,
    QColor(255, 128, 0),
    QColor(179, 102, 255),
};

QColor RVXPlotColors::color(int i)
{
    return colors[i & 7];
}

QColor RVXPlotColors::labelBackgroundColor()
{
    return kLabelBackgroundColor;
}

QColor RVXPlotColors::labelTextColor()
{
    return kLabelTextColor;
}

} // namespace Corvale_Qt
