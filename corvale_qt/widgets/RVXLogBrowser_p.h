// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for RVXLogBrowser alone.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/widgets/RVXLogBrowser.h"
#include "corvale_qt/widgets/RVXLogBrowserSyntaxHighlighter.h"

#include "ui_RVXLogBrowser.h"

namespace Corvale_Qt {

//! Adds the lines: each is announced once, and the view follows or stays.
class RVXLogBrowserPrivate
{
public:
    explicit RVXLogBrowserPrivate(RVXLogBrowser *browser);

    QTextDocument *document() const { return ui.textBrowser->document(); }
    QScrollBar *scrollBar() const { return ui.textBrowser->verticalScrollBar(); }
    //! Appends a paragraph; \a line has no ends of lines in it.
    void append(const QString &line);

    RVXLogBrowser *const q;
    Ui::RVXLogBrowser ui;
    RVXLogBrowserSyntaxHighlighter *highlighter = nullptr;
    bool syntaxHighlighting = true;

private:
    //! What becomes of the highlighter's signals.
    enum class Relay {
        AtOnce,
        Ignore,
        Remember
    };

    void connectHighlighter();
    void followTheEnd();
    void insertLine(const QString &line);
    void dropOldLines();
    qreal topOf(const QTextCursor &cursor) const;

    Relay relay = Relay::AtOnce;
    bool errorSeen = false;
    bool warningSeen = false;
    bool following = true;
};

} // namespace Corvale_Qt
