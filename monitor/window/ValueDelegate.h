// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

namespace Monitor {

/*! Draws the table of newest values: a swatch in the colour of the channel beside its name, and values in the colours of the
    palette. A value over range is loud, an old one is grey. The tool tip has what is cut. */
class ValueDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    //! \a channels has the colour of each channel: column 0 is the time, column 1 the channel of row 0 of the table.
    ValueDelegate(const QAbstractItemModel &channels, QObject *parent);

    void paint(QPainter *painter,
               const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event,
                   QAbstractItemView *view,
                   const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    void drawName(QStyleOptionViewItem *option, const QModelIndex &index) const;
    static void drawValue(QStyleOptionViewItem *option, const QModelIndex &index);
    static void useTextColor(QStyleOptionViewItem *option);

    const QPointer<const QAbstractItemModel> m_channels;
};

} // namespace Monitor
