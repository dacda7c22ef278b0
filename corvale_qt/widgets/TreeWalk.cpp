// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/TreeWalk_p.h"

#include <QTreeView>

namespace Corvale_Qt {

QModelIndex inFirstColumn(const QModelIndex &index)
{
    return index.sibling(index.row(), 0);
}

namespace {

//! Returns \a index in the first column, or the topmost closed branch that hides it.
QModelIndex shownFor(const QTreeView &tree, const QModelIndex &index)
{
    QModelIndex shown = inFirstColumn(index);
    for (QModelIndex branch = shown.parent(); branch.isValid() && branch != tree.rootIndex();
         branch = branch.parent())
        if (!tree.isExpanded(branch))
            shown = branch;
    return shown;
}

//! Returns the first item that \a tree shows if \a step is positive, else the last one.
QModelIndex end(const QTreeView &tree, int step)
{
    const QAbstractItemModel &model = *tree.model();
    if (step > 0)
        return model.index(0, 0, tree.rootIndex());
    QModelIndex last = tree.rootIndex();
    do
        last = model.index(model.rowCount(last) - 1, 0, last);
    while (last.isValid() && tree.isExpanded(last) && model.rowCount(last) > 0);
    return last;
}

} // namespace

bool isBranch(const QModelIndex &index)
{
    return index.isValid() && index.model()->hasChildren(inFirstColumn(index));
}

bool isLeaf(const QModelIndex &index)
{
    constexpr Qt::ItemFlags needed = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return index.isValid() && !isBranch(index) && (index.flags() & needed) == needed;
}

QModelIndex firstLeaf(const QAbstractItemModel &model,
                      const QModelIndex &root,
                      const std::function<bool(const QModelIndex &)> &isWanted)
{
    for (int row = 0; row < model.rowCount(root); ++row) {
        const QModelIndex item = model.index(row, 0, root);
        const bool isFound = isLeaf(item) && isWanted(item);
        const QModelIndex leaf = isFound ? item : firstLeaf(model, item, isWanted);
        if (leaf.isValid())
            return leaf;
    }
    return {};
}

QModelIndex nextShownLeaf(const QTreeView &tree, const QModelIndex &from, int step)
{
    const auto next = [&tree, step](const QModelIndex &item) {
        return step > 0 ? tree.indexBelow(item) : tree.indexAbove(item);
    };
    QModelIndex item = from.isValid() ? next(shownFor(tree, from)) : end(tree, step);
    while (item.isValid() && !isLeaf(item))
        item = next(item);
    return item;
}

TreePath pathTo(const QModelIndex &index)
{
    TreePath path;
    path.row = index.row();
    for (QModelIndex item = index; item.isValid(); item = item.parent())
        path.texts.prepend(item.data().toString());
    return path;
}

QModelIndex itemAt(const QAbstractItemModel &model, const TreePath &path, int column)
{
    QModelIndex item;
    for (int level = 0; level < path.texts.size(); ++level) {
        const bool isLast = level == path.texts.size() - 1;
        const QModelIndex parent = item;
        const auto textAt = [&](int row) {
            return model.index(row, isLast ? column : 0, parent).data().toString();
        };
        const int rows = model.rowCount(parent);
        int row = isLast && path.row < rows && textAt(path.row) == path.texts.last() ? path.row : 0;
        while (row < rows && textAt(row) != path.texts.at(level))
            ++row;
        if (row >= rows)
            return {};
        item = model.index(row, isLast ? column : 0, parent);
    }
    return item;
}

} // namespace Corvale_Qt
