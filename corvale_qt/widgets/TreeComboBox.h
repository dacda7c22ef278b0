// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QComboBox>
#include <QModelIndex>

class QTreeView;

namespace Corvale_Qt {

class TreeComboBoxPrivate;

/*! A combo box whose popup is a tree, for any tree model.

    Only leaves can be current. A click on one, or Return, closes the popup; on a branch it opens or closes the
    branch. Wheel and arrow keys go through the leaves that the tree shows, that is, those in open branches; typing
    the beginning of a text goes to a leaf that is shown, else to one in a closed branch. The branches above the
    current item are opened when it is set.

    After setModel() the first leaf is current. When the current item is removed, there is none; a reset of the
    model keeps it where the texts on the way to it are there still.

    currentIndex() and currentIndexChanged(int) of QComboBox give the row within the branch; who needs to tell
    the branches apart asks for currentModelIndex().

    \code
    channel->setModel(devices);
    connect(channel, &TreeComboBox::currentModelIndexChanged, panel, &Panel::showChannel);
    \endcode */
class CORVALE_QT_EXPORT TreeComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit TreeComboBox(QWidget *parent = nullptr);
    ~TreeComboBox() override;

    /*! As QComboBox::setModel(), with the first leaf for the current item; null empties the combo box. To be called on
        this class. */
    void setModel(QAbstractItemModel *model);
    //! What the popup shows; for the host to open and close branches.
    QTreeView *treeView() const;

    //! In the model column; invalid where there is none.
    QModelIndex currentModelIndex() const;

    void showPopup() override;
    QSize sizeHint() const override;

public Q_SLOTS:
    //! An invalid index for none; a branch is ignored, and so is an index of another model.
    void setCurrentModelIndex(const QModelIndex &index);
    //! The item in \a row of the root, unless it is a branch. To be called on this class.
    void setCurrentIndex(int row);

Q_SIGNALS:
    //! The combo box may be deleted in answer.
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
