// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/Text.h"

#include <QTranslator>

#include <limits>
#include <memory>

//! A static library's resources must be named once, outside namespaces, or the linker drops them.
static void initialiseTranslations()
{
    Q_INIT_RESOURCE(corvale_monitor_translations);
}

namespace Monitor {

namespace {

//! Returns the number by which Qt, which counts in int, finds the form for a count: the last digits decide in every language.
int formNumber(qint64 count)
{
    constexpr qint64 million = 1000000;
    return count <= std::numeric_limits<int>::max() ? int(count) : int(million + count % million);
}

const QTranslator &englishForms()
{
    static const auto catalog = [] {
        initialiseTranslations();
        auto translator = std::make_unique<QTranslator>();
        translator->load(QStringLiteral(":/corvale_monitor/translations/corvale_monitor_en"));
        return translator;
    }();
    return *catalog;
}

} // namespace

QString Text::counted(const char *text, const char *comment, qint64 count)
{
    const int number = formNumber(count);
    const QString digits = QString::number(number);
    QString shown = tr(text, comment, number);
    if (shown == QString::fromUtf8(text).replace(QLatin1String("%n"), digits))
        return countedInEnglish(text, comment, count);
    return number == count ? shown : shown.replace(digits, QString::number(count));
}

QString Text::countedInEnglish(const char *text, const char *comment, qint64 count)
{
    QString form = englishForms().translate("Monitor::Text", text, comment, formNumber(count));
    if (form.isEmpty())
        form = QString::fromUtf8(text);
    return form.replace(QLatin1String("%n"), QString::number(count));
}

} // namespace Monitor
