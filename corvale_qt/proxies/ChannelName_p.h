// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include <QString>

class QAbstractItemModel;

namespace Corvale_Qt {

/*! Returns the name of the channel in \a column of \a model, or an empty string if it has none. In this order: the
    dynamic property "channel" of a model with a single channel; the text in the header row of the innermost model, the
    proxies in between skipped, unless the text is only the number of the column; the name of a
    RVXSingleChannelDataModel. */
QString channelName(const QAbstractItemModel *model, int column);

} // namespace Corvale_Qt
