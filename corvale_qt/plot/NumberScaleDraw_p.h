// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_scale_draw.h>

namespace Corvale_Qt {

//! Significant digits that it takes to tell one major tick of an axis from the next; at least 6.
int axisDigits(const QwtScaleDiv &scaleDiv);

/*! Labels ticks with as many digits as the axis needs, be it long after the start of an acquisition or for a small
    ripple on a large value. Numbers have a decimal point and no separators in every locale, as all labels have, and
    their sign in front in every layout direction. */
class NumberScaleDraw : public QwtScaleDraw
{
public:
    QwtText label(double value) const override;

protected:
    void drawLabel(QPainter *painter, double value) const override;
};

} // namespace Corvale_Qt
