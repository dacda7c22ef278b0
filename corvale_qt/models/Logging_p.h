// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QLoggingCategory>

namespace Corvale_Qt {

//! The category "corvale.models" of messages from models/; all levels are on unless QT_LOGGING_RULES says otherwise.
Q_DECLARE_LOGGING_CATEGORY(modelsLog)

} // namespace Corvale_Qt
