// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QLoggingCategory>

namespace Corvale_Qt {

//! The category of the debug output of spot maps and position errors, "corvale.beam".
Q_DECLARE_LOGGING_CATEGORY(spotsLog)

} // namespace Corvale_Qt
