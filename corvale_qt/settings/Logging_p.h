// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QLoggingCategory>

namespace Corvale_Qt {

//! Category "corvale.settings": what the settings write to the debug stream.
Q_DECLARE_LOGGING_CATEGORY(settingsLog)

} // namespace Corvale_Qt
