// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/NormalDensity_p.h"

#include <boost/math/distributions/normal.hpp>

#include <cmath>
#include <stdexcept>

namespace Corvale_Qt {

FitStatus areaFromHeight(float height, float x, float mean, float sigma, float &area)
{
    try {
        const boost::math::normal_distribution<float> normal(mean, sigma);
        const float result = height / boost::math::pdf(normal, x);
        if (!std::isfinite(result))
            return FitStatus::NoRealWidth;
        area = result;
        return FitStatus::Ok;
    } catch (const std::domain_error &) {
        return FitStatus::NoRealWidth;
    }
}

} // namespace Corvale_Qt
