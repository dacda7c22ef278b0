// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/TreeComboBox.h"

#include "corvale_qt/widgets/TreeWalk_p.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTreeView>
#include <QWheelEvent>

#include <functional>

namespace Corvale_Qt {

namespace {

//! The tree in the popup; tells of a new model, since QComboBox::setModel() is not virtual.
class PopupTree final : public QTreeView
{
public:
    explicit PopupTree(std::function<void()> modelChanged)
        : m_modelChanged(std::move(modelChanged))
    {
        setHeaderHidden(true);
        setEditTriggers(NoEditTriggers);
        setAllColumnsShowFocus(true);
        setExpandsOnDoubleClick(false);
        // As wide as the popup, which is made wide enough.
        header()->setMinimumSectionSize(1);
    }

    void setModel(QAbstractItemModel *model) override
    {
        QTreeView::setModel(model);
        m_modelChanged();
    }

    void showOnly(int column)
    {
        for (int c = 0; c < header()->count(); ++c)
            setColumnHidden(c, c != column);
        setTreePosition(column);
    }

    //! What the widest item needs, scroll bar and frame included.
    int neededWidth(int column)
    {
        executeDelayedItemsLayout();
        return sizeHintForColumn(column) + verticalScrollBar()->sizeHint().width()
            + 2 * frameWidth();
    }

private:
    std::function<void()> m_modelChanged;
};

} // namespace

class TreeComboBoxPrivate
{
public:
    explicit TreeComboBoxPrivate(TreeComboBox *combo)
        : q(combo)
        , tree(new PopupTree([this] {
            watchModel();
        }))
    {
    }

    void watchModel();
    void setCurrent(QModelIndex index);
    void baseChanged(int row);
    void afterChange();
    void afterReset();
    void modelGone();

    bool popupMouse(QEvent::Type type, const QMouseEvent &event);
    bool popupKey(QEvent::Type type, const QKeyEvent &event);
    void letQComboBoxPick();
    void toggle(const QModelIndex &branch);
    void growPopup();

    void pick(const QModelIndex &leaf);
    void walk(int steps);
    void walkToEnd(int step);
    void walkToText(const QString &text);

    TreeComboBox *const q;
    PopupTree *const tree;
    QPersistentModelIndex current;
    //! The last index announced; the current one may have gone without a word.
    bool hadCurrent = false;
    //! Somebody chose the current item; otherwise it is the first leaf, whatever comes into the model.
    bool isChosen = false;
    //! The model is changing, and QComboBox follows it in its own way, which is set right afterwards.
    bool modelIsChanging = false;
    //! QComboBox is told what is current.
    bool isSetting = false;
    //! QComboBox is about to take the popup's current item.
    bool isPicking = false;
    TreePath pathBeforeReset;
    int wheelAngle = 0;
    QVector<QMetaObject::Connection> watches;
};

/*! QComboBox has connected itself to the model before the tree gets it, so what is done here comes after what
    QComboBox does on the same signal. */
void TreeComboBoxPrivate::watchModel()
{
    for (const QMetaObject::Connection &watch : qAsConst(watches))
        QObject::disconnect(watch);
    watches.clear();
    current = QPersistentModelIndex();
    isChosen = false;
    modelIsChanging = false;
    const QAbstractItemModel *model = tree->model();
    if (!model)
        return;
    const auto before = [this] {
        modelIsChanging = true;
    };
    const auto after = [this] {
        afterChange();
    };
    using Model = QAbstractItemModel;
    watches << QObject::connect(model, &Model::rowsAboutToBeInserted, q, before)
            << QObject::connect(model, &Model::rowsAboutToBeRemoved, q, before)
            << QObject::connect(model, &Model::rowsAboutToBeMoved, q, before)
            << QObject::connect(model, &Model::layoutAboutToBeChanged, q, before)
            << QObject::connect(model, &Model::rowsInserted, q, after)
            << QObject::connect(model, &Model::rowsRemoved, q, after)
            << QObject::connect(model, &Model::rowsMoved, q, after)
            << QObject::connect(model, &Model::layoutChanged, q, after)
            << QObject::connect(model,
                                &QObject::destroyed,
                                q,
                                [this] {
                                    modelGone();
                                })
            << QObject::connect(model, &Model::modelAboutToBeReset, q, [this] {
                   modelIsChanging = true;
                   pathBeforeReset = pathTo(current);
               });
    watches << QObject::connect(model, &Model::modelReset, q, [this] {
        afterReset();
    });
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
        toggle(index);
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
        toggle(index);
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

void TreeComboBoxPrivate::toggle(const QModelIndex &branch)
{
    const QModelIndex item = branch.sibling(branch.row(), 0);
    tree->setCurrentIndex(branch);
    tree->setExpanded(item, !tree->isExpanded(item));
    growPopup();
}

//! A popup that opened with a few closed branches makes room for what they hold.
void TreeComboBoxPrivate::growPopup()
{
    QWidget *popup = tree->window();
    if (!tree->isVisible() || popup == q->window())
        return;
    int rows = 0;
    int height = 0;
    for (QModelIndex item = tree->model()->index(0, 0, tree->rootIndex());
         item.isValid() && rows < q->maxVisibleItems();
         item = tree->indexBelow(item), ++rows)
        height += tree->visualRect(item.sibling(item.row(), q->modelColumn())).height();

    const QRect screen = q->screen()->availableGeometry();
    const QPoint above = q->mapToGlobal(QPoint(0, 0));
    const bool isAbove = popup->geometry().bottom() <= above.y();
    const int around = popup->height() - tree->viewport()->height();
    const int room = isAbove ? above.y() - screen.top() : screen.bottom() - popup->y();
    const int width =
        qMin(screen.width(), qMax(popup->width(), tree->neededWidth(q->modelColumn())));
    const int wanted = qMax(popup->height(), qMin(height + around, room));
    popup->resize(width, wanted);
    popup->move(qMin(popup->x(), screen.right() - width),
                isAbove ? above.y() - wanted : popup->y());
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

//! Over so many shown leaves, downwards for a positive number, but not beyond the last.
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

//! The next shown leaf, beginning again at the top, whose text begins so.
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

TreeComboBox::TreeComboBox(QWidget *parent)
    : QComboBox(parent)
    , d_ptr(new TreeComboBoxPrivate(this))
{
    Q_D(TreeComboBox);
    setView(d->tree);
    // After QComboBox has put its own there: the last filter is asked first.
    d->tree->installEventFilter(this);
    d->tree->viewport()->installEventFilter(this);
    connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [d](int row) {
        d->baseChanged(row);
    });
}

TreeComboBox::~TreeComboBox()
{
    Q_D(TreeComboBox);
    d->tree->removeEventFilter(this);
    d->tree->viewport()->removeEventFilter(this);
}

void TreeComboBox::setModel(QAbstractItemModel *model)
{
    Q_D(TreeComboBox);
    d->modelIsChanging = true;
    QComboBox::setModel(model);
    d->isChosen = false;
    d->afterChange();
}

QTreeView *TreeComboBox::treeView() const
{
    Q_D(const TreeComboBox);
    return d->tree;
}

QModelIndex TreeComboBox::currentModelIndex() const
{
    Q_D(const TreeComboBox);
    return d->current;
}

void TreeComboBox::setCurrentModelIndex(const QModelIndex &index)
{
    Q_D(TreeComboBox);
    if (index.isValid() && index.model() != model())
        return;
    d->isChosen = true;
    d->setCurrent(index.sibling(index.row(), modelColumn()));
}

void TreeComboBox::showPopup()
{
    Q_D(TreeComboBox);
    d->tree->showOnly(modelColumn());
    d->tree->setMinimumWidth(
        qMin(screen()->availableGeometry().width(), d->tree->neededWidth(modelColumn())));
    QComboBox::showPopup();
}

//! Wide enough for the leaves in open branches, too: QComboBox looks at the top level only.
QSize TreeComboBox::sizeHint() const
{
    Q_D(const TreeComboBox);
    constexpr int kMostLeaves = 200;
    int widest = 0;
    QModelIndex leaf = nextShownLeaf(*d->tree, QModelIndex(), 1);
    for (int i = 0; i < kMostLeaves && leaf.isValid(); ++i, leaf = nextShownLeaf(*d->tree, leaf, 1))
        widest = qMax(widest,
                      fontMetrics().horizontalAdvance(
                          leaf.sibling(leaf.row(), modelColumn()).data().toString()));
    int top = 0;
    for (int row = 0; row < qMin(count(), kMostLeaves); ++row)
        top = qMax(top, fontMetrics().horizontalAdvance(itemText(row)));
    return QComboBox::sizeHint() + QSize(qMax(0, widest - top), 0);
}

bool TreeComboBox::eventFilter(QObject *watched, QEvent *event)
{
    Q_D(TreeComboBox);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        if (watched == d->tree->viewport()
            && d->popupMouse(event->type(), *static_cast<QMouseEvent *>(event)))
            return true;
        break;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (watched == d->tree && d->popupKey(event->type(), *static_cast<QKeyEvent *>(event)))
            return true;
        break;
    default:
        break;
    }
    return QComboBox::eventFilter(watched, event);
}

void TreeComboBox::keyPressEvent(QKeyEvent *event)
{
    Q_D(TreeComboBox);
    const bool isPlain =
        !(event->modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier));
    const QString text = event->text();
    if (isPlain && event->key() == Qt::Key_Up)
        d->walk(-1);
    else if (isPlain && event->key() == Qt::Key_Down)
        d->walk(1);
    else if (isPlain && event->key() == Qt::Key_PageUp)
        d->walk(-maxVisibleItems());
    else if (isPlain && event->key() == Qt::Key_PageDown)
        d->walk(maxVisibleItems());
    else if (isPlain && !isEditable() && event->key() == Qt::Key_Home)
        d->walkToEnd(-1);
    else if (isPlain && !isEditable() && event->key() == Qt::Key_End)
        d->walkToEnd(1);
    else if (isPlain && !isEditable() && !text.isEmpty() && text.at(0).isPrint()
             && !text.at(0).isSpace())
        d->walkToText(text);
    else
        QComboBox::keyPressEvent(event);
}

void TreeComboBox::wheelEvent(QWheelEvent *event)
{
    Q_D(TreeComboBox);
    if (!style()->styleHint(QStyle::SH_ComboBox_AllowWheelScrolling, nullptr, this)) {
        event->ignore();
        return;
    }
    // Wheels of fine resolution turn by parts of a notch.
    d->wheelAngle += event->angleDelta().y();
    const int notches = d->wheelAngle / QWheelEvent::DefaultDeltasPerStep;
    d->wheelAngle -= notches * QWheelEvent::DefaultDeltasPerStep;
    if (notches != 0)
        d->walk(-notches);
    event->accept();
}

} // namespace Corvale_Qt
