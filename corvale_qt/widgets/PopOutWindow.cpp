// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/PopOutWindow_p.h"

#include <QChildEvent>
#include <QCloseEvent>
#include <QHash>
#include <QVBoxLayout>

namespace Corvale_Qt {

namespace {

//! The text of a tab without the marks of its mnemonic.
QString withoutMnemonic(QString text)
{
    for (int i = 0; i < text.size(); ++i)
        if (text.at(i) == '&')
            text.remove(i, 1);
    return text;
}

//! Where the windows of pages were last, by the pages' names, while the program runs.
QHash<QString, QByteArray> &rememberedGeometries()
{
    static QHash<QString, QByteArray> geometries;
    return geometries;
}

} // namespace

PopOutWindow::PopOutWindow(QWidget *page, const TabLook &look, QWidget *owner)
    : QWidget(owner, Qt::Window)
    , m_page(page)
    , m_look(look)
    , m_name(page->objectName().isEmpty() ? look.text : page->objectName())
{
    setWindowTitle(withoutMnemonic(look.text));
    setWindowIcon(look.icon);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(page);
    page->show();
}

PopOutWindow::~PopOutWindow()
{
    // While this is a whole window still.
    if (m_page)
        Q_EMIT pageLeft();
}

void PopOutWindow::place(const QSize &size, const QPoint *at)
{
    constexpr int kOffset = 24;
    resize(size);
    move(parentWidget()->mapToGlobal(QPoint(kOffset, kOffset)));
    restoreGeometry(rememberedGeometries().value(m_name));
    if (at)
        move(*at - QPoint(kOffset, kOffset / 2));
}

QWidget *PopOutWindow::takePage()
{
    QWidget *page = m_page;
    m_page = nullptr;
    return page;
}

void PopOutWindow::childEvent(QChildEvent *event)
{
    QWidget::childEvent(event);
    if (event->removed() && m_page && event->child() == m_page) {
        m_page = nullptr;
        Q_EMIT pageLeft();
    }
}

void PopOutWindow::closeEvent(QCloseEvent *event)
{
    event->accept();
    Q_EMIT backRequested();
}

void PopOutWindow::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    rememberedGeometries().insert(m_name, saveGeometry());
}

} // namespace Corvale_Qt
