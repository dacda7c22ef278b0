// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QStyledItemDelegate>

namespace Monitor {

/*! Draws the table of newest values: a swatch in the colour of the channel beside its name, and values in the colours of the
    palette. A value over range is loud, an old one is grey. The tool tip has what is cut. */
class ValueDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent *event,
                   QAbstractItemView *view,
                   const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    static void drawName(QStyleOptionViewItem *option, const QModelIndex &index);
    static void drawValue(QStyleOptionViewItem *option, const QModelIndex &index);
};

} // namespace Monitor
