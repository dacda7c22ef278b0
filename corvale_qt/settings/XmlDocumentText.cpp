// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/settings/XmlDocumentText_p.h"

#include <QRegularExpression>
#include <QTextCodec>

namespace Corvale_Qt {

namespace {

const int maximumAttributes = 64;

QTextCodec *codecOf(const QByteArray &document)
{
    if (QTextCodec *codec = QTextCodec::codecForUtfText(document, nullptr))
        return codec;
    static const QRegularExpression declaration(
        R"(^<\?xml\s[^>]*encoding\s*=\s*["']([\w.:-]+)["'])");
    constexpr int kLongestDeclaration = 200;
    const QRegularExpressionMatch match =
        declaration.match(QString::fromLatin1(document.left(kLongestDeclaration)));
    return QTextCodec::codecForName(match.hasMatch() ? match.captured(1).toLatin1() : "UTF-8");
}

//! The place behind the next \a mark; the end of the text where there is none.
int behind(const QString &text, const QString &mark, int from)
{
    const int found = text.indexOf(mark, from);
    return found < 0 ? text.size() : found + mark.size();
}

//! The place behind the tag that begins at \a start; -1 for one that costs too much.
int behindTag(const QString &text, int start)
{
    QChar quote;
    int attributes = 0;
    for (int i = start; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if (c == '"' || c == '\'') {
            quote = c;
            if (++attributes > maximumAttributes)
                return -1;
        } else if (c == '>') {
            return i + 1;
        } else if (c == '[') {
            return -1; // declarations; in a tag it is an error
        }
    }
    return text.size();
}

bool isCheapToRead(const QString &text)
{
    for (int i = text.indexOf('<'); i >= 0; i = text.indexOf('<', i)) {
        if (text.midRef(i, 4) == "<!--")
            i = behind(text, "-->", i + 4);
        else if (text.midRef(i, 9) == "<![CDATA[")
            i = behind(text, "]]>", i + 9);
        else if (text.midRef(i, 2) == "<?")
            i = behind(text, "?>", i + 2);
        else
            i = behindTag(text, i);
        if (i < 0)
            return false;
    }
    return true;
}

} // namespace

QString xmlDocumentText(const QByteArray &document)
{
    const QTextCodec *codec = codecOf(document);
    if (!codec)
        return QString();
    QTextCodec::ConverterState state;
    const QString text = codec->toUnicode(document.constData(), document.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0 || !isCheapToRead(text))
        return QString();
    return text;
}

} // namespace Corvale_Qt
