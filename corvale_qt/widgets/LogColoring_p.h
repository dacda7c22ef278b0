// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QTextBlock>
#include <QTextCursor>

class QTextEdit;

namespace Corvale_Qt {

class RVXLogBrowserSyntaxHighlighter;
class RVXLogBrowserSyntaxHighlighterPrivate;

/*! Has the lines of a log coloured and announced, each in its time. A line is announced once, when it comes. Short
    texts are coloured when they are inserted, as is the end of a long one; the rest of it follows in portions, the
    newest lines first. */
class LogColoring
{
public:
    LogColoring(RVXLogBrowserSyntaxHighlighter *highlighter, QTextEdit *view);

    //! For what rewrites old lines: while one is alive, the highlighter announces nothing.
    class Quiet
    {
    public:
        explicit Quiet(LogColoring &coloring);
        ~Quiet();
        Q_DISABLE_COPY(Quiet)

    private:
        RVXLogBrowserSyntaxHighlighterPrivate &m_highlighter;
        const bool m_before;
    };

    //! Inserts \a text at \a cursor, the end of the document, as its last block or blocks; announces nothing.
    void insert(QTextCursor &cursor, const QString &text);
    //! Emits what belongs to \a line; the host may delete all this in answer.
    void announce(const QString &line);

    //! Whether there are lines without their colours.
    bool isPending() const { return m_plain.hasSelection(); }
    void colorInSight();
    //! The newest of them.
    void colorPortion();

private:
    void addPlain(int from);
    void color(const QTextBlock &first, const QTextBlock &last);

    RVXLogBrowserSyntaxHighlighterPrivate &m_highlighter;
    QTextEdit *const m_view;
    //! From the first to the last block without colours.
    QTextCursor m_plain;
};

} // namespace Corvale_Qt
