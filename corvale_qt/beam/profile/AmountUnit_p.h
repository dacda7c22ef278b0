// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/units/SiPrefix.h"

namespace Corvale_Qt {

//! How a profile display shows the unit of its readings.
struct AmountUnit
{
    QString symbol; //!< of the numbers as they are given
    bool takesPrefix = false; //!< whether they are shown with the prefix that suits them
    QString fixed; //!< the unit that is shown instead of that, as SiPrefix::fix() takes it

    //! Returns a prefix that has not followed a number yet.
    Units::SiPrefix prefix() const
    {
        Units::SiPrefix prefix(symbol);
        if (takesPrefix)
            prefix.fix(fixed);
        return prefix;
    }
    bool operator==(const AmountUnit &other) const
    {
        return symbol == other.symbol && takesPrefix == other.takesPrefix && fixed == other.fixed;
    }
};

} // namespace Corvale_Qt
