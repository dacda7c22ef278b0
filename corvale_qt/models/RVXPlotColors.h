// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QColor>

namespace Corvale_Qt {

/*! The colours that curves and marker labels share in every display, so that a channel looks the same in all
    of them. */
class CORVALE_QT_EXPORT RVXPlotColors
{
public:
    static const unsigned int NUM_SCOPE_COLORS;
    static const QColor colors[8];

    //! Colour of curve \a i, counted from 0; any integer is taken modulo 8 by its low three bits.
    static QColor color(int i);
    //! Behind the text of a marker: dark and half transparent.
    static QColor labelBackgroundColor();
    static QColor labelTextColor();

private:
    static constexpr QColor kLabelTextColor{255, 255, 200};
    static constexpr QColor kLabelBackgroundColor{40, 40, 40, 130};
};

} // namespace Corvale_Qt
