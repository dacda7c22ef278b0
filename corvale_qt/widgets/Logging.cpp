// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/Logging_p.h"

namespace Corvale_Qt {

Q_LOGGING_CATEGORY(widgetsLog, "corvale.widgets")

} // namespace Corvale_Qt
