// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CleanText.h"

#include <QTextCodec>

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

QString decodedText(std::string_view bytes)
{
    const int size = int(bytes.size());
    QTextCodec::ConverterState state;
    const QString text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.data(), size, &state);
    return state.invalidChars > 0 || state.remainingChars > 0
        ? QString::fromLatin1(bytes.data(), size)
        : text;
}

} // namespace Monitor
