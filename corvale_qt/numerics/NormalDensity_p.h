// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/FitStatus.h"

namespace Corvale_Qt {

/*! Computes the area of the Gaussian that has the given height at \a x: \a height divided by the density of the
    normal distribution there. All steps are in single precision, 2 pi included.

    Returns NoRealWidth, instead of letting an exception out, if \a sigma is not positive, an argument is not
    finite, or the area is not finite. Sets \a area only with Ok. */
FitStatus areaFromHeight(float height, float x, float mean, float sigma, float &area);

} // namespace Corvale_Qt
