// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QComboBox>
#include <QModelIndex>

class QTreeView;

namespace Corvale_Qt {

class TreeComboBoxPrivate;

/*! A combo box whose popup is a tree, for any tree model.

    Only leaves can be current. A click or Return on a leaf chooses it and closes the popup; on a branch it opens or
    closes the branch. The wheel and the arrow keys step through the leaves in open branches. Typing the beginning of
    a text selects a leaf in an open branch, or else one in a closed branch. Setting the current item opens the
    branches above it.

    After setModel() the first leaf is current. If the current item is removed, no item is current. A reset of the
    model keeps the current item if the texts on the path to it still exist.

    currentIndex() and currentIndexChanged(int) of QComboBox give the row within the branch; use currentModelIndex()
    to tell the branches apart.

    \code
    channel->setModel(devices);
    connect(channel, &TreeComboBox::currentModelIndexChanged, panel, &Panel::showChannel);
    \endcode */
class CORVALE_QT_EXPORT TreeComboBox : public QComboBox
{
    Q_OBJECT

public:
    //! Creates a combo box with an empty model.
    explicit TreeComboBox(QWidget *parent = nullptr);
    ~TreeComboBox() override;

    /*! Shows \a model, which the combo box does not own, and makes its first leaf current. Null empties the combo
        box. Call this function on TreeComboBox, since QComboBox::setModel() is not virtual. */
    void setModel(QAbstractItemModel *model);
    //! Returns the tree of the popup, in which the host may open and close branches. The combo box owns it.
    QTreeView *treeView() const;

    //! Returns the current leaf in the model column, or an invalid index.
    QModelIndex currentModelIndex() const;

    void showPopup() override;
    QSize sizeHint() const override;

public Q_SLOTS:
    //! Makes \a index current; an invalid index means no item. Ignores a branch and an index of another model.
    void setCurrentModelIndex(const QModelIndex &index);
    /*! Makes the top-level item in \a row, counted from 0, current unless it is a branch. Call this function on
        TreeComboBox, since QComboBox::setCurrentIndex() is not virtual. */
    void setCurrentIndex(int row);

Q_SIGNALS:
    //! Emitted when another item, or none, has become current. The host may delete the combo box in answer.
    void currentModelIndexChanged(const QModelIndex &index);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    Q_DECLARE_PRIVATE(TreeComboBox)
    const QScopedPointer<TreeComboBoxPrivate> d_ptr;
};

} // namespace Corvale_Qt
