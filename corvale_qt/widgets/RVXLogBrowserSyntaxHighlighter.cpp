// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXLogBrowserSyntaxHighlighter.h"

#include "corvale_qt/widgets/LogText_p.h"

#include <QDebug>
#include <QRegularExpression>
#include <QVector>

namespace Corvale_Qt {

namespace {

//! Keywords and the patterns made of them.
class Keywords
{
public:
    void set(const QStringList &words)
    {
        if (m_words.isSharedWith(words))
            return;
        m_words = words;
        m_patterns.clear();
        for (const QString &word : words) {
            // Without the property option "\b" would see a border inside a word with an umlaut.
            const QRegularExpression pattern("\\b" + word + "\\b",
                                             QRegularExpression::UseUnicodePropertiesOption);
            if (pattern.isValid())
                m_patterns.append(pattern);
            else
                qDebug() << "log browser: no pattern:" << word.left(80) << pattern.errorString();
        }
    }
    const QVector<QRegularExpression> &patterns() const { return m_patterns; }

private:
    QStringList m_words;
    QVector<QRegularExpression> m_patterns;
};

//! Where to search next: behind the match, or one character on when it was empty.
int behind(const QRegularExpressionMatch &match, const QString &text)
{
    const int end = match.capturedEnd();
    if (match.capturedLength() > 0)
        return end;
    const bool isWide = end < text.size() && text.at(end).isHighSurrogate();
    return end + (isWide ? 2 : 1);
}

} // namespace

class RVXLogBrowserSyntaxHighlighterPrivate
{
public:
    explicit RVXLogBrowserSyntaxHighlighterPrivate(RVXLogBrowserSyntaxHighlighter *highlighter)
        : q(highlighter)
    {
    }

    //! Colours the \a keywords in \a text, and says whether there was one.
    bool highlight(const QString &text, const Keywords &keywords, const QColor &color);

    RVXLogBrowserSyntaxHighlighter *const q;
    Keywords errorKeywords;
    Keywords warningKeywords;
    QColor errorColor;
    QColor warningColor;
    bool wholeBlock = false;
    bool enabled = true;
};

bool RVXLogBrowserSyntaxHighlighterPrivate::highlight(const QString &text,
                                                      const Keywords &keywords,
                                                      const QColor &color)
{
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    format.setForeground(color);
    bool found = false;
    for (const QRegularExpression &pattern : keywords.patterns()) {
        QRegularExpressionMatch match = pattern.match(text);
        found = found || match.hasMatch();
        // Not for a match at 0: kept on purpose, for hosts whose lines begin with the word.
        if (wholeBlock && match.hasMatch() && match.capturedStart() > 0) {
            q->setFormat(0, text.size(), format);
            continue;
        }
        while (match.hasMatch()) {
            q->setFormat(match.capturedStart(), match.capturedLength(), format);
            // The text was checked by the first search; a check for each match would make this
            // quadratic.
            match = pattern.match(text,
                                  behind(match, text),
                                  QRegularExpression::NormalMatch,
                                  QRegularExpression::DontCheckSubjectStringMatchOption);
        }
    }
    return found;
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
    if (!d->enabled)
        return;
    const QString line = withWholeCharacters(text);
    const bool isError = d->highlight(line, d->errorKeywords, d->errorColor);
    const bool isWarning = d->highlight(line, d->warningKeywords, d->warningColor);
    if (isError)
        Q_EMIT syntaxError();
    if (isWarning)
        Q_EMIT syntaxWarning();
}

} // namespace Corvale_Qt
