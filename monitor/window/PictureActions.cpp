// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/PictureActions.h"

#include "monitor/window/DisplayTabs.h"
#include "monitor/window/PictureExport.h"
#include "monitor/window/Symbols.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>

namespace Monitor {

PictureActions::PictureActions(DisplayTabs &displays, QWidget *window)
    : QObject(window)
    , m_displays(displays)
    , m_window(window)
    , m_folder(QDir::homePath())
    , m_save(newAction("picture", tr("Save &picture..."), QKeySequence(Qt::CTRL + Qt::Key_P)))
    , m_print(newAction("print", tr("Pr&int..."), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_P)))
{
    connect(m_save, &QAction::triggered, this, &PictureActions::save);
    connect(m_print, &QAction::triggered, this, &PictureActions::print);
}

QAction *PictureActions::newAction(const char *name, const QString &text, const QKeySequence &keys)
{
    auto *action = new QAction(symbol(QLatin1String(name)), text, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    action->setShortcutContext(Qt::ApplicationShortcut);
    return action;
}

void PictureActions::save()
{
    QWidget *display =
        m_displays.displayInUse(); // the dialog will be the active window in a moment
    const QString suggested =
        QDir(m_folder).filePath(QStringLiteral("corvale-%1.png").arg(display->objectName()));
    const QString path = QFileDialog::getSaveFileName(m_window,
                                                      tr("Save picture"),
                                                      suggested,
                                                      PictureExport::fileFilter());
    if (path.isEmpty())
        return;
    m_folder = QFileInfo(path).absolutePath();
    QString error;
    if (!PictureExport::save(display, path, &error))
        QMessageBox::warning(m_window, tr("Save picture"), error);
}

void PictureActions::print()
{
    QWidget *display = m_displays.displayInUse();
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, m_window);
    if (dialog.exec() == QDialog::Accepted && !PictureExport::print(display, &printer))
        QMessageBox::warning(
            m_window,
            tr("Print"),
            tr("The printer %1 did not take the picture. Choose another one, or save the "
               "picture instead.")
                .arg(printer.printerName()));
}

} // namespace Monitor
