// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

//! Returns the relative luminance of a colour, from 0 to 1 (WCAG 2.1, "relative luminance").
inline double luminance(QRgb color)
{
    const auto linear = [](int channel) {
        const double share = channel / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color))
        + 0.0722 * linear(qBlue(color));
}

//! Returns how far two colours are apart, from 1 to 21 (WCAG 2.1, "contrast ratio").
inline double contrast(QRgb one, QRgb other)
{
    const double a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}
