// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QModelIndex>
#include <QStringList>

#include <functional>

class QTreeView;

namespace Corvale_Qt {

//! The item of \a index that has the children.
QModelIndex inFirstColumn(const QModelIndex &index);

bool isBranch(const QModelIndex &index);

//! Whether \a index is an item without children that a person may choose.
bool isLeaf(const QModelIndex &index);

/*! The first leaf below \a root, depth first, of which \a isWanted is true, without fetching what the model has not
    loaded; may be invalid. */
QModelIndex firstLeaf(
    const QAbstractItemModel &model,
    const QModelIndex &root,
    const std::function<bool(const QModelIndex &)> &isWanted = [](const QModelIndex &) {
        return true;
    });

//! The next leaf after \a from that \a tree shows, upwards with \a step -1; from an end when \a from is invalid.
QModelIndex nextShownLeaf(const QTreeView &tree, const QModelIndex &from, int step);

//! The texts from the root down to an index, and its row for items that share a text.
struct TreePath
{
    QStringList texts;
    int row = -1;
};
TreePath pathTo(const QModelIndex &index);
//! The item of \a path in \a column, invalid where a text on the way is missing.
QModelIndex itemAt(const QAbstractItemModel &model, const TreePath &path, int column);

} // namespace Corvale_Qt
