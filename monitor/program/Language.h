// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

namespace Monitor {

/*! Shows the texts of the program, the library and Qt in the language \a code, like "de"; an empty one stands for the language
    of the desktop. Texts are English where the program has no such language. A further call
    replaces the language of the one before, for windows that are opened afterwards. */
void installLanguage(const QString &code);

} // namespace Monitor
