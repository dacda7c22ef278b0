// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QIcon>

class QWidget;

namespace Monitor {

/*! Returns a symbol of the window's family: lines in the colour of the palette's text, at any size, also after the palette
    changed. An empty icon for a name that the family lacks. */
QIcon symbol(const QString &name);
/*! Gives the buttons of a display, a log or a dock the symbols of the window's family instead of pictures of other families,
    some of which are not seen on a dark ground. */
void giveSymbols(QWidget *part);

} // namespace Monitor
