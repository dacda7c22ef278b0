// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QPalette>

namespace Monitor {

/*! Returns the colour of text that is quieter than other text on the same ground and is read all the same: two thirds of
    the way from the ground to the text, a contrast above 4.5 in light and dark palettes. The palettes of many desktops
    leave QPalette::PlaceholderText transparent, and their disabled text is too pale to be read. */
inline QColor
quietColor(const QPalette &palette, QPalette::ColorRole text, QPalette::ColorRole ground)
{
    constexpr double share = 0.67;
    const QColor &loud = palette.color(QPalette::Active, text);
    const QColor &behind = palette.color(QPalette::Active, ground);
    const auto between = [](double from, double to) {
        return from + (to - from) * share;
    };
    const QColor quiet = QColor::fromRgbF(between(behind.redF(), loud.redF()),
                                          between(behind.greenF(), loud.greenF()),
                                          between(behind.blueF(), loud.blueF()));
    return quiet.rgb(); // as it is painted, in 8 bits
}

} // namespace Monitor
