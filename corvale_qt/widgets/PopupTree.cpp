// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/PopupTree_p.h"

#include <QComboBox>
#include <QHeaderView>
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

} // namespace Corvale_Qt
