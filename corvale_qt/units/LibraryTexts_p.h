// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QCoreApplication>
#include <QString>

namespace Corvale_Qt {

//! Translates a text of the library, for functions that belong to no class with tr().
inline QString tr(const char *text)
{
    return QCoreApplication::translate("Corvale_Qt", text);
}

} // namespace Corvale_Qt
