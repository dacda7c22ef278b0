// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

namespace Corvale_Qt {

//! A range of values, with the unit that it is in.
struct ValueRange
{
    double minimum = 0.0; //!< the lower end
    double maximum = 0.0; //!< the upper end
    QString unit; //!< its symbol as the channels give it; empty for none
};

inline bool operator==(const ValueRange &a, const ValueRange &b)
{
    return a.minimum == b.minimum && a.maximum == b.maximum && a.unit == b.unit;
}
inline bool operator!=(const ValueRange &a, const ValueRange &b)
{
    return !(a == b);
}

} // namespace Corvale_Qt
