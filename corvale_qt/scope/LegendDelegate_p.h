// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/KeptText_p.h"
#include "corvale_qt/plot/TextWidths_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"

#include <QString>
#include <QStyledItemDelegate>
#include <QVector>

#include <vector>

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

    //! Returns whether a row has another value than the screen shows; also if that is not known.
    bool hasNewValue(const QModelIndex &index) const;

private:
    void paintTexts(QPainter *painter,
                    const QModelIndex &index,
                    const QRect &place,
                    const QString &value) const;
    void paintName(QPainter *painter,
                   const QModelIndex &index,
                   const QRect &place,
                   double baseline,
                   const QString &name) const;

    // To measure a text, or to draw it, takes much longer than to look it up, and all but the values stay.
    mutable TextWidths m_widths;
    mutable std::vector<KeptText> m_names = std::vector<KeptText>(ScopeModel::maximumChannels);
    mutable QVector<QString> m_values =
        QVector<QString>(ScopeModel::maximumChannels); //!< as they are on the screen
};

/*! Returns the text of a value that is at most as wide as \a room, in pixels: a number with its unit that is rounded to fewer digits,
    but not fewer than three, and empty if that is too wide. A number is never shortened in another way, as one without its first
    digits or its exponent would be read as another. */
QString fittedReading(const QString &value, const QFontMetrics &metrics, int room);

//! Shows a hidden channel, or hides a shown one.
void toggleChannel(QAbstractItemModel *legend, const QModelIndex &index);

} // namespace Corvale_Qt
