// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/ScaleFractions_p.h"

namespace Corvale_Qt {

double scaleFraction(int index)
{
    static constexpr double fractions[] =
        {1, 1, 1, 0.5, 0.2, 0.1, 0.05, 0.02, 0.01, 0.005, 0.002, 0.001, 0.0005, 0.0002, 0.0001};
    constexpr int count = sizeof(fractions) / sizeof(fractions[0]);
    return index >= 0 && index < count ? fractions[index] : 1.0;
}

} // namespace Corvale_Qt
