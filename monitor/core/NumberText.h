// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

namespace Monitor {

/*! Returns a number for people with up to \a digits significant digits; what stands before the point is whole, so that
    counts are exact. NaN is "-". */
QString numberText(double value, int digits);

} // namespace Monitor
