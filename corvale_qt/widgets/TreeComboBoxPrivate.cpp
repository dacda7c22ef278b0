// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/TreeComboBox_p.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace Corvale_Qt {

/*! QComboBox has connected itself to the model before the tree gets it, so what is done here comes after what
    QComboBox does on the same signal. */
void TreeComboBoxPrivate::watchModel()
{
    stopWatching();
    current = QPersistentModelIndex();
    isChosen = false;
    modelIsChanging = false;
    if (tree->model())
        watch(*tree->model());
}

void TreeComboBoxPrivate::watch(const QAbstractItemModel &model)
{
    const auto on = [this, &model](auto signal, auto action) {
        watches << QObject::connect(&model, signal, q, action);
    };
    const auto before = [this] {
        modelIsChanging = true;
    };
    const auto after = [this] {
        afterChange();
    };
    using Model = QAbstractItemModel;
    on(&Model::rowsAboutToBeInserted, before);
    on(&Model::rowsAboutToBeRemoved, before);
    on(&Model::rowsAboutToBeMoved, before);
    on(&Model::layoutAboutToBeChanged, before);
    on(&Model::rowsInserted, after);
    on(&Model::rowsRemoved, after);
    on(&Model::rowsMoved, after);
    on(&Model::layoutChanged, after);
    on(&Model::modelAboutToBeReset, [this] {
        modelIsChanging = true;
        pathBeforeReset = pathTo(current);
    });
    on(&Model::modelReset, [this] {
        afterReset();
    });
    on(&QObject::destroyed, [this] {
        modelGone();
    });
}

void TreeComboBoxPrivate::stopWatching()
{
    for (const QMetaObject::Connection &watch : qAsConst(watches))
        QObject::disconnect(watch);
    watches.clear();
}

/*! Makes \a index current here and in QComboBox, which knows rows below its root only. By value: a reference
    into the persistent index would not live as long. */
void TreeComboBoxPrivate::setCurrent(QModelIndex index)
{
    const bool isOther = current != index || hadCurrent != index.isValid();
    current = index;
    hadCurrent = index.isValid();
    for (QModelIndex branch = index.parent(); branch.isValid(); branch = branch.parent())
        tree->expand(branch);

    isSetting = true;
    const QPersistentModelIndex root = q->rootModelIndex();
    q->setRootModelIndex(index.parent());
    q->setCurrentIndex(index.row());
    q->setRootModelIndex(root);
    isSetting = false;
    q->update();
    if (isOther)
        Q_EMIT q->currentModelIndexChanged(current);
}

//! QComboBox has another current row: taken from the popup, or set by the host.
void TreeComboBoxPrivate::baseChanged(int row)
{
    if (isSetting || modelIsChanging)
        return;
    const QModelIndex taken = isPicking
        ? QModelIndex(tree->currentIndex())
        : q->model()->index(row, q->modelColumn(), q->rootModelIndex());
    isPicking = false;
    isChosen = true;
    setCurrent(taken.sibling(taken.row(), q->modelColumn()));
}

void TreeComboBoxPrivate::afterChange()
{
    modelIsChanging = false;
    if (isChosen) {
        setCurrent(QModelIndex(current));
        return;
    }
    const QModelIndex leaf = firstLeaf(*q->model(), q->rootModelIndex());
    setCurrent(leaf.sibling(leaf.row(), q->modelColumn()));
}

void TreeComboBoxPrivate::afterReset()
{
    const QModelIndex found = itemAt(*q->model(), pathBeforeReset, q->modelColumn());
    // Announced even when it looks the same: it is another item.
    current = QPersistentModelIndex();
    hadCurrent = hadCurrent && !found.isValid();
    modelIsChanging = false;
    if (isChosen)
        setCurrent(found);
    else
        afterChange();
}

//! Without a look at QComboBox, whose model may be the one that goes while it gets another.
void TreeComboBoxPrivate::modelGone()
{
    current = QPersistentModelIndex();
    if (modelIsChanging || !hadCurrent)
        return;
    hadCurrent = false;
    Q_EMIT q->currentModelIndexChanged(QModelIndex());
}

bool TreeComboBoxPrivate::popupMouse(QEvent::Type type, const QMouseEvent &event)
{
    const QModelIndex index = tree->indexAt(event.pos());
    const bool isBranch =
        index.isValid() && tree->model()->hasChildren(index.sibling(index.row(), 0));
    if (type == QEvent::MouseButtonPress && isBranch)
        tree->toggle(index);
    if (type == QEvent::MouseButtonRelease) {
        // Not on a branch, which QComboBox would take for a choice, nor beside the items.
        if (!isLeaf(index) || index != tree->currentIndex())
            return true;
        letQComboBoxPick();
    }
    return isBranch;
}

//! QComboBox chooses by the override of a shortcut already, and by the key.
bool TreeComboBoxPrivate::popupKey(QEvent::Type type, const QKeyEvent &event)
{
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter
        && event.key() != Qt::Key_Select)
        return false;
    const QModelIndex index = tree->currentIndex();
    if (isLeaf(index)) {
        letQComboBoxPick();
        return false;
    }
    if (type == QEvent::KeyPress && index.isValid())
        tree->toggle(index);
    return true;
}

//! What QComboBox does with the event at hand is a choice in the popup.
void TreeComboBoxPrivate::letQComboBoxPick()
{
    isPicking = true;
    QMetaObject::invokeMethod(
        q,
        [this] {
            isPicking = false;
        },
        Qt::QueuedConnection);
}

//! A person's choice.
void TreeComboBoxPrivate::pick(const QModelIndex &leaf)
{
    if (!leaf.isValid())
        return;
    isChosen = true;
    setCurrent(leaf.sibling(leaf.row(), q->modelColumn()));
    Q_EMIT q->activated(q->currentIndex());
    Q_EMIT q->textActivated(q->currentText());
}

void TreeComboBoxPrivate::walk(int steps)
{
    const int step = steps > 0 ? 1 : -1;
    QModelIndex reached;
    QModelIndex leaf = nextShownLeaf(*tree, current, step);
    for (int left = qAbs(steps); left > 0 && leaf.isValid(); --left) {
        reached = leaf;
        leaf = nextShownLeaf(*tree, leaf, step);
    }
    // All branches closed and nothing chosen: there has to be a way in.
    pick(reached.isValid() || current.isValid() ? reached
                                                : firstLeaf(*q->model(), q->rootModelIndex()));
}

void TreeComboBoxPrivate::walkToEnd(int step)
{
    // The other way from nowhere begins at the end.
    pick(nextShownLeaf(*tree, QModelIndex(), -step));
}

void TreeComboBoxPrivate::walkToText(const QString &text)
{
    const auto begins = [this, &text](const QModelIndex &leaf) {
        const QString name = leaf.sibling(leaf.row(), q->modelColumn()).data().toString();
        return name.startsWith(text, Qt::CaseInsensitive);
    };
    for (const QModelIndex &from : {QModelIndex(current), QModelIndex()}) {
        QModelIndex leaf = nextShownLeaf(*tree, from, 1);
        while (leaf.isValid() && !begins(leaf))
            leaf = nextShownLeaf(*tree, leaf, 1);
        if (leaf.isValid()) {
            pick(leaf);
            return;
        }
    }
}

} // namespace Corvale_Qt
