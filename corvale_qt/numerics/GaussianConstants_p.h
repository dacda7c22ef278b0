// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

/*! Constants of the Gaussian. Each precision keeps the digits that its results have always been computed with:
    the float constants are not the double ones rounded. */
template<typename T>
struct GaussianConstants;

template<>
struct GaussianConstants<double>
{
    static constexpr double sqrtTwoPi = 2.5066282746310007;
    static constexpr double inverseSqrtTwoPi = 0.3989422804014327;
};

template<>
struct GaussianConstants<float>
{
    static constexpr float sqrtTwoPi = 2.5066283F;
    static constexpr float inverseSqrtTwoPi = 0.3989423F;
};

} // namespace Corvale_Qt
