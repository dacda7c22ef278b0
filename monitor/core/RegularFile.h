// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QFileInfo>

namespace Monitor {

//! Opens a file to read it. Refuses what is not a regular file: a pipe would be waited for until somebody writes to it.
inline bool openRegular(QFile &file)
{
    return QFileInfo(file.fileName()).isFile() && file.open(QIODevice::ReadOnly);
}

} // namespace Monitor
