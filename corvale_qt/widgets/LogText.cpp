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
    if (c < 0x20)
        return QChar(kFirstControlSymbol + c);
    if (c == 0x7f)
        return QChar(kSymbolForDelete);
    if (c == 0x85 || isIn(c, 0x2028, 0x2029))
        return QChar(kSymbolForNewLine);
    const bool isControl = isIn(c, 0x80, 0x9f);
    const bool turnsDirection = isIn(c, 0x202a, 0x202e) || isIn(c, 0x2066, 0x2069);
    // The ends of frames and the place of an object in a text document.
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

QString literalText(const QString &text)
{
    QString line = withWholeCharacters(text);
    std::transform(line.begin(), line.end(), line.begin(), visible);
    return line;
}

} // namespace Corvale_Qt
