// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QStyledItemDelegate>
#include <QVariant>

namespace Corvale_Qt {

class ComboBoxDelegatePrivate;

/*! Edits a cell with a combo box, and shows the text that belongs to the stored value.

    If the model returns a list in the role of setItemsRole(), that list holds the choices of the cell; otherwise the
    choices are those of setItems() or addItem(). A choice is stored at once and ends the edit. A value that is not
    among the choices is shown as it is, and stays until the user chooses something.

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
    //! Creates a delegate without choices.
    explicit ComboBoxDelegate(QObject *parent = nullptr);
    ~ComboBoxDelegate() override;

    //! Replaces all choices by \a texts; each text is also the value that is stored.
    void setItems(const QStringList &texts);
    //! Adds a choice: \a text is shown, \a value is stored in Qt::EditRole.
    void addItem(const QString &text, const QVariant &value);

    /*! Sets the role in which the model returns the choices of a single cell: a QStringList, or a QVariantList whose
        entries are texts or lists of a text and a value. With -1, the default, all cells have the same choices. */
    void setItemsRole(int role);
    //! Returns the role of the choices of a single cell, or -1.
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
