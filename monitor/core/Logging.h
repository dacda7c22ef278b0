// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QLoggingCategory>

//! The category "corvale.monitor"; its debug lines are off until QT_LOGGING_RULES enables them.
Q_DECLARE_LOGGING_CATEGORY(monitorLog)
