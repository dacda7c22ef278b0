// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for RVXLogBrowser and its highlighter alone.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QString>

namespace Corvale_Qt {

//! \a text with U+FFFD for each half of a character (lone surrogate); its length stays.
QString withWholeCharacters(const QString &text);

/*! \a text as one line of a text document, every character of it to be seen: control characters as their symbols,
    separators of lines and paragraphs as the symbol of a new line; U+FFFD for those that would turn the
    direction of the text around them or that a text document uses for itself. Its length stays. */
QString literalText(const QString &text);

} // namespace Corvale_Qt
