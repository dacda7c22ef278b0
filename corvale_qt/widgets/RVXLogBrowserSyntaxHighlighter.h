// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QColor>
#include <QStringList>
#include <QSyntaxHighlighter>

namespace Corvale_Qt {

class RVXLogBrowserSyntaxHighlighterPrivate;

/*! Colours error and warning keywords in the lines of a document, and emits a signal for each line that contains
    one.

    A keyword matches as a whole word (with "\b" before and after it) and is case-sensitive. It is used as a
    regular expression, so special characters in it have their special meaning. A keyword that is not a valid
    pattern is ignored, with one line on the debug stream. An empty keyword matches at every word boundary and
    colours nothing.

    A keyword with pattern syntax takes at most 10 ms per line; if the pattern needs longer, the rest of the line
    is not searched for it.

    Changed keywords, colours and switches apply to lines that are highlighted afterwards. rehighlight() colours
    the whole document again, and emits the signals of all its lines again. */
class CORVALE_QT_EXPORT RVXLogBrowserSyntaxHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    //! Installs the highlighter on \a document, which becomes its parent; without keywords it colours nothing.
    explicit RVXLogBrowserSyntaxHighlighter(QTextDocument *document);
    ~RVXLogBrowserSyntaxHighlighter() override;

    //! Replaces all error keywords. The name says "add", but is kept for hosts that are already built.
    void addErrorKeywords(const QStringList &keywords);
    //! Replaces all warning keywords. The name says "add", but is kept for hosts that are already built.
    void addWarningKeywords(const QStringList &keywords);

    //! Returns the colour of error keywords.
    QColor errorColor() const;
    //! Sets the colour of error keywords.
    void setErrorColor(const QColor &color);
    //! Returns the colour of warning keywords.
    QColor warningColor() const;
    //! Sets the colour of warning keywords, which covers that of an error keyword at the same place.
    void setWarningColor(const QColor &color);
    //! Sets bright colours for a dark or coloured background; these are the default.
    void setErrorWarningColorsForNonWhiteBackground();
    //! Sets darker colours for a white background.
    void setErrorWarningColorsForWhiteBackground();

    //! Returns whether lines are coloured and signals are emitted; true by default.
    bool isEnabled() const;
    //! Sets whether lines are coloured and signals are emitted.
    void setEnabled(bool enabled);

    //! Returns whether a keyword colours its whole line; false by default.
    bool wholeBlockSyntaxHighlighting() const;
    /*! Sets whether a keyword colours its whole line. A keyword at the very beginning of a line still colours only
        itself: this is kept for hosts whose lines begin with the keyword. */
    void setWholeBlockSyntaxHighlighting(bool on);

Q_SIGNALS:
    //! Emitted when a line with an error keyword has been highlighted, before syntaxWarning() of the same line.
    void syntaxError();
    //! Emitted when a line with a warning keyword has been highlighted.
    void syntaxWarning();

protected:
    void highlightBlock(const QString &text) override;

private:
    friend class LogColoring;
    Q_DECLARE_PRIVATE(RVXLogBrowserSyntaxHighlighter)
    const QScopedPointer<RVXLogBrowserSyntaxHighlighterPrivate> d_ptr;
};

} // namespace Corvale_Qt
