// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QColor>
#include <QStringList>
#include <QSyntaxHighlighter>

namespace Corvale_Qt {

class RVXLogBrowserSyntaxHighlighterPrivate;

/*! Colours error and warning keywords in the lines of a document, and says when a line holds one.

    A keyword is found as a whole word ("\b" before and behind it), in its own case; it is put into the pattern
    as it is, so that regular-expression characters in it act as such. A keyword that makes no valid pattern is
    left out, with one line on the debug stream. An empty keyword is found at every border of a word, and
    colours nothing.

    A keyword with pattern syntax in it costs at most 10 ms for a line: where the pattern takes longer, the rest of
    the line goes without it.

    Keywords, colours and switches count for lines that are highlighted from then on; rehighlight() goes over
    the whole document again, and announces again what it finds. */
class CORVALE_QT_EXPORT RVXLogBrowserSyntaxHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    explicit RVXLogBrowserSyntaxHighlighter(QTextDocument *document);
    ~RVXLogBrowserSyntaxHighlighter() override;

    //! Replaces the whole list, in spite of the name: kept for hosts already built.
    void addErrorKeywords(const QStringList &keywords);
    //! Replaces the whole list, in spite of the name: kept for hosts already built.
    void addWarningKeywords(const QStringList &keywords);

    QColor errorColor() const;
    void setErrorColor(const QColor &color);
    QColor warningColor() const;
    void setWarningColor(const QColor &color);
    //! The colours at first: bright ones, for a dark or coloured ground.
    void setErrorWarningColorsForNonWhiteBackground();
    void setErrorWarningColorsForWhiteBackground();

    //! True at first.
    bool isEnabled() const;
    void setEnabled(bool enabled);

    /*! Whether a keyword colours its whole line; false at first. A keyword at the very beginning of a line
        colours only itself all the same: kept for hosts whose lines begin with the word. */
    bool wholeBlockSyntaxHighlighting() const;
    void setWholeBlockSyntaxHighlighting(bool on);

Q_SIGNALS:
    //! A line that was just highlighted holds an error keyword; comes before syntaxWarning() of the same line.
    void syntaxError();
    //! A line that was just highlighted holds a warning keyword.
    void syntaxWarning();

protected:
    void highlightBlock(const QString &text) override;

private:
    friend class LogColoring;
    Q_DECLARE_PRIVATE(RVXLogBrowserSyntaxHighlighter)
    const QScopedPointer<RVXLogBrowserSyntaxHighlighterPrivate> d_ptr;
};

} // namespace Corvale_Qt
