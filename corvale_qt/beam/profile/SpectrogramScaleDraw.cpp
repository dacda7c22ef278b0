// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/SpectrogramScaleDraw_p.h"

#include <qwt_text.h>

#include <cmath>

namespace Corvale_Qt {

QwtText SpectrogramScaleDraw::label(double value) const
{
    // Steps are summed up: what is left of 0 by rounding is 0.
    const double span = scaleDiv().range();
    const bool zero = std::abs(value) < 1e-9 * std::abs(span);
    return QwtText(QString::number(zero ? 0.0 : value, 'g', 4));
}

} // namespace Corvale_Qt
