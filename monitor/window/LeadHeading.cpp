// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/LeadHeading.h"

#include "monitor/session/Companions.h"

#include <QMenuBar>

#include <algorithm>

namespace Monitor {

LeadHeading::LeadHeading(Companions &companions, QObject *parent)
    : QObject(parent)
    , m_companions(companions)
{
    connect(&companions, &Companions::changed, this, &LeadHeading::refresh);
}

void LeadHeading::addBefore(const QString &entry, const QMenuBar &bar)
{
    for (const QAction *title : bar.actions()) {
        QMenu *const menu = title->menu();
        const auto entries = menu->actions();
        const auto found = std::find_if(entries.begin(), entries.end(), [&](const QAction *each) {
            return each->objectName() == entry;
        });
        if (found == entries.end())
            continue;
        auto *heading = new QAction(menu); // not a section: many styles draw only its line
        heading->setObjectName(QStringLiteral("leadHeading"));
        heading->setEnabled(false);
        menu->insertAction(*found, heading);
        m_headings.append(heading);
    }
    refresh();
}

void LeadHeading::refresh()
{
    QString name = m_companions.members().front().name;
    name.replace(QLatin1Char('&'), QLatin1String("&&"));
    for (QAction *heading : qAsConst(m_headings)) {
        heading->setText(tr("Of %1, the first source:").arg(name));
        heading->setVisible(!m_companions.isEmpty());
    }
}

} // namespace Monitor
