// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LineCounts.h"

#include <QByteArray>

namespace Monitor {

//! A place in a table at which reading can begin, and what must be known of the lines before it.
struct ReadPoint
{
    qint64 offset = 0; //!< bytes of the text before it; a line begins here
    qint64 row = 0; //!< rows of the table before it
    LineCounts counts; //!< of everything before it
    QByteArray context; //!< the lines that describe what follows
    bool isContextKept = true; //!< false if there are too many such lines to be kept
    bool isEntry =
        true; //!< reading can begin here; not so inside a line that is too long, or a line end
};

} // namespace Monitor
