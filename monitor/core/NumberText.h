// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

namespace Monitor {

/*! Returns a number for people with up to \a digits significant digits; an integer has all of its own, so that counts are
    exact. NaN is "-". */
QString numberText(double value, int digits);

} // namespace Monitor
