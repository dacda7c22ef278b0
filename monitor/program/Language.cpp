// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/Language.h"

#include "monitor/core/EnglishTexts.h"
#include <corvale_qt/settings/Translations.h>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPointer>
#include <QTranslator>
#include <QVector>

#include <memory>

//! A static library's resources must be named once, outside namespaces, or the linker drops them.
static void initialiseTranslations()
{
    Q_INIT_RESOURCE(corvale_monitor_translations);
}

namespace Monitor {

namespace {

//! The texts of one language, and none while texts are to be English.
class Catalog : public QTranslator
{
public:
    using QTranslator::QTranslator;
    QString
    translate(const char *context, const char *text, const char *comment, int n) const override
    {
        return EnglishTexts::areWanted() ? QString()
                                         : QTranslator::translate(context, text, comment, n);
    }
};

//! The catalogs of the last call; the application owns them.
QVector<QPointer<QTranslator>> &installedCatalogs()
{
    static QVector<QPointer<QTranslator>> catalogs;
    return catalogs;
}

//! Installs a catalog of texts, if it is there.
void install(const QString &file)
{
    auto translator = std::make_unique<Catalog>(QCoreApplication::instance());
    if (!translator->load(file))
        return;
    QCoreApplication::installTranslator(translator.get());
    installedCatalogs().append(translator.release());
}

} // namespace

void installLanguage(const QString &code)
{
    initialiseTranslations();
    for (QTranslator *former : qAsConst(installedCatalogs()))
        delete former; // which takes it out of the application
    installedCatalogs().clear();
    const QLocale wanted = code.isEmpty() ? QLocale::system() : QLocale(code);
    const QString language = Corvale_Qt::translationLanguage(wanted);
    install(QLibraryInfo::location(QLibraryInfo::TranslationsPath) + QStringLiteral("/qtbase_")
            + language);
    for (const char *part : {"corvale_qt", "corvale_monitor"})
        install(QStringLiteral(":/%1/translations/%1_%2").arg(QLatin1String(part), language));
}

} // namespace Monitor
