// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QTextBlock>
#include <QTextCursor>

class QTextEdit;

namespace Corvale_Qt {

class RVXLogBrowserSyntaxHighlighter;
class RVXLogBrowserSyntaxHighlighterPrivate;

/*! Decides when the lines of a log are coloured and announced. A line is announced once, when it is appended. A
    short text, and the end of a long one, is coloured when it is inserted. The rest of a long text is coloured
    later in portions, the newest lines first. */
class LogColoring
{
public:
    LogColoring(RVXLogBrowserSyntaxHighlighter *highlighter, QTextEdit *view);

    //! While an object of this class exists, the highlighter colours lines without announcing them.
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

    //! Inserts \a text at \a cursor, which must be at the end of the document, without announcing it.
    void insert(QTextCursor &cursor, const QString &text);
    //! Emits the highlighter's signals for \a line; the host may delete the log browser in answer.
    void announce(const QString &line);

    //! Returns whether some lines are not coloured yet.
    bool isPending() const { return m_plain.hasSelection(); }
    //! Colours the visible lines, if some of them are not coloured yet.
    void colorInSight();
    //! Colours the newest portion of the lines that are not coloured yet.
    void colorPortion();

private:
    void addPlain(int from);
    void color(const QTextBlock &first, const QTextBlock &last);

    RVXLogBrowserSyntaxHighlighterPrivate &m_highlighter;
    QTextEdit *const m_view;
    //! Selects the blocks that are not coloured yet.
    QTextCursor m_plain;
};

} // namespace Corvale_Qt
