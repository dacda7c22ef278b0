// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/LogText_p.h"
#include "corvale_qt/widgets/RVXLogBrowser_p.h"

#include <QPointer>
#include <QTextCursor>

namespace Corvale_Qt {

RVXLogBrowserPrivate::RVXLogBrowserPrivate(RVXLogBrowser *browser)
    : q(browser)
    , highlighter(makeHighlighter())
    , scroll(ui.textBrowser)
    , colouring(highlighter, ui.textBrowser)
{
    using Highlighter = RVXLogBrowserSyntaxHighlighter;
    QObject::connect(highlighter, &Highlighter::syntaxError, q, &RVXLogBrowser::syntaxError);
    QObject::connect(highlighter, &Highlighter::syntaxWarning, q, &RVXLogBrowser::syntaxWarning);
    idle.setSingleShot(true);
    QObject::connect(&idle, &QTimer::timeout, q, [this] {
        colourWhenIdle();
    });
}

RVXLogBrowserSyntaxHighlighter *RVXLogBrowserPrivate::makeHighlighter()
{
    ui.setupUi(q);
    return new RVXLogBrowserSyntaxHighlighter(document());
}

/*! Each time lines drop off the document lays out anew all that are left: 15 ms with 10000 of them. So they go
    by the hundredth of the limit, which makes this 0.2 ms for a line. */
void RVXLogBrowserPrivate::makeRoomFor(int blocks)
{
    const int limit = document()->maximumBlockCount();
    const int excess = document()->blockCount() + blocks - limit;
    if (limit <= 0 || excess <= 0 || document()->isEmpty())
        return;
    QTextCursor old(document());
    const int dropped = qMax(excess, limit / 100);
    if (dropped < document()->blockCount())
        old.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor, dropped);
    else
        old.select(QTextCursor::Document);
    old.removeSelectedText();
}

void RVXLogBrowserPrivate::insert(const QStringList &lines)
{
    QStringList parts;
    for (const QString &line : lines)
        parts << partsOfLine(line);
    const int limit = document()->maximumBlockCount();
    if (limit > 0 && parts.size() > limit)
        parts = parts.mid(parts.size() - limit);

    // Dropping lines changes the first one left, and a new block the one before it.
    const LogColouring::Quiet quiet(colouring);
    makeRoomFor(parts.size());
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    if (!document()->isEmpty())
        cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    colouring.insert(cursor, parts.join(QLatin1Char('\n')));
}

void RVXLogBrowserPrivate::append(const QString &text)
{
    const QStringList lines = logLines(text);
    scroll.keepDuring([&] {
        insert(lines);
    });
    if (colouring.isPending())
        idle.start();
    // Not before the edit is over: the host may answer with a line of its own, or clear them all.
    const QPointer<RVXLogBrowser> alive = q;
    for (auto line = lines.begin(); alive && line != lines.end(); ++line)
        colouring.announce(*line);
}

void RVXLogBrowserPrivate::setMaximumBlockCount(int maximum)
{
    scroll.keepDuring([&] {
        const LogColouring::Quiet quiet(colouring);
        document()->setMaximumBlockCount(maximum);
    });
}

void RVXLogBrowserPrivate::colourWhenIdle()
{
    scroll.keepDuring([this] {
        colouring.colourInSight();
        if (colouring.isPending())
            colouring.colourPortion();
    });
    if (colouring.isPending())
        idle.start();
}

} // namespace Corvale_Qt
