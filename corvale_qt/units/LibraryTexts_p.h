// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QCoreApplication>
#include <QString>

namespace Corvale_Qt {

//! Translates a text of the library where no class has a tr() of its own.
inline QString tr(const char *text)
{
    return QCoreApplication::translate("Corvale_Qt", text);
}

} // namespace Corvale_Qt
