// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/PictureActions.h"

#include "monitor/window/DisplayTabs.h"
#include "monitor/window/PictureExport.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>

namespace Monitor {

PictureActions::PictureActions(DisplayTabs &displays, QMenu *menu, QWidget *window)
    : QObject(window)
    , m_displays(displays)
    , m_window(window)
    , m_folder(QDir::homePath())
{
    QAction *save = menu->addAction(tr("Save &picture..."), this, &PictureActions::save);
    save->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_P));
    save->setShortcutContext(Qt::ApplicationShortcut);
    QAction *copy = menu->addAction(tr("&Copy picture"), this, [this] {
        PictureExport::copy(m_displays.displayInUse());
    });
    copy->setObjectName(QStringLiteral("copyPicture"));
    copy->setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_C));
    copy->setShortcutContext(Qt::ApplicationShortcut);
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

} // namespace Monitor
