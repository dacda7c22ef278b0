// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/corvale_qt_version.h"

namespace Corvale_Qt {

int libraryVersion() noexcept
{
    return CORVALE_QT_VERSION;
}

const char *libraryVersionString() noexcept
{
    return CORVALE_QT_VERSION_STRING;
}

} // namespace Corvale_Qt
