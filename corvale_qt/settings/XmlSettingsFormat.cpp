// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/settings/XmlDocumentText_p.h"
#include "corvale_qt/settings/XmlSettingsFormat_p.h"

#include <QIODevice>
#include <QRegularExpression>
#include <QStringList>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

namespace Corvale_Qt {

namespace {

const QLatin1String rootName("Settings");
// What no application has as settings. A few bytes of a hostile file can stand for a long key, over and over, and
// megabytes of it for nothing at all; these bound what that may cost.
const int maximumParts = 32;
const qint64 maximumCharacters = 4 * 1024 * 1024;
const int maximumNodes = 256 * 1024;
const qint64 maximumBytes = 16 * 1024 * 1024;

const QRegularExpression &escapePattern()
{
    static const QRegularExpression pattern("_x([0-9A-F]{4})_");
    return pattern;
}

//! Whether the reader will give this name back; asked of the reader, which knows best.
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
        // "_x" could become an escape together with what is written after it.
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
        // A slash would make two parts of one.
        part += character == '/' ? match.captured() : QString(character);
        end = match.capturedEnd();
    }
    return part + elementName.midRef(end);
}

//! Whether the UTF-16 unit at \a i is, or is half of, a character that a document may hold.
bool isXmlCharacter(const QString &text, int i)
{
    const QChar c = text.at(i);
    if (c.isHighSurrogate())
        return i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
    if (c.isLowSurrogate())
        return i > 0 && text.at(i - 1).isHighSurrogate();
    return (c >= ' ' && c.unicode() < 0xfffe) || c == '\t' || c == '\n' || c == '\r';
}

//! The reader's own answer is another one for a CDATA section, which would be lost when it is written as plain text.
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
    // Readers turn a plain carriage return into a line feed.
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

//! The settings that a document holds; an error of the reader where they are beyond a limit.
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
    QXmlStreamReader reader(xmlDocumentText(document));
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
        // A key that differs in empty parts only gets an element of its own, or its text would be appended.
        const int kept = parts == open ? parts.size() - 1 : commonParts(open, parts);
        for (int i = open.size(); i > kept; --i)
            writer.writeEndElement();
        for (int i = kept; i < parts.size(); ++i)
            writer.writeStartElement(elementName(parts.at(i)));
        writeText(writer, it.value().toString());
        open = parts;
    }
    // Closes what is still open, the root too.
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
    // What would not be read back must not take the place of what is there.
    QSettings::SettingsMap ignored;
    return readDocument(document, ignored) && device.write(document) == document.size();
}

} // namespace Corvale_Qt
