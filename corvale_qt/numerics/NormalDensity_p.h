// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/FitStatus.h"

namespace Corvale_Qt {

/*! \a height divided by the density of the normal distribution at \a x: the area of the Gaussian that has
    this height there. In single precision, 2 pi included.

    The distribution library's complaint (a width that is not positive, numbers that are not finite) ends here, as
    NoRealWidth; so does an area that is no finite number. \a area is set only with Ok. */
FitStatus areaFromHeight(float height, float x, float mean, float sigma, float &area);

} // namespace Corvale_Qt
