// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/Logging_p.h"

namespace Corvale_Qt {

Q_LOGGING_CATEGORY(modelsLog, "corvale.models")

} // namespace Corvale_Qt
