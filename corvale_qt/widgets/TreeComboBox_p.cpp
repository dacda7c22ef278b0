// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/TreeComboBox_p.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

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
    q->QComboBox::setCurrentIndex(index.row());
    q->setRootModelIndex(root);
    isSetting = false;
    q->update();
    if (isOther)
        Q_EMIT q->currentModelIndexChanged(current);
}

//! QComboBox has another current row: set by the host on the base class, or by an editor's completion.
void TreeComboBoxPrivate::baseChanged(int row)
{
    if (isSetting || modelIsChanging)
        return;
    const QModelIndex taken = q->model()->index(row, q->modelColumn(), q->rootModelIndex());
    isChosen = true;
    setCurrent(isBranch(taken) ? QModelIndex(current) : taken);
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

void TreeComboBoxPrivate::noteClick(const QPoint &globalPosition)
{
    clickedAt = globalPosition;
    sinceClick.start();
}

//! The popup may have opened under the pointer: a click there is over before the item below it is meant.
bool TreeComboBoxPrivate::isEndOfOpeningClick(const QPoint &globalPosition) const
{
    return sinceClick.isValid() && sinceClick.elapsed() < QApplication::doubleClickInterval()
        && (globalPosition - clickedAt).manhattanLength() < QApplication::startDragDistance();
}

bool TreeComboBoxPrivate::popupMouse(QEvent::Type type, const QMouseEvent &event)
{
    const QModelIndex index = tree->indexAt(event.pos());
    const bool isOnBranch = isBranch(index);
    if (type == QEvent::MouseButtonPress && isOnBranch)
        tree->toggle(index);
    if (type != QEvent::MouseButtonRelease)
        return isOnBranch;
    // Not on a branch, which QComboBox would take for a choice, nor beside the items.
    if (isLeaf(index) && index == tree->currentIndex() && !isEndOfOpeningClick(event.globalPos()))
        pickFromPopup(index);
    return true;
}

/*! QComboBox takes what is current in its popup on these keys, at the override of a shortcut and again at the key
    press, and takes branches as well. */
bool TreeComboBoxPrivate::popupKey(QEvent::Type type, const QKeyEvent &event)
{
    const bool isAltUpOrDown = (event.modifiers() & Qt::AltModifier)
        && (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down);
    const bool closes = isAltUpOrDown || event.key() == Qt::Key_F4;
    const bool chooses = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter
        || event.key() == Qt::Key_Select;
    if (!closes && !chooses)
        return false;
    if (type != QEvent::KeyPress)
        return true;
    const QModelIndex index = tree->currentIndex();
    if (isLeaf(index))
        pickFromPopup(index);
    else if (closes)
        q->hidePopup();
    else if (index.isValid())
        tree->toggle(index);
    return true;
}

void TreeComboBoxPrivate::pickFromPopup(const QModelIndex &leaf)
{
    const QPersistentModelIndex picked = leaf;
    q->hidePopup();
    pick(picked);
}

//! A person's choice. The host may delete the combo box in answer to any of the signals.
void TreeComboBoxPrivate::pick(const QModelIndex &leaf)
{
    if (!leaf.isValid())
        return;
    const QPointer<TreeComboBox> alive = q;
    isChosen = true;
    setCurrent(leaf.sibling(leaf.row(), q->modelColumn()));
    if (alive)
        Q_EMIT alive->activated(alive->currentIndex());
    if (alive)
        Q_EMIT alive->textActivated(alive->currentText());
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

bool TreeComboBoxPrivate::walkByKey(int key, bool isPlain)
{
    const bool isEndKey = key == Qt::Key_Home || key == Qt::Key_End;
    const bool isPageKey = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    const bool isArrow = key == Qt::Key_Up || key == Qt::Key_Down;
    if (q->isEditable() ? !isPageKey && !isArrow : !isPageKey && !isArrow && !isEndKey)
        return false;
    if (!isPlain)
        return !isArrow;
    const int step = key == Qt::Key_Up || key == Qt::Key_PageUp || key == Qt::Key_Home ? -1 : 1;
    if (isEndKey)
        walkToEnd(step);
    else
        walk(isPageKey ? step * q->maxVisibleItems() : step);
    return true;
}

bool TreeComboBoxPrivate::typed(const QString &text)
{
    const bool goesOn =
        sinceTyped.isValid() && sinceTyped.elapsed() < QApplication::keyboardInputInterval();
    if (!goesOn)
        typedText.clear();
    // At the beginning it opens the popup.
    if (typedText.isEmpty() && text.at(0).isSpace())
        return false;
    sinceTyped.start();
    typedText += text;
    // The same letter again and again goes from one to the next.
    const bool isOneLetter = typedText.count(text) * text.size() == typedText.size();
    const QModelIndex leaf = leafBeginningWith(isOneLetter ? text : typedText, isOneLetter);
    if (leaf.isValid() && leaf != inFirstColumn(current))
        pick(leaf);
    return true;
}

/*! The current leaf, unless the next is wanted, or the next shown leaf, beginning again at the top, whose text begins
    with \a text; else the first such leaf in a closed branch. */
QModelIndex TreeComboBoxPrivate::leafBeginningWith(const QString &text, bool isNext) const
{
    const auto begins = [this, &text](const QModelIndex &leaf) {
        const QString name = leaf.sibling(leaf.row(), q->modelColumn()).data().toString();
        return name.startsWith(text, Qt::CaseInsensitive);
    };
    if (!isNext && current.isValid() && begins(current))
        return inFirstColumn(current);
    for (const QModelIndex &from : {QModelIndex(current), QModelIndex()}) {
        QModelIndex leaf = nextShownLeaf(*tree, from, 1);
        while (leaf.isValid() && !begins(leaf))
            leaf = nextShownLeaf(*tree, leaf, 1);
        if (leaf.isValid())
            return leaf;
    }
    return firstLeaf(*q->model(), q->rootModelIndex(), begins);
}

} // namespace Corvale_Qt
