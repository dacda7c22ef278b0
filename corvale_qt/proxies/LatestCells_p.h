// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QVariant>

class QAbstractItemModel;
class QModelIndex;

namespace Corvale_Qt {

/*  What the cells and titles of the table of latest values show, from the model below it. Indexes are that model's: a
    channel's cell in the header row, or its newest sample. */

//! The reading of a channel while the model has no samples.
QVariant cellWithoutSample(int role);
//! The colour of a channel, lightened; black where the model gives none.
QVariant channelBackground(const QModelIndex &header);
//! The model's own, where that goes with a background of the model; otherwise what is readable on channelBackground().
QVariant channelForeground(const QModelIndex &header);
//! A reading's text with the symbol of its channel's unit. What is no number stays as it is.
QVariant readingWithUnit(const QModelIndex &sample);

//! Whether channels have units with different symbols.
bool unitsDiffer(const QAbstractItemModel *model);
//! "Data (unit)", or "Data" where channels have no unit or different ones; also without a model.
QString dataTitle(const QAbstractItemModel *model);
//! Of all channels together; invalid where there are none.
QVariant checkStateOfAll(const QAbstractItemModel *model);

} // namespace Corvale_Qt
