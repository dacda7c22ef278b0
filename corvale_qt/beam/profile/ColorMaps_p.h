// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_color_map.h>

namespace Corvale_Qt {

//! The colour maps of the profile display, in the order of their box.
enum class ColorMapChoice {
    Greyscale = 0,
    Color = 1,
    Viridis = 2, //!< even steps of brightness; safe for colour-blind eyes
};

//! Returns a new linear colour map, owned by the caller.
QwtLinearColorMap *makeColorMap(ColorMapChoice choice);
//! Returns a new colour map whose colours follow the logarithm of a value above 0, owned by the caller.
QwtLinearColorMap *makeLogColorMap(ColorMapChoice choice);

} // namespace Corvale_Qt
