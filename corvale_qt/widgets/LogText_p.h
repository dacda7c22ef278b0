// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QStringList>

namespace Corvale_Qt {

//! \a text with U+FFFD for each half of a character (lone surrogate); its length stays.
QString withWholeCharacters(const QString &text);

/*! The lines of \a text, at least one; they end at line feeds, with or without a carriage return before, and a
    last line feed begins no further line. Every character but the tab is to be seen: control characters as their
    symbols, other separators of lines and paragraphs as the symbol of a new line; U+FFFD for those that would
    turn the direction of the text around them or that a text document uses for itself. */
QStringList logLines(const QString &text);

/*! \a line in parts of at most 4096 characters, as a text document lays them out and paints them fast; cut behind a
    blank where there is one in the second half. */
QStringList partsOfLine(const QString &line);

} // namespace Corvale_Qt
