// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QLoggingCategory>

namespace Corvale_Qt {

//! The category "corvale.beam" of the profile displays' messages.
Q_DECLARE_LOGGING_CATEGORY(profileLog)

} // namespace Corvale_Qt
