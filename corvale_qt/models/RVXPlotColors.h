// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QColor>

namespace Corvale_Qt {

/*! The colours of curves and of marker labels. All displays share them, so that a channel has the same colour
    everywhere. */
class CORVALE_QT_EXPORT RVXPlotColors
{
public:
    //! Number of different curve colours: 8.
    static const unsigned int NUM_SCOPE_COLORS;
    //! Colours of the first eight curves, in their order.
    static const QColor colors[8];

    //! Returns the colour of curve \a i, counted from 0. Colours repeat after 8 curves; negative numbers are valid.
    static QColor color(int i);
    //! Returns the background of a marker's label, which is dark and half transparent.
    static QColor labelBackgroundColor();
    //! Returns the text colour of a marker's label.
    static QColor labelTextColor();

private:
    static constexpr QColor kLabelTextColor{255, 255, 200};
    static constexpr QColor kLabelBackgroundColor{40, 40, 40, 130};
};

} // namespace Corvale_Qt
