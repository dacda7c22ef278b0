// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include <QByteArray>
#include <QStringList>

namespace Corvale_Qt {

//! Returns the MIME type of dragged channel names: QStrings one after the other, as QDataStream writes them.
QString channelNameListType();

//! Returns the payload for \a names.
QByteArray writeChannelNames(const QStringList &names);
/*! Returns the names in a payload, which may come from any program. Reading stops at the first string that is
    incomplete, and after \a most names. */
QStringList readChannelNames(const QByteArray &payload, int most);

} // namespace Corvale_Qt
