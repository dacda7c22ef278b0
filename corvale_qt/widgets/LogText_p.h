// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QStringList>

namespace Corvale_Qt {

//! Returns \a text, of the same length, with each lone surrogate replaced by U+FFFD.
QString withWholeCharacters(const QString &text);

/*! Returns the lines of \a text, at least one. Lines end with a line feed or with carriage return and line feed; a line
    feed at the very end does not begin another line.

    Every character except the tab is made visible: a control character becomes its symbol, and any other separator of
    lines or paragraphs becomes the symbol for a new line. A character that would change the direction of the text, or
    that a text document uses internally, becomes U+FFFD. */
QStringList logLines(const QString &text);

/*! Splits \a line into parts of at most 4096 characters, which a text document lays out and paints fast. A part
    ends after a blank if there is one in its second half. */
QStringList partsOfLine(const QString &line);

} // namespace Corvale_Qt
