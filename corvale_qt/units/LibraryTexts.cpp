// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/LibraryTexts_p.h"

#include <QTranslator>

#include <memory>

namespace Corvale_Qt {

namespace {

const char *const libraryContext = "Corvale_Qt";

//! Returns the English form of a text with %n.
QString englishText(const char *text, const char *comment, int count)
{
    static const auto catalog = [] {
        auto translator = std::make_unique<QTranslator>();
        translator->load(QStringLiteral(":/corvale_qt/translations/corvale_qt_en"));
        return translator;
    }();
    return catalog->translate(libraryContext, text, comment, count);
}

} // namespace

QString tr(const char *text, const char *comment, int count)
{
    const auto withNumber = [count](QString form) {
        return form.replace(QLatin1String("%n"), QString::number(count));
    };
    const QString shown = QCoreApplication::translate(libraryContext, text, comment, count);
    const bool isTranslated = shown != withNumber(QString::fromUtf8(text));
    return isTranslated ? shown : withNumber(englishText(text, comment, count));
}

} // namespace Corvale_Qt
