// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/widgets/KeywordPatterns_p.h"
#include "corvale_qt/widgets/RVXLogBrowserSyntaxHighlighter.h"

#include <limits>

namespace Corvale_Qt {

//! The keywords and their colours; LogColoring uses it to colour lines without announcing them, or later.
class RVXLogBrowserSyntaxHighlighterPrivate
{
public:
    //! Whether a line contains error or warning keywords.
    struct Found
    {
        bool error = false;
        bool warning = false;
    };

    explicit RVXLogBrowserSyntaxHighlighterPrivate(RVXLogBrowserSyntaxHighlighter *highlighter)
        : q(highlighter)
    {
    }

    //! Colours the \a keywords in \a line, the text of the current block.
    void color(const QString &line, const KeywordPatterns &keywords, const QColor &color);
    //! Searches \a line for keywords; finds nothing while the highlighter is disabled.
    Found find(const QString &line) const;
    void announce(const Found &found);

    RVXLogBrowserSyntaxHighlighter *const q;
    KeywordPatterns errorKeywords;
    KeywordPatterns warningKeywords;
    QColor errorColor;
    QColor warningColor;
    bool wholeBlock = false;
    bool enabled = true;
    //! Blocks are coloured, but no signals are emitted.
    bool isQuiet = false;
    //! Blocks that begin at or after this position of the document are not coloured yet.
    int plainFrom = std::numeric_limits<int>::max();
};

} // namespace Corvale_Qt
