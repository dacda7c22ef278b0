// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "tests/monitor/support/Contrast.h"

/*! Returns how well it is seen that a control has the focus: the largest contrast of a pixel, in the control or within two
    pixels around it, with what is there without the focus. */
inline double focusContrast(QWidget *control)
{
    constexpr int around = 2;
    constexpr int fewPixels = 10; // the tip of a corner is no mark
    QWidget *window = control->window();
    const QRect area = QRect(control->mapTo(window, QPoint()), control->size())
                           .adjusted(-around, -around, around, around)
        & window->rect();
    const QImage focused = window->grab(area).toImage();
    window->setFocus(Qt::OtherFocusReason);
    const QImage bare = window->grab(area).toImage();
    control->setFocus(Qt::TabFocusReason);
    QVector<double> differences;
    for (int y = 0; y < bare.height(); ++y)
        for (int x = 0; x < bare.width(); ++x)
            if (bare.pixel(x, y) != focused.pixel(x, y))
                differences.append(contrast(bare.pixel(x, y), focused.pixel(x, y)));
    std::sort(differences.begin(), differences.end(), std::greater<double>());
    return differences.value(fewPixels, 1.0);
}
