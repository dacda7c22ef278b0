// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/settings/XmlSettingsFormat_p.h"

#include <QIODevice>
#include <QRegularExpression>
#include <QStringList>
#include <QTextCodec>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

namespace Corvale_Qt {

namespace {

const QLatin1String rootName("Settings");
// Limits far above what any application stores. A few bytes of a hostile file can repeat a long key, and megabytes of
// it can hold no setting at all; the limits bound the time and the memory that such a file takes.
const int maximumParts = 32;
const qint64 maximumCharacters = 4 * 1024 * 1024;
const int maximumNodes = 256 * 1024;
const qint64 maximumBytes = 16 * 1024 * 1024;
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

//! Returns the index after the next \a mark; the size of the text if there is no other.
int endOf(const QString &text, const QString &mark, int from)
{
    const int found = text.indexOf(mark, from);
    return found < 0 ? text.size() : found + mark.size();
}

//! Returns the index after the tag that begins at \a start; -1 for a tag that takes too long to read.
int endOfTag(const QString &text, int start)
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
            return -1; // begins the declarations of a document type, and is an error in any other tag
        }
    }
    return text.size();
}

bool isQuicklyRead(const QString &text)
{
    for (int i = text.indexOf('<'); i >= 0; i = text.indexOf('<', i)) {
        if (text.midRef(i, 4) == "<!--")
            i = endOf(text, "-->", i + 4);
        else if (text.midRef(i, 9) == "<![CDATA[")
            i = endOf(text, "]]>", i + 9);
        else if (text.midRef(i, 2) == "<?")
            i = endOf(text, "?>", i + 2);
        else
            i = endOfTag(text, i);
        if (i < 0)
            return false;
    }
    return true;
}

/*! Returns the text of a document, decoded as its byte order mark or its declaration says, otherwise as UTF-8; null if
    the bytes are not text in that encoding.

    Also returns null for a document on which a reader could spend hours before it reports an error: one with a tag of
    more than 64 attributes, each of which is compared with all others, or with declarations in its document type. */
QString decodedDocument(const QByteArray &document)
{
    const QTextCodec *codec = codecOf(document);
    if (!codec)
        return QString();
    QTextCodec::ConverterState state;
    const QString text = codec->toUnicode(document.constData(), document.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0 || !isQuicklyRead(text))
        return QString();
    return text;
}

const QRegularExpression &escapePattern()
{
    static const QRegularExpression pattern("_x([0-9A-F]{4})_");
    return pattern;
}

//! Returns whether an XML reader accepts the name of an element as it is.
bool isElementName(const QString &name)
{
    QXmlStreamReader reader("<" + name + "/>");
    return reader.readNextStartElement() && reader.name() == name && reader.attributes().isEmpty()
        && reader.readNext() == QXmlStreamReader::EndElement
        && reader.readNext() == QXmlStreamReader::EndDocument;
}

bool isPlainNameCharacter(QChar c, bool first)
{
    const ushort code = c.unicode();
    const bool letter = (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || code == '_';
    return letter || (!first && ((code >= '0' && code <= '9') || code == '-' || code == '.'));
}

QString escaped(QChar c)
{
    return QString("_x%1_").arg(QString::number(c.unicode(), 16).toUpper().rightJustified(4, '0'));
}

QString elementName(const QString &part)
{
    if (part == rootName)
        return escaped(part.front()) + part.mid(1);
    if (!part.contains(escapePattern()) && isElementName(part))
        return part;
    QString name;
    for (int i = 0; i < part.size(); ++i) {
        // "_x" could form an escape with the characters after it.
        const bool plain = isPlainNameCharacter(part.at(i), i == 0) && part.midRef(i, 2) != "_x";
        name += plain ? QString(part.at(i)) : escaped(part.at(i));
    }
    return name;
}

QString keyPart(const QString &elementName)
{
    QString part;
    int end = 0;
    QRegularExpressionMatchIterator matches = escapePattern().globalMatch(elementName);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const QChar character(match.capturedRef(1).toUShort(nullptr, 16));
        part += elementName.midRef(end, match.capturedStart() - end);
        // A slash would split the part in two.
        part += character == '/' ? match.captured() : QString(character);
        end = match.capturedEnd();
    }
    return part + elementName.midRef(end);
}

//! Returns whether the UTF-16 unit at \a i is, or is half of, a character that is allowed in XML.
bool isXmlCharacter(const QString &text, int i)
{
    const QChar c = text.at(i);
    if (c.isHighSurrogate())
        return i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
    if (c.isLowSurrogate())
        return i > 0 && text.at(i - 1).isHighSurrogate();
    return (c >= ' ' && c.unicode() < 0xfffe) || c == '\t' || c == '\n' || c == '\r';
}

/*! Returns whether the text is white space. QXmlStreamReader::isWhitespace() is false for a CDATA section of white
    space, which would be lost when it is written as plain text. */
bool isWhitespace(const QStringRef &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        return c == ' ' || c == '\t' || c == '\n' || c == '\r';
    });
}

void writeText(QXmlStreamWriter &writer, QString text)
{
    for (int i = 0; i < text.size(); ++i) {
        if (!isXmlCharacter(text, i))
            text[i] = QChar::ReplacementCharacter;
    }
    // Readers convert a plain carriage return to a line feed.
    const QStringList lines = text.split('\r');
    for (int i = 0; i < lines.size(); ++i) {
        if (i > 0)
            writer.writeEntityReference("#13");
        writer.writeCharacters(lines.at(i));
    }
}

int commonParts(const QStringList &a, const QStringList &b)
{
    const auto end = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first;
    return int(end - a.begin());
}

//! Returns the settings in a document. Raises an error of the reader if they exceed a limit.
QSettings::SettingsMap settingsIn(QXmlStreamReader &reader)
{
    QSettings::SettingsMap settings;
    QStringList parts;
    qint64 characters = 0;
    for (int nodes = 0; !reader.atEnd(); ++nodes) {
        if (nodes > maximumNodes)
            reader.raiseError("The document has too many nodes.");
        reader.readNext();
        if (reader.isStartElement()) {
            if (reader.name() != rootName)
                parts.append(keyPart(reader.name().toString()));
            if (parts.size() > maximumParts)
                reader.raiseError("The elements are nested too deep.");
            nodes += reader.attributes().size() + reader.namespaceDeclarations().size();
        } else if (reader.isEndElement()) {
            if (!parts.isEmpty())
                parts.removeLast();
        } else if (reader.isCharacters() && !isWhitespace(reader.text()) && !parts.isEmpty()) {
            const QString key = parts.join('/');
            characters += key.size() + reader.text().size();
            if (characters > maximumCharacters)
                reader.raiseError("The document is too large.");
            settings.insert(key, reader.text().toString());
        }
    }
    return settings;
}

bool readDocument(const QByteArray &document, QSettings::SettingsMap &settings)
{
    if (document.size() > maximumBytes)
        return false;
    QXmlStreamReader reader(decodedDocument(document));
    const QSettings::SettingsMap read = settingsIn(reader);
    if (reader.hasError())
        return false;
    settings = read;
    return true;
}

QByteArray documentOf(const QSettings::SettingsMap &settings)
{
    QByteArray document;
    QXmlStreamWriter writer(&document);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    writer.writeStartElement(rootName);
    QStringList open;
    for (auto it = settings.cbegin(); it != settings.cend(); ++it) {
        const QStringList parts = it.key().split('/', Qt::SkipEmptyParts);
        if (parts.isEmpty())
            continue;
        // Keys that differ only in empty parts get separate elements, or the second text would be appended to the
        // first.
        const int kept = parts == open ? parts.size() - 1 : commonParts(open, parts);
        for (int i = open.size(); i > kept; --i)
            writer.writeEndElement();
        for (int i = kept; i < parts.size(); ++i)
            writer.writeStartElement(elementName(parts.at(i)));
        writeText(writer, it.value().toString());
        open = parts;
    }
    // This closes all open elements, including the root.
    writer.writeEndDocument();
    return document;
}

} // namespace

bool readXmlSettings(QIODevice &device, QSettings::SettingsMap &settings)
{
    return readDocument(device.read(maximumBytes + 1), settings);
}

bool writeXmlSettings(QIODevice &device, const QSettings::SettingsMap &settings)
{
    const QByteArray document = documentOf(settings);
    // A document that could not be read back must not replace the file.
    QSettings::SettingsMap ignored;
    return readDocument(document, ignored) && device.write(document) == document.size();
}

} // namespace Corvale_Qt
