// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QStyledItemDelegate>

namespace Corvale_Qt {

//! Draws a row of LegendModel: a piece of the curve, the name, and the value at the right.
class LegendDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter,
               const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    //! Returns the same size for all rows, with room for the longest name and the widest value.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    //! Checks or unchecks a row that is clicked anywhere, or on which Space is pressed.
    bool editorEvent(QEvent *event,
                     QAbstractItemModel *model,
                     const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;
};

/*! Returns the text of a value that is at most as wide as \a room, in pixels: a number with its unit that is rounded to fewer digits,
    but not fewer than three, and empty if that is too wide. A number is never shortened in another way, as one without its first
    digits or its exponent would be read as another. */
QString fittedReading(const QString &value, const QFontMetrics &metrics, int room);

//! Shows a hidden channel, or hides a shown one.
void toggleChannel(QAbstractItemModel *legend, const QModelIndex &index);

} // namespace Corvale_Qt
