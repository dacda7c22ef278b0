// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QByteArray>
#include <QStringList>

namespace Corvale_Qt {

//! MIME type of dragged channel names: QStrings one after the other, as QDataStream writes them.
QString channelNameListType();

QByteArray writeChannelNames(const QStringList &names);
/*! The names in a payload that may come from anywhere. It is read up to the first string that is not whole, and no
    further than \a most names. */
QStringList readChannelNames(const QByteArray &payload, int most);

} // namespace Corvale_Qt
