// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QIcon>

namespace Monitor {

/*! Returns a symbol of the window's family: lines in the colour of the palette's text, at any size, also after the palette
    changed. An empty icon for a name that the family lacks. */
QIcon symbol(const QString &name);

} // namespace Monitor
