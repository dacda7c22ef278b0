// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/LogText_p.h"
#include "corvale_qt/widgets/RVXLogBrowserSyntaxHighlighter_p.h"

#include <QPointer>

namespace Corvale_Qt {

void RVXLogBrowserSyntaxHighlighterPrivate::color(const QString &line,
                                                  const KeywordPatterns &keywords,
                                                  const QColor &color)
{
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    format.setForeground(color);
    for (const KeywordPattern &keyword : keywords.patterns()) {
        KeywordSearch search(keyword, line);
        QRegularExpressionMatch match = search.next();
        // A match at 0 colours only itself: kept on purpose for hosts whose lines begin with the keyword.
        if (wholeBlock && match.hasMatch() && match.capturedStart() > 0) {
            q->setFormat(0, line.size(), format);
            continue;
        }
        for (; match.hasMatch(); match = search.next())
            q->setFormat(match.capturedStart(), match.capturedLength(), format);
    }
}

RVXLogBrowserSyntaxHighlighterPrivate::Found
RVXLogBrowserSyntaxHighlighterPrivate::find(const QString &line) const
{
    if (!enabled)
        return {};
    return {errorKeywords.areIn(line), warningKeywords.areIn(line)};
}

//! Emits the signals for \a found. The host may delete the highlighter in answer to the first one.
void RVXLogBrowserSyntaxHighlighterPrivate::announce(const Found &found)
{
    const QPointer<RVXLogBrowserSyntaxHighlighter> alive = q;
    if (found.error)
        Q_EMIT alive->syntaxError();
    if (found.warning && alive)
        Q_EMIT alive->syntaxWarning();
}

RVXLogBrowserSyntaxHighlighter::RVXLogBrowserSyntaxHighlighter(QTextDocument *document)
    : QSyntaxHighlighter(document)
    , d_ptr(new RVXLogBrowserSyntaxHighlighterPrivate(this))
{
    setErrorWarningColorsForNonWhiteBackground();
}

RVXLogBrowserSyntaxHighlighter::~RVXLogBrowserSyntaxHighlighter() = default;

void RVXLogBrowserSyntaxHighlighter::addErrorKeywords(const QStringList &keywords)
{
    Q_D(RVXLogBrowserSyntaxHighlighter);
    d->errorKeywords.set(keywords);
}

void RVXLogBrowserSyntaxHighlighter::addWarningKeywords(const QStringList &keywords)
{
    Q_D(RVXLogBrowserSyntaxHighlighter);
    d->warningKeywords.set(keywords);
}

QColor RVXLogBrowserSyntaxHighlighter::errorColor() const
{
    Q_D(const RVXLogBrowserSyntaxHighlighter);
    return d->errorColor;
}

void RVXLogBrowserSyntaxHighlighter::setErrorColor(const QColor &color)
{
    Q_D(RVXLogBrowserSyntaxHighlighter);
    d->errorColor = color;
}

QColor RVXLogBrowserSyntaxHighlighter::warningColor() const
{
    Q_D(const RVXLogBrowserSyntaxHighlighter);
    return d->warningColor;
}

void RVXLogBrowserSyntaxHighlighter::setWarningColor(const QColor &color)
{
    Q_D(RVXLogBrowserSyntaxHighlighter);
    d->warningColor = color;
}

void RVXLogBrowserSyntaxHighlighter::setErrorWarningColorsForNonWhiteBackground()
{
    setErrorColor(QColor(255, 255, 32));
    setWarningColor(QColor(250, 220, 80));
}

void RVXLogBrowserSyntaxHighlighter::setErrorWarningColorsForWhiteBackground()
{
    setErrorColor(QColor(255, 125, 40));
    setWarningColor(QColor(245, 200, 5));
}

bool RVXLogBrowserSyntaxHighlighter::isEnabled() const
{
    Q_D(const RVXLogBrowserSyntaxHighlighter);
    return d->enabled;
}

void RVXLogBrowserSyntaxHighlighter::setEnabled(bool enabled)
{
    Q_D(RVXLogBrowserSyntaxHighlighter);
    d->enabled = enabled;
}

bool RVXLogBrowserSyntaxHighlighter::wholeBlockSyntaxHighlighting() const
{
    Q_D(const RVXLogBrowserSyntaxHighlighter);
    return d->wholeBlock;
}

void RVXLogBrowserSyntaxHighlighter::setWholeBlockSyntaxHighlighting(bool on)
{
    Q_D(RVXLogBrowserSyntaxHighlighter);
    d->wholeBlock = on;
}

void RVXLogBrowserSyntaxHighlighter::highlightBlock(const QString &text)
{
    Q_D(RVXLogBrowserSyntaxHighlighter);
    if (currentBlock().position() >= d->plainFrom)
        return;
    const QString line = withWholeCharacters(text);
    const auto found = d->find(line);
    if (found.error)
        d->color(line, d->errorKeywords, d->errorColor);
    if (found.warning)
        d->color(line, d->warningKeywords, d->warningColor);
    if (!d->isQuiet)
        d->announce(found);
}

} // namespace Corvale_Qt
