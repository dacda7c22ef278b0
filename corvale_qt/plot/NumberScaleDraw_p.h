// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_scale_draw.h>

namespace Corvale_Qt {

//! Returns how many significant digits distinguish neighbouring major ticks of an axis: 6 to 15.
int axisDigits(const QwtScaleDiv &scaleDiv);

/*! Labels ticks with as many digits as distinguish them, for example long after the start of an acquisition or for a small
    ripple on a large value. In every locale, numbers have a decimal point and no group separators; in every layout
    direction, the sign comes first. */
class NumberScaleDraw : public QwtScaleDraw
{
public:
    QwtText label(double value) const override;

protected:
    void drawLabel(QPainter *painter, double value) const override;
};

} // namespace Corvale_Qt
