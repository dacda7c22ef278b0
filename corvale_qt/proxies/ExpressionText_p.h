// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/proxies/ChannelExpressions.h"

#include <QVector>

namespace Corvale_Qt {

/*! An expression with the names of channels replaced by v0, v1 and so on, so that names may have any letters. It remembers where
    each character came from. */
struct ExpressionText
{
    QByteArray text;
    QVector<int>
        origins; //!< position in the expression of each character of the text, and of its end
    QVector<int> channels; //!< which channels are used, each once

    /*! Reads an expression. \a names are those of the channels; ranges of channels end before channel \a rangeEnd. Returns a text
        without characters, with a \a fault, if a character or a name means nothing. */
    static ExpressionText
    from(const QString &expression, const QStringList &names, int rangeEnd, ExpressionFault *fault);
};

} // namespace Corvale_Qt
