// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/KeptConnections.h"

#include "monitor/window/WindowSettings.h"

namespace Monitor {

namespace {

const QString connectionsKey = QStringLiteral("connections"); // names and sources by turns

} // namespace

QVector<ConnectDialog::Kept> keptConnections(const WindowSettings &settings)
{
    const QStringList texts = settings.list(connectionsKey);
    QVector<ConnectDialog::Kept> kept;
    for (int i = 0; i + 1 < texts.size(); i += 2)
        kept.append({texts.at(i), texts.at(i + 1)});
    return kept;
}

void keepConnections(const QVector<ConnectDialog::Kept> &kept, WindowSettings &settings)
{
    QStringList texts;
    for (const ConnectDialog::Kept &entry : kept)
        texts << entry.name << entry.source;
    if (texts != settings.list(connectionsKey))
        settings.setList(connectionsKey, texts);
}

} // namespace Monitor
