// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for RVXLogBrowser alone.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/widgets/LogColouring_p.h"
#include "corvale_qt/widgets/LogScroll_p.h"
#include "corvale_qt/widgets/RVXLogBrowser.h"
#include "corvale_qt/widgets/RVXLogBrowserSyntaxHighlighter.h"

#include "ui_RVXLogBrowser.h"

#include <QTimer>

namespace Corvale_Qt {

//! Adds the lines, and drops the oldest.
class RVXLogBrowserPrivate
{
public:
    explicit RVXLogBrowserPrivate(RVXLogBrowser *browser);

    QTextDocument *document() const { return ui.textBrowser->document(); }
    void append(const QString &text);
    void setMaximumBlockCount(int maximum);

    RVXLogBrowser *const q;
    Ui::RVXLogBrowser ui;
    RVXLogBrowserSyntaxHighlighter *const highlighter;
    LogScroll scroll;
    bool syntaxHighlighting = true;

private:
    RVXLogBrowserSyntaxHighlighter *makeHighlighter();
    void insert(const QStringList &lines);
    void makeRoomFor(int blocks);
    void colourWhenIdle();

    LogColouring colouring;
    QTimer idle;
};

} // namespace Corvale_Qt
