// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QLocale>
#include <QStringList>

namespace Corvale_Qt {

/*! \file
    The languages of the library's texts.

    The texts are English until a host asks for another language; the library never does so itself. Numbers, units, files
    and settings are the same in every language.

    \code
    QApplication application(argc, argv);
    Corvale_Qt::installTranslations(); // the language of the desktop
    \endcode
*/

//! Returns the codes of the languages that the library has texts in, in alphabetical order: "de", "en", "fr", "ja".
CORVALE_QT_EXPORT QStringList translationLanguages();

/*! Returns the code of the language in which the library shows its texts to users of \a locale: the first of its
    QLocale::uiLanguages() that is one of translationLanguages(), and "en" if there is none. */
CORVALE_QT_EXPORT QString translationLanguage(const QLocale &locale = QLocale::system());

/*! Shows the library's texts in translationLanguage(\a locale). Widgets that are shown already change at once. A further call
    replaces the language of the one before; "en" brings the English texts back. Returns false, and changes nothing, where
    there is no QCoreApplication. The translator belongs to the application. */
CORVALE_QT_EXPORT bool installTranslations(const QLocale &locale = QLocale::system());

} // namespace Corvale_Qt
