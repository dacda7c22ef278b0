// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/TreeComboBox_p.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QStandardItemModel>
#include <QWheelEvent>

namespace Corvale_Qt {

TreeComboBox::TreeComboBox(QWidget *parent)
    : QComboBox(parent)
    , d_ptr(new TreeComboBoxPrivate(this))
{
    Q_D(TreeComboBox);
    setView(d->tree);
    // After QComboBox has installed its filters, since the last filter is called first.
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
    d->isSetting = true;
    // As a child, the empty model is deleted with the combo box or by the next call.
    QComboBox::setModel(model ? model : new QStandardItemModel(0, 1, this));
    d->isSetting = false;
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
    if (index.isValid() && (index.model() != model() || isBranch(index)))
        return;
    d->isChosen = true;
    d->setCurrent(index.sibling(index.row(), modelColumn()));
}

void TreeComboBox::setCurrentIndex(int row)
{
    setCurrentModelIndex(model()->index(row, modelColumn(), rootModelIndex()));
}

void TreeComboBox::showPopup()
{
    Q_D(TreeComboBox);
    d->tree->showOnly(modelColumn());
    d->tree->setMinimumWidth(qMin(screen()->availableGeometry().width(), d->tree->neededWidth()));
    QComboBox::showPopup();
}

//! Adds the width that the leaves in open branches need, since QComboBox considers only the top level.
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
        if (watched == d->tree && d->popupKey(event->type(), *static_cast<QKeyEvent *>(event))) {
            // Otherwise a shortcut of the host would take the key.
            event->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return QComboBox::eventFilter(watched, event);
}

void TreeComboBox::keyPressEvent(QKeyEvent *event)
{
    Q_D(TreeComboBox);
    const auto otherThanShift = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const QString text = event->text();
    const bool isTyped = !isEditable() && !text.isEmpty() && text.at(0).isPrint()
        && !(event->modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier));
    if (d->walkByKey(event->key(), otherThanShift == Qt::NoModifier))
        return;
    if (isTyped && d->typed(text))
        return;
    QComboBox::keyPressEvent(event);
}

void TreeComboBox::mousePressEvent(QMouseEvent *event)
{
    Q_D(TreeComboBox);
    d->noteClick(event->globalPos());
    QComboBox::mousePressEvent(event);
}

void TreeComboBox::wheelEvent(QWheelEvent *event)
{
    Q_D(TreeComboBox);
    if (!style()->styleHint(QStyle::SH_ComboBox_AllowWheelScrolling, nullptr, this)) {
        event->ignore();
        return;
    }
    // High-resolution wheels report fractions of a notch.
    d->wheelAngle += event->angleDelta().y();
    const int notches = d->wheelAngle / QWheelEvent::DefaultDeltasPerStep;
    d->wheelAngle -= notches * QWheelEvent::DefaultDeltasPerStep;
    if (notches != 0)
        d->walk(-notches);
    event->accept();
}

} // namespace Corvale_Qt
