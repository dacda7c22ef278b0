// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include <QLoggingCategory>

namespace Corvale_Qt {

//! Category "corvale.proxies": what the proxies write on the debug stream.
Q_DECLARE_LOGGING_CATEGORY(proxiesLog)

} // namespace Corvale_Qt
