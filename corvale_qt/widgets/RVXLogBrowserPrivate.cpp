// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXLogBrowser_p.h"

#include <QAbstractTextDocumentLayout>
#include <QPointer>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

namespace Corvale_Qt {

RVXLogBrowserPrivate::RVXLogBrowserPrivate(RVXLogBrowser *browser)
    : q(browser)
{
    ui.setupUi(browser);
    highlighter = new RVXLogBrowserSyntaxHighlighter(document());
    connectHighlighter();
    followTheEnd();
}

void RVXLogBrowserPrivate::connectHighlighter()
{
    QObject::connect(highlighter, &RVXLogBrowserSyntaxHighlighter::syntaxError, q, [this] {
        errorSeen = errorSeen || relay == Relay::Remember;
        if (relay == Relay::AtOnce)
            Q_EMIT q->syntaxError();
    });
    QObject::connect(highlighter, &RVXLogBrowserSyntaxHighlighter::syntaxWarning, q, [this] {
        warningSeen = warningSeen || relay == Relay::Remember;
        if (relay == Relay::AtOnce)
            Q_EMIT q->syntaxWarning();
    });
}

//! Keeps the newest line in sight, whatever changes the height of text or view, until the user scrolls up.
void RVXLogBrowserPrivate::followTheEnd()
{
    QObject::connect(scrollBar(), &QScrollBar::rangeChanged, q, [this](int, int maximum) {
        if (following)
            scrollBar()->setValue(maximum);
    });
    QObject::connect(scrollBar(), &QScrollBar::valueChanged, q, [this](int value) {
        following = value >= scrollBar()->maximum();
    });
}

qreal RVXLogBrowserPrivate::topOf(const QTextCursor &cursor) const
{
    return document()->documentLayout()->blockBoundingRect(cursor.block()).top();
}

/*! Each time lines drop off the document lays out anew all that are left: 15 ms with 10000 of them. So they go
    by the hundredth of the limit, which makes this 0.2 ms for a line; small limits are left to the document. */
void RVXLogBrowserPrivate::dropOldLines()
{
    const int limit = document()->maximumBlockCount();
    const int portion = limit / 100;
    if (portion < 2 || document()->blockCount() < limit)
        return;
    QTextCursor old(document());
    old.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor, portion);
    old.removeSelectedText();
}

/*! Adding a block makes the highlighter go over the line before it, and over the first line when the oldest
    ones drop off. These have been announced when they came, so only the new line's own text is listened to. */
void RVXLogBrowserPrivate::insertLine(const QString &line)
{
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    relay = Relay::Ignore;
    dropOldLines();
    if (!document()->isEmpty())
        cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    relay = Relay::Remember;
    cursor.insertText(line, QTextCharFormat());
    relay = Relay::AtOnce;
}

void RVXLogBrowserPrivate::append(const QString &line)
{
    const bool stay = !following;
    const QTextCursor inSight = stay ? ui.textBrowser->cursorForPosition(QPoint()) : QTextCursor();
    const qreal before = stay ? topOf(inSight) : 0;

    errorSeen = false;
    warningSeen = false;
    insertLine(line);
    if (stay)
        scrollBar()->setValue(scrollBar()->value() + qRound(topOf(inSight) - before));
    else
        scrollBar()->setValue(scrollBar()->maximum());

    // Not before the edit is over: the host may answer with a line of its own, or clear them all.
    const bool isWarning = warningSeen;
    const QPointer<RVXLogBrowser> alive = q;
    if (errorSeen)
        Q_EMIT q->syntaxError();
    if (isWarning && alive)
        Q_EMIT q->syntaxWarning();
}

} // namespace Corvale_Qt
