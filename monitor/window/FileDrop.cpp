// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/FileDrop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

namespace Monitor {

namespace {

//! Returns the path of the one file that is dragged; empty for anything else.
QString onlyFile(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 && urls.first().isLocalFile() ? urls.first().toLocalFile() : QString();
}

} // namespace

FileDrop::FileDrop(QWidget *window)
    : QObject(window)
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject *, QEvent *event)
{
    const bool drops = event->type() == QEvent::Drop;
    if (!drops && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove)
        return false;
    auto *drop = static_cast<QDropEvent *>(event);
    const QString path = onlyFile(drop->mimeData());
    if (path.isEmpty() || !drop->possibleActions().testFlag(Qt::CopyAction))
        return false;
    // The file is only read. A program that offers to move it would remove it after a move.
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    // The program that drags waits for the answer; a question must not keep it waiting.
    if (drops)
        QTimer::singleShot(0, this, [this, path] {
            Q_EMIT dropped(path);
        });
    return true;
}

} // namespace Monitor
