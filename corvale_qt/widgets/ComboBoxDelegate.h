// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QStyledItemDelegate>
#include <QVariant>

namespace Corvale_Qt {

class ComboBoxDelegatePrivate;

/*! Edits a cell by a combo box, and shows the text that belongs to the stored value.

    The choices are those of the cell, where the model has a list in the role of setItemsRole(), otherwise those
    of setItems() or addItem(). A choice is stored at once, and ends the edit. A value that is none of the
    choices is shown as it is, and stays until something is chosen.

    \code
    auto *delegate = new ComboBoxDelegate(table);
    delegate->addItem(tr("2 nA range"), 0);
    delegate->addItem(tr("20 nA range"), 1);
    table->setItemDelegateForColumn(RangeColumn, delegate);
    \endcode */
class CORVALE_QT_EXPORT ComboBoxDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit ComboBoxDelegate(QObject *parent = nullptr);
    ~ComboBoxDelegate() override;

    //! Choices whose texts are the values stored; replaces all.
    void setItems(const QStringList &texts);
    //! One more choice: \a text is shown, \a value stored in Qt::EditRole.
    void addItem(const QString &text, const QVariant &value);

    /*! The role in which cells have choices of their own: a QStringList, or a QVariantList whose entries are
        texts or lists of a text and a value. -1, as at first, for none. */
    void setItemsRole(int role);
    int itemsRole() const;

    QWidget *createEditor(QWidget *parent,
                          const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor,
                      QAbstractItemModel *model,
                      const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    Q_DECLARE_PRIVATE(ComboBoxDelegate)
    const QScopedPointer<ComboBoxDelegatePrivate> d_ptr;
};

} // namespace Corvale_Qt
