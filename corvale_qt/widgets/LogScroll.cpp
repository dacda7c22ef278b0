// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/LogScroll_p.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>

namespace Corvale_Qt {

LogScroll::LogScroll(QTextEdit *view)
    : m_view(view)
    , m_bar(view->verticalScrollBar())
{
    QObject::connect(m_bar, &QScrollBar::rangeChanged, &m_context, [this](int, int maximum) {
        if (m_isChanging)
            return;
        m_isFollowing = m_isFollowing || m_bar->value() >= maximum;
        if (m_isFollowing)
            m_bar->setValue(maximum);
    });
    QObject::connect(m_bar, &QScrollBar::valueChanged, &m_context, [this](int value) {
        if (!m_isChanging)
            m_isFollowing = value >= m_bar->maximum();
    });
}

qreal LogScroll::topOf(const QTextCursor &cursor) const
{
    return m_view->document()->documentLayout()->blockBoundingRect(cursor.block()).top();
}

void LogScroll::keepDuring(const std::function<void()> &change)
{
    const bool stays = !m_isFollowing;
    const int value = m_bar->value();
    const QTextCursor read = stays ? m_view->cursorForPosition(QPoint()) : QTextCursor();
    const qreal top = stays ? topOf(read) : 0;
    m_isChanging = true;
    change();
    m_isChanging = false;
    if (stays)
        m_bar->setValue(value + qRound(topOf(read) - top));
    else
        m_bar->setValue(m_bar->maximum());
    m_isFollowing = m_bar->value() >= m_bar->maximum();
}

void LogScroll::follow()
{
    m_isFollowing = true;
    m_bar->setValue(m_bar->maximum());
}

} // namespace Corvale_Qt
