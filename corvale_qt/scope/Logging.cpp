// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/Logging_p.h"

namespace Corvale_Qt {

Q_LOGGING_CATEGORY(scopeLog, "corvale.scope")

} // namespace Corvale_Qt
