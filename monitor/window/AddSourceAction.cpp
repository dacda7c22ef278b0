// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/AddSourceAction.h"

#include "monitor/dialogs/ConnectDialog.h"
#include "monitor/session/Companions.h"
#include "monitor/window/KeptConnections.h"
#include "monitor/window/ScreenFit.h"
#include "monitor/window/SourceBeside.h"
#include "monitor/window/SourceImport.h"
#include "monitor/window/SourceSwitch.h"
#include "monitor/window/Symbols.h"

#include <QMessageBox>

namespace Monitor {

AddSourceAction::AddSourceAction(Companions &companions,
                                 Session &lead,
                                 SourceSwitch &sources,
                                 WindowSettings &settings,
                                 QWidget *window)
    : QAction(symbol(QStringLiteral("connect")), tr("&Add source..."), window)
    , m_companions(companions)
    , m_lead(lead)
    , m_sources(sources)
    , m_settings(settings)
    , m_window(window)
{
    setObjectName(QStringLiteral("addSource"));
    setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_N));
    connect(this, &QAction::triggered, this, &AddSourceAction::ask);
}

void AddSourceAction::ask()
{
    ConnectDialog dialog(m_lead.clock(), m_sources.options().file, m_window);
    dialog.setWindowTitle(tr("Add source"));
    dialog.setOpenSource(m_sources.current());
    dialog.setKept(keptConnections(m_settings));
    fitToScreen(&dialog);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    keepConnections(dialog.kept(), m_settings);
    if (accepted)
        add(dialog.source());
}

bool AddSourceAction::add(const QString &text)
{
    if (m_lead.source().isNone())
        return m_sources.open(text);
    const std::optional<ImportOptions> import =
        importOfSource(text, ImportOptions(), &m_settings, m_window);
    if (!import)
        return false; // the person does not want to open it
    QString error;
    std::unique_ptr<Source> source = sourceBeside(m_lead, text, *import, &error);
    if (!source) {
        QMessageBox::warning(m_window, tr("Add source"), error);
        return false;
    }
    addBeside(m_companions, {QString(), text}, std::move(source), m_settings);
    return true;
}

} // namespace Monitor
