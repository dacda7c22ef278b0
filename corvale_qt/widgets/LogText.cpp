// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/LogText_p.h"

#include <QVector>

#include <algorithm>

namespace Corvale_Qt {

namespace {

constexpr ushort kReplacement = 0xfffd;
constexpr ushort kSymbolForNewLine = 0x2424;
constexpr ushort kSymbolForDelete = 0x2421;
constexpr ushort kFirstControlSymbol = 0x2400;

constexpr bool isIn(ushort c, ushort first, ushort last)
{
    return c >= first && c <= last;
}

QChar visible(QChar character)
{
    const ushort c = character.unicode();
    if (c == '\t')
        return character;
    if (c < 0x20)
        return QChar(kFirstControlSymbol + c);
    if (c == 0x7f)
        return QChar(kSymbolForDelete);
    if (c == 0x85 || isIn(c, 0x2028, 0x2029))
        return QChar(kSymbolForNewLine);
    const bool isControl = isIn(c, 0x80, 0x9f);
    const bool turnsDirection = isIn(c, 0x202a, 0x202e) || isIn(c, 0x2066, 0x2069);
    // A text document marks the ends of frames and the places of objects with these.
    const bool isInternal = isIn(c, 0xfdd0, 0xfdef) || c == 0xfffc || isIn(c, 0xfffe, 0xffff);
    return isControl || turnsDirection || isInternal ? QChar(kReplacement) : character;
}

} // namespace

QString withWholeCharacters(const QString &text)
{
    if (text.isValidUtf16())
        return text;
    const QVector<uint> characters = text.toUcs4();
    return QString::fromUcs4(characters.constData(), characters.size());
}

QStringList logLines(const QString &text)
{
    QString whole = withWholeCharacters(text);
    whole.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    if (whole.endsWith(QLatin1Char('\n')))
        whole.chop(1);
    QStringList lines = whole.split(QLatin1Char('\n'));
    for (QString &line : lines)
        std::transform(line.begin(), line.end(), line.begin(), visible);
    return lines;
}

QStringList partsOfLine(const QString &line)
{
    constexpr int mostCharacters = 4096;
    QStringList parts;
    int begin = 0;
    while (line.size() - begin > mostCharacters) {
        int end = begin + mostCharacters;
        const int blank = line.lastIndexOf(QLatin1Char(' '), end - 1);
        if (blank >= begin + mostCharacters / 2)
            end = blank + 1;
        else if (line.at(end).isLowSurrogate())
            --end;
        parts << line.mid(begin, end - begin);
        begin = end;
    }
    parts << line.mid(begin);
    return parts;
}

} // namespace Corvale_Qt
