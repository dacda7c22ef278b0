// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/TreeComboBox_p.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScreen>
#include <QScrollBar>

namespace Corvale_Qt {

PopupTree::PopupTree(QComboBox *combo, std::function<void()> modelChanged)
    : m_combo(combo)
    , m_modelChanged(std::move(modelChanged))
{
    setHeaderHidden(true);
    setEditTriggers(NoEditTriggers);
    setAllColumnsShowFocus(true);
    setExpandsOnDoubleClick(false);
    // The column takes the width of the popup, which is wide enough for all items.
    header()->setMinimumSectionSize(1);
    connect(this, &QTreeView::expanded, this, &PopupTree::growPopup);
}

void PopupTree::setModel(QAbstractItemModel *model)
{
    QTreeView::setModel(model);
    m_modelChanged();
}

void PopupTree::showOnly(int column)
{
    for (int c = 0; c < header()->count(); ++c)
        setColumnHidden(c, c != column);
    setTreePosition(column);
}

int PopupTree::neededWidth()
{
    executeDelayedItemsLayout();
    return sizeHintForColumn(m_combo->modelColumn()) + verticalScrollBar()->sizeHint().width()
        + 2 * frameWidth();
}

void PopupTree::toggle(const QModelIndex &item)
{
    setCurrentIndex(item);
    const QModelIndex branch = item.sibling(item.row(), 0);
    setExpanded(branch, !isExpanded(branch));
}

int PopupTree::heightOfItems(int mostItems) const
{
    int height = 0;
    QModelIndex item = model()->index(0, 0, rootIndex());
    for (int i = 0; item.isValid() && i < mostItems; ++i, item = indexBelow(item))
        height += visualRect(item.sibling(item.row(), m_combo->modelColumn())).height();
    return height;
}

//! Enlarges the open popup, up to the edge of the screen, to show the items of a branch that was opened.
void PopupTree::growPopup()
{
    QWidget *popup = window();
    if (!isVisible() || popup == m_combo->window())
        return;
    const QRect screen = m_combo->screen()->availableGeometry();
    const QPoint above = m_combo->mapToGlobal(QPoint(0, 0));
    const bool isAbove = popup->geometry().bottom() <= above.y();
    const int around = popup->height() - viewport()->height();
    const int room = isAbove ? above.y() - screen.top() : screen.bottom() - popup->y();
    const int width = qMin(screen.width(), qMax(popup->width(), neededWidth()));
    const int wanted = heightOfItems(m_combo->maxVisibleItems()) + around;
    const int height = qMax(popup->height(), qMin(wanted, room));
    popup->resize(width, height);
    popup->move(qMin(popup->x(), screen.right() - width),
                isAbove ? above.y() - height : popup->y());
}

/*! Connects to the tree's model. QComboBox has already connected to it, so the slots of this class run after those of
    QComboBox. */
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

/*! Makes \a index current here and in QComboBox, which only knows the rows below its root. The index is passed by value
    because a reference into the persistent index could become invalid meanwhile. */
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

//! Follows QComboBox after the host or the completion of an editor has set another current \a row on the base class.
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
    // Announced even if the texts are the same, since it is another item.
    current = QPersistentModelIndex();
    hadCurrent = hadCurrent && !found.isValid();
    modelIsChanging = false;
    if (isChosen)
        setCurrent(found);
    else
        afterChange();
}

//! Clears the current item without calling QComboBox, which may still be replacing the model that is being deleted.
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

//! Returns whether a release at \a globalPosition ends the click that opened the popup, perhaps under the pointer.
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
    // A release on a branch, which QComboBox would choose, or beside the items does nothing.
    if (isLeaf(index) && index == tree->currentIndex() && !isEndOfOpeningClick(event.globalPos()))
        pickFromPopup(index);
    return true;
}

/*! Handles the keys on which QComboBox would choose the current item of the popup, even a branch. QComboBox does so at
    the shortcut override and again at the key press. */
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

//! Makes \a leaf current as the user's choice. The host may delete the combo box in answer to any of the signals.
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
    // If all branches are closed and no item is current, go to the first leaf.
    pick(reached.isValid() || current.isValid() ? reached
                                                : firstLeaf(*q->model(), q->rootModelIndex()));
}

void TreeComboBoxPrivate::walkToEnd(int step)
{
    // A search from an invalid index starts at the end that it moves away from.
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
    // A blank typed first opens the popup.
    if (typedText.isEmpty() && text.at(0).isSpace())
        return false;
    sinceTyped.start();
    typedText += text;
    // Typing the same letter repeatedly goes from one match to the next.
    const bool isOneLetter = typedText.count(text) * text.size() == typedText.size();
    const QModelIndex leaf = leafBeginningWith(isOneLetter ? text : typedText, isOneLetter);
    if (leaf.isValid() && leaf != inFirstColumn(current))
        pick(leaf);
    return true;
}

/*! Returns a leaf whose text begins with \a text: the current leaf, unless \a isNext; else the next shown leaf,
    continuing at the top; else the first leaf in a closed branch. */
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
