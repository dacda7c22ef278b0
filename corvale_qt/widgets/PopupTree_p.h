// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QTreeView>

#include <functional>

class QComboBox;

namespace Corvale_Qt {

//! The tree in the popup of a combo box; tells of a new model, since QComboBox::setModel() is not virtual.
class PopupTree final : public QTreeView
{
    Q_OBJECT

public:
    PopupTree(QComboBox *combo, std::function<void()> modelChanged);

    void setModel(QAbstractItemModel *model) override;
    void showOnly(int column);
    //! What the widest item needs, scroll bar and frame included.
    int neededWidth();
    //! Opens or closes the branch of \a item, which becomes current.
    void toggle(const QModelIndex &item);

private:
    void growPopup();
    int heightOfItems(int mostItems) const;

    QComboBox *const m_combo;
    const std::function<void()> m_modelChanged;
};

} // namespace Corvale_Qt
