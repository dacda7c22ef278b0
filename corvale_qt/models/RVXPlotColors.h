// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QColor>
#include <QVector>

namespace Corvale_Qt {

/*! The colours of curves and of marker labels. All displays share them, so that a channel has the same colour
    everywhere. */
class CORVALE_QT_EXPORT RVXPlotColors
{
public:
    //! The sets of colours that a model can have, all for a black canvas.
    enum Palette : int {
        //! The eight colours of color(int), which repeat.
        EightColors = 0,
        //! 64 colours, the first 16 of which are easiest to tell apart; each further 16 have another dash pattern.
        ManyColors = 1,
        //! Eight colours that differ also for people who are blind to red, green or blue; each further eight have another dash pattern.
        ColorBlindSafe = 2,
    };

    //! Number of different curve colours: 8.
    static const unsigned int NUM_SCOPE_COLORS;
    //! Colours of the first eight curves, in their order.
    static const QColor colors[8];

    //! Returns the colour of curve \a i, counted from 0. Colours repeat after 8 curves; negative numbers are valid.
    static QColor color(int i);
    //! Returns the colour of curve \a i, counted from 0, of a palette. Any number is valid.
    static QColor color(int i, Palette palette);
    /*! Returns the dash pattern of curve \a i, counted from 0, in widths of the pen as QPen::setDashPattern() takes it; empty for
        a solid line. Any number is valid. */
    static QVector<qreal> dashes(int i, Palette palette);
    //! Returns the background of a marker's label, which is dark and half transparent.
    static QColor labelBackgroundColor();
    //! Returns the text colour of a marker's label.
    static QColor labelTextColor();

private:
    static constexpr QColor kLabelTextColor{255, 255, 200};
    static constexpr QColor kLabelBackgroundColor{40, 40, 40, 130};
};

} // namespace Corvale_Qt
