// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// +------------------------------------------------------------------------------------+
// | This file is not part of the interface: it may change, or go, without notice.      |
// +------------------------------------------------------------------------------------+

#include "corvale_qt/plot/PlotAxis_p.h"

namespace Corvale_Qt {

/*! Labels of the colour bar: short in every order of magnitude, without a locale's group signs. */
class SpectrogramScaleDraw : public ThinnedScaleDraw
{
public:
    QwtText label(double value) const override;
};

} // namespace Corvale_Qt
