// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include <QVariant>

class QAbstractItemModel;
class QModelIndex;

namespace Corvale_Qt {

// What the cells and titles of RVXLatestPlotDataProxyModel show. Models and indexes are those of its source: \a header is a
// channel's cell in the header row, \a sample the channel's newest sample.

//! Returns the data of a reading while the model has no samples.
QVariant cellWithoutSample(int role);
//! Returns the channel's colour, lightened; black if the model gives none.
QVariant channelBackground(const QModelIndex &header);
//! Returns the model's text colour if the model has a background too, else black or white to suit channelBackground().
QVariant channelForeground(const QModelIndex &header);
//! Returns the text of a reading with the symbol of its channel's unit. A reading that is not finite gets no symbol.
QVariant readingWithUnit(const QModelIndex &sample);

//! Returns whether channels have units with different symbols.
bool unitsDiffer(const QAbstractItemModel *model);
//! Returns "Data (unit)", or "Data" if channels have no unit or different ones. \a model may be null.
QString dataTitle(const QAbstractItemModel *model);
//! Returns the check state of all channels together, partially checked if they differ; invalid without channels.
QVariant checkStateOfAll(const QAbstractItemModel *model);

} // namespace Corvale_Qt
