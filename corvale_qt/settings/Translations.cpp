// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/settings/Translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QPointer>
#include <QTranslator>

#include <memory>

namespace Corvale_Qt {

namespace {

//! The language of the texts in the code.
const QString sourceLanguage = QStringLiteral("en");
const QString folder = QStringLiteral(":/corvale_qt/translations/");
const QString fileStart = QStringLiteral("corvale_qt_");

//! The translator of the last call; the application owns it.
QPointer<QTranslator> &installedTranslator()
{
    static QPointer<QTranslator> translator;
    return translator;
}

} // namespace

QStringList translationLanguages()
{
    QStringList languages{sourceLanguage};
    const QStringList files = QDir(folder).entryList({fileStart + QStringLiteral("*.qm")});
    for (const QString &file : files)
        languages.append(file.mid(fileStart.size()).section(QLatin1Char('.'), 0, 0));
    languages.removeDuplicates(); // the source language has a catalogue as well, of its plurals
    languages.sort();
    return languages;
}

QString translationLanguage(const QLocale &locale)
{
    const QStringList known = translationLanguages();
    const QStringList wanted = locale.uiLanguages();
    for (const QString &tag : wanted) {
        QString language = tag.section(QLatin1Char('-'), 0, 0).toLower();
        if (known.contains(language))
            return language;
    }
    return sourceLanguage;
}

bool installTranslations(const QLocale &locale)
{
    if (!QCoreApplication::instance())
        return false;
    const QString language = translationLanguage(locale);
    std::unique_ptr<QTranslator> translator;
    if (language != sourceLanguage) {
        translator = std::make_unique<QTranslator>();
        if (!translator->load(folder + fileStart + language))
            return false;
    }
    delete installedTranslator().data(); // which takes it out of the application
    installedTranslator() = translator.get();
    if (translator) {
        translator->setParent(QCoreApplication::instance());
        QCoreApplication::installTranslator(translator.release());
    }
    return true;
}

} // namespace Corvale_Qt
