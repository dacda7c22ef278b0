// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/LogColoring_p.h"
#include "corvale_qt/widgets/RVXLogBrowserSyntaxHighlighter_p.h"

#include <QTextEdit>
#include <QTextLayout>

namespace Corvale_Qt {

namespace {

/*! The number of characters that are coloured at once. With 50 keywords that all occur, searching these characters and
    laying out the bold text takes about 20 ms. */
constexpr int kPortion = 20000;

} // namespace

LogColoring::LogColoring(RVXLogBrowserSyntaxHighlighter *highlighter, QTextEdit *view)
    : m_highlighter(*highlighter->d_func())
    , m_view(view)
{
}

LogColoring::Quiet::Quiet(LogColoring &coloring)
    : m_highlighter(coloring.m_highlighter)
    , m_before(m_highlighter.isQuiet)
{
    m_highlighter.isQuiet = true;
}

LogColoring::Quiet::~Quiet()
{
    m_highlighter.isQuiet = m_before;
}

void LogColoring::insert(QTextCursor &cursor, const QString &text)
{
    const Quiet quiet(*this);
    const int from = cursor.position();
    const bool isLong = text.size() > kPortion;
    const int before = m_highlighter.plainFrom;
    if (isLong)
        m_highlighter.plainFrom = from;
    cursor.insertText(text, QTextCharFormat());
    m_highlighter.plainFrom = before;
    if (isLong) {
        addPlain(from);
        colorPortion();
    }
}

void LogColoring::addPlain(int from)
{
    const int begin = isPending() ? m_plain.selectionStart() : from;
    m_plain = QTextCursor(m_view->document());
    m_plain.setPosition(begin);
    m_plain.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
}

void LogColoring::announce(const QString &line)
{
    m_highlighter.announce(m_highlighter.find(line));
}

void LogColoring::colorInSight()
{
    if (!isPending())
        return;
    const QPoint bottom = m_view->viewport()->rect().bottomRight();
    const QTextBlock first = m_view->cursorForPosition(QPoint()).block();
    const QTextBlock last = m_view->cursorForPosition(bottom).block();
    if (last.position() >= m_plain.selectionStart() && first.position() <= m_plain.selectionEnd())
        color(first, last);
}

void LogColoring::colorPortion()
{
    const int begin = m_plain.selectionStart();
    const QTextBlock last = m_view->document()->findBlock(m_plain.selectionEnd());
    QTextBlock first = last;
    for (int length = first.length(); first.position() > begin && length < kPortion;) {
        first = first.previous();
        length += first.length();
    }
    color(first, last);
    m_plain.setPosition(begin);
    if (first.position() > begin)
        m_plain.setPosition(first.position() - 1, QTextCursor::KeepAnchor);
}

/*! Colours and lays out the blocks from \a first to \a last together, by marking them as changed. If they
    changed one by one, the document would move all following blocks for each of them. */
void LogColoring::color(const QTextBlock &first, const QTextBlock &last)
{
    const Quiet quiet(*this);
    QTextCursor edit(m_view->document());
    edit.beginEditBlock();
    first.layout()->clearFormats();
    last.layout()->clearFormats();
    edit.endEditBlock();
}

} // namespace Corvale_Qt
