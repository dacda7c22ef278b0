// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QTextBlock>
#include <QTextLayout>

inline const QString kError = "#ffff20";
inline const QString kWarning = "#fadc50";
inline const QString kWide = QString::fromUtf8("\xf0\x9f\x92\xa5"); // two UTF-16 units

//! Returns the coloured stretches of a block as "text#color", with a "!" before those that are not bold.
inline QString coloured(const QTextBlock &block)
{
    QStringList stretches;
    const QString text = block.text();
    for (const QTextLayout::FormatRange &range : block.layout()->formats()) {
        const bool bold = range.format.fontWeight() == QFont::Bold;
        stretches << (bold ? "" : "!") + text.mid(range.start, range.length)
                + range.format.foreground().color().name();
    }
    return stretches.join(" | ");
}

//! Appends "E" or "W" to \a announced for each error or warning that \a source announces.
template<typename Source>
void listen(const Source &source, QString &announced)
{
    QObject::connect(&source, &Source::syntaxError, &source, [&announced] { announced += 'E'; });
    QObject::connect(&source, &Source::syntaxWarning, &source, [&announced] { announced += 'W'; });
}
