// SPDX-License-Identifier: LGPL-2.1-or-later
/* +------------------------------------------------------------------+
   | Not part of the interface: this header may change in any version. |
   +------------------------------------------------------------------+ */
#pragma once

#include <QByteArray>
#include <QString>

namespace Corvale_Qt {

/*! The text of an XML document, decoded as its byte order mark or its declaration says, otherwise as UTF-8. Null where
    the bytes are no text in that encoding.

    Null also where a reader could be kept busy for hours before it reports anything: for a tag with more than 64
    attributes, of which each is compared with all others, and for a document type with declarations of its own. */
QString xmlDocumentText(const QByteArray &document);

} // namespace Corvale_Qt
