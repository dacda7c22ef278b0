// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/Logging_p.h"

namespace Corvale_Qt {

Q_LOGGING_CATEGORY(spotsLog, "corvale.beam")

} // namespace Corvale_Qt
