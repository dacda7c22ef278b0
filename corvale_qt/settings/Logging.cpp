// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/settings/Logging_p.h"

namespace Corvale_Qt {

Q_LOGGING_CATEGORY(settingsLog, "corvale.settings")

} // namespace Corvale_Qt
