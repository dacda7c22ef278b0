// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/NumberScaleDraw_p.h"
#include "corvale_qt/units/SiPrefix.h"

#include <optional>

namespace Corvale_Qt {

/*! Labels ticks in a unit with a prefix, with the same number of decimals at every tick and without exponents. Without a
    prefix it is a NumberScaleDraw. */
class PrefixScaleDraw : public NumberScaleDraw
{
public:
    //! Sets the prefix of the labels; empty for the numbers of the axis themselves.
    void setPrefix(const std::optional<Units::SiPrefix> &prefix);
    QwtText label(double value) const override;

private:
    std::optional<Units::SiPrefix> m_prefix;
};

} // namespace Corvale_Qt
