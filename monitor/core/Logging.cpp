// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/Logging.h"

Q_LOGGING_CATEGORY(monitorLog, "corvale.monitor", QtInfoMsg)
