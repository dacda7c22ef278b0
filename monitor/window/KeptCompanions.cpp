// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/KeptCompanions.h"

#include "monitor/window/WindowSettings.h"

namespace Monitor {

namespace {

const QString companionsKey =
    QStringLiteral("beside"); // the first source, then names and addresses by turns
const QString openBesideKey = QStringLiteral("open-beside");

} // namespace

QVector<NamedAddress> keptCompanions(const QString &lead, const WindowSettings &settings)
{
    const QStringList texts = settings.list(companionsKey);
    QVector<NamedAddress> kept;
    if (texts.value(0) != lead)
        return kept;
    for (int i = 1; i + 1 < texts.size(); i += 2)
        kept.append({texts.at(i), texts.at(i + 1)});
    return kept;
}

QStringList openCompanions(const WindowSettings &settings)
{
    return settings.list(openBesideKey);
}

void noteNoCompanions(WindowSettings &settings)
{
    settings.setList(openBesideKey, {});
}

void keepCompanions(const QString &lead,
                    const QVector<NamedAddress> &companions,
                    WindowSettings &settings)
{
    QStringList texts;
    QStringList open;
    for (const NamedAddress &companion : companions) {
        texts << companion.name << companion.address;
        open << companion.address;
    }
    settings.setList(openBesideKey, open);
    if (!texts.isEmpty())
        texts.prepend(lead);
    if (texts != settings.list(companionsKey))
        settings.setList(companionsKey, texts);
}

} // namespace Monitor
