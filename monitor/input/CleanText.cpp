// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CleanText.h"

namespace Monitor {

QString cleanText(const QString &text, int length)
{
    QString clean;
    for (const QChar c : text) {
        if (c.isSpace())
            clean += QLatin1Char(' ');
        else if (c.isPrint() || c.isSurrogate())
            clean += c;
    }
    clean = clean.simplified();
    // A surrogate pair is kept or left out as a whole.
    const bool cutsACharacter = clean.size() > length && clean.at(length - 1).isHighSurrogate();
    return clean.left(cutsACharacter ? length - 1 : length).trimmed();
}

} // namespace Monitor
