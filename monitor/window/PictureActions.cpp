// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/PictureActions.h"

#include "monitor/window/PictureDialog.h"
#include "monitor/window/PictureExport.h"
#include "monitor/window/Symbols.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>

namespace Monitor {

using Corvale_Qt::DisplayPicture;

PictureActions::PictureActions(Session &session,
                               DisplayTabs &displays,
                               WindowSettings &settings,
                               QWidget *window)
    : QObject(window)
    , m_maker(session, displays, settings)
    , m_window(window)
    , m_folder(QDir::homePath())
    , m_save(newAction("picture", tr("Save &picture..."), QKeySequence(Qt::CTRL + Qt::Key_P)))
    , m_print(newAction("print", tr("Pr&int..."), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_P)))
    , m_copy(newAction("copyPicture",
                       tr("Copy &picture"),
                       QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_C)))
{
    m_copy->setIcon(symbol(QStringLiteral("picture")));
    connect(m_save, &QAction::triggered, this, &PictureActions::ask);
    connect(m_print, &QAction::triggered, this, &PictureActions::print);
    connect(m_copy, &QAction::triggered, this, [this] {
        copy(m_maker.displayInUse(), m_maker.title());
    });
}

QAction *PictureActions::newAction(const char *name, const QString &text, const QKeySequence &keys)
{
    auto *action = new QAction(symbol(QLatin1String(name)), text, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    action->setShortcutContext(Qt::ApplicationShortcut);
    return action;
}

void PictureActions::ask()
{
    QWidget *display = m_maker.displayInUse(); // the dialog will be the active window in a moment
    PictureDialog dialog(m_maker.options(), m_maker.title(), m_window);
    const int wanted = dialog.exec();
    if (wanted == PictureDialog::Cancel)
        return;
    m_maker.setOptions(dialog.options());
    if (wanted == PictureDialog::Copy)
        copy(display, dialog.title());
    else
        save(display, dialog.title());
}

void PictureActions::save(QWidget *display, const QString &title)
{
    const QString suggested =
        QDir(m_folder).filePath(QStringLiteral("corvale-%1.png").arg(display->objectName()));
    const QString path = QFileDialog::getSaveFileName(m_window,
                                                      tr("Save picture"),
                                                      suggested,
                                                      PictureExport::fileFilter());
    if (path.isEmpty())
        return;
    m_folder = QFileInfo(path).absolutePath();
    // Its time is that of what it shows, which went on while the dialogs were open.
    DisplayPicture picture(m_maker.drawnPart(display));
    m_maker.prepare(picture, display, title);
    QString error;
    if (!PictureExport::save(picture, path, &error))
        QMessageBox::warning(m_window, tr("Save picture"), error);
}

void PictureActions::copy(QWidget *display, const QString &title)
{
    DisplayPicture picture(m_maker.drawnPart(display));
    m_maker.prepare(picture, display, title);
    PictureExport::copy(picture);
}

void PictureActions::print()
{
    QWidget *display = m_maker.displayInUse();
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    DisplayPicture picture(m_maker.drawnPart(display));
    m_maker.prepare(picture, display, m_maker.title());
    if (!PictureExport::print(picture, &printer))
        QMessageBox::warning(
            m_window,
            tr("Print"),
            tr("The printer %1 did not take the picture. Choose another one, or save the "
               "picture instead.")
                .arg(printer.printerName()));
}

} // namespace Monitor
