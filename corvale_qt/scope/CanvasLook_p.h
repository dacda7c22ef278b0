// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QBrush>
#include <QColor>

namespace Corvale_Qt {

//! The colours of a canvas: curves on black, as on the screen of an instrument, or on white, as on paper.
struct CanvasLook
{
    QColor ground;
    QColor text;
    QColor majorGrid;
    QColor minorGrid;
    QBrush bars;

    static CanvasLook onBlack();
    static CanvasLook onWhite();
};

} // namespace Corvale_Qt
