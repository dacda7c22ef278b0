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

/*! Translates a text in the form that a number asks for, with the number in the place of %n: tr("%n cell(s)", nullptr, 2) is
    "2 cells". A host need not install translations: without them, the forms are those of translations/corvale_qt_en.ts.
    A member of a class that has tr() itself calls Corvale_Qt::tr(). */
QString tr(const char *text, const char *comment, int count);

} // namespace Corvale_Qt
