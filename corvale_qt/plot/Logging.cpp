// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/Logging_p.h"

namespace Corvale_Qt {

Q_LOGGING_CATEGORY(lcPlot, "corvale.plot")

} // namespace Corvale_Qt
