// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/Logging_p.h"

namespace Corvale_Qt {

Q_LOGGING_CATEGORY(proxiesLog, "corvale.proxies")

} // namespace Corvale_Qt
