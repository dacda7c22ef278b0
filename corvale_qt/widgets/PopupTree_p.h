// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QTreeView>

#include <functional>

class QComboBox;

namespace Corvale_Qt {

//! The tree in the popup of a combo box. It reports a new model, since QComboBox::setModel() is not virtual.
class PopupTree final : public QTreeView
{
    Q_OBJECT

public:
    //! Calls \a modelChanged after each change of the model.
    PopupTree(QComboBox *combo, std::function<void()> modelChanged);

    void setModel(QAbstractItemModel *model) override;
    //! Hides all columns except \a column.
    void showOnly(int column);
    //! Returns the width that the widest item needs, in pixels, including scroll bar and frame.
    int neededWidth();
    //! Makes \a item current, and opens or closes its branch.
    void toggle(const QModelIndex &item);

private:
    void growPopup();
    int heightOfItems(int mostItems) const;

    QComboBox *const m_combo;
    const std::function<void()> m_modelChanged;
};

} // namespace Corvale_Qt
