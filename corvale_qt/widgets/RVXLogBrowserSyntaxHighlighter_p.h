// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/widgets/KeywordPatterns_p.h"
#include "corvale_qt/widgets/RVXLogBrowserSyntaxHighlighter.h"

#include <limits>

namespace Corvale_Qt {

class RVXLogBrowserSyntaxHighlighterPrivate
{
public:
    //! What a line holds.
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
    //! Nothing while the highlighter is not enabled.
    Found find(const QString &line) const;
    void announce(const Found &found);

    RVXLogBrowserSyntaxHighlighter *const q;
    KeywordPatterns errorKeywords;
    KeywordPatterns warningKeywords;
    QColor errorColor;
    QColor warningColor;
    bool wholeBlock = false;
    bool enabled = true;
    //! Blocks are coloured without being announced.
    bool isQuiet = false;
    //! Blocks that begin at this position of the document or behind it are left without colours for now.
    int plainFrom = std::numeric_limits<int>::max();
};

} // namespace Corvale_Qt
