// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QModelIndex>
#include <QStringList>

#include <functional>

class QTreeView;

namespace Corvale_Qt {

//! Returns the index in the first column of the row of \a index, which is the one that has the children.
QModelIndex inFirstColumn(const QModelIndex &index);

//! Returns whether the row of \a index has children.
bool isBranch(const QModelIndex &index);

//! Returns whether \a index has no children and is enabled and selectable.
bool isLeaf(const QModelIndex &index);

/*! Returns the first leaf below \a root, depth first, for which \a isWanted returns true, or an invalid index.
    Does not fetch items that the model has not loaded. */
QModelIndex firstLeaf(
    const QAbstractItemModel &model,
    const QModelIndex &root,
    const std::function<bool(const QModelIndex &)> &isWanted = [](const QModelIndex &) {
        return true;
    });

/*! Returns the next leaf after \a from that \a tree shows: below it if \a step is positive, else above it. If \a
    from is invalid, the search starts at the first or the last item. */
QModelIndex nextShownLeaf(const QTreeView &tree, const QModelIndex &from, int step);

//! The texts on the path from the root to an item, and the row of the item, which tells items with the same text apart.
struct TreePath
{
    QStringList texts;
    int row = -1;
};
//! Returns the path to \a index.
TreePath pathTo(const QModelIndex &index);
//! Returns the item at \a path in \a column, or an invalid index if a text on the path does not exist.
QModelIndex itemAt(const QAbstractItemModel &model, const TreePath &path, int column);

} // namespace Corvale_Qt
