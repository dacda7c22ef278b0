// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/LegendDelegate_p.h"
#include "corvale_qt/scope/LegendModel_p.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace Corvale_Qt {

namespace {

constexpr int margin = 4;
constexpr int swatchWidth = 30;
constexpr int longestName = 24; // in characters

//! Returns how wide a value may be that shares a width with a name: as wide as it is where the name leaves room.
int roomFor(const QString &value,
            const QString &name,
            const QFontMetrics &metrics,
            int width,
            int usualWidth)
{
    const int usual = std::min(width / 2, usualWidth);
    const int most = std::max(usual, width - metrics.horizontalAdvance(name) - 2 * margin);
    return std::clamp(metrics.horizontalAdvance(value), usual, most);
}

//! Paints the line of a curve on the ground that it has in the plot, for which its colour was chosen.
void paintSwatch(QPainter *painter, const QRect &place, const QModelIndex &index, bool isShown)
{
    painter->fillRect(place, index.data(LegendModel::GroundRole).value<QColor>());
    if (!isShown)
        return;
    auto line = index.data(LegendModel::PenRole).value<QPen>();
    line.setWidthF(2.0);
    line.setCapStyle(Qt::FlatCap);
    painter->setPen(line);
    const int middle = place.center().y();
    painter->drawLine(place.left() + 2, middle, place.right() - 2, middle);
}

//! Paints a word on a ground of its colour, at the right of \a place. Returns how wide it is; 0 without a word.
int paintLimit(QPainter *painter, const QRect &place, const QModelIndex &index)
{
    const QString word = index.data(LegendModel::LimitRole).toString();
    if (word.isEmpty())
        return 0;
    painter->save();
    QFont font = painter->font();
    font.setStrikeOut(false); // the limits of a hidden channel are watched as well
    painter->setFont(font);
    const QFontMetrics metrics = painter->fontMetrics();
    const int width = std::min(metrics.horizontalAdvance(word) + 2 * margin, place.width());
    const QRect ground(place.right() + 1 - width, place.top(), width, place.height());
    painter->fillRect(ground, index.data(LegendModel::LimitColorRole).value<QColor>());
    painter->setPen(Qt::black);
    painter->drawText(ground,
                      Qt::AlignCenter | Qt::TextSingleLine,
                      metrics.elidedText(word, Qt::ElideRight, width));
    painter->restore();
    return width + margin;
}

} // namespace

QString fittedReading(const QString &value, const QFontMetrics &metrics, int room)
{
    if (metrics.horizontalAdvance(value) <= room)
        return value;
    const QString number = value.section(QLatin1Char(' '), 0, 0);
    bool isNumber = false;
    const double reading = number.toDouble(&isNumber);
    if (!isNumber)
        return metrics.elidedText(value, Qt::ElideMiddle, room);
    constexpr int mostDigits = 15;
    constexpr int fewestDigits = 3;
    const QString unit = value.mid(number.size());
    for (int digits = mostDigits; digits >= fewestDigits; --digits) {
        for (const char form : {'g', 'e'}) { // 0.000123 is wider than 1.23e-04
            const int precision = form == 'e' ? digits - 1 : digits;
            QString text = QString::number(reading, form, precision) + unit;
            if (metrics.horizontalAdvance(text) <= room)
                return text;
        }
    }
    return QString();
}

void toggleChannel(QAbstractItemModel *legend, const QModelIndex &index)
{
    const bool isShown = index.data(Qt::CheckStateRole).toInt() != Qt::Unchecked;
    legend->setData(index, isShown ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void LegendDelegate::paint(QPainter *painter,
                           const QStyleOptionViewItem &option,
                           const QModelIndex &index) const
{
    painter->save();
    QStyleOptionViewItem item = option;
    item.index = index;
    const QWidget *const widget = option.widget;
    const QStyle *const style = widget ? widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &item, painter, widget);

    const bool isShown = index.data(Qt::CheckStateRole).toInt() != Qt::Unchecked;
    const bool isSelected = option.state & QStyle::State_Selected;
    const QRect inside = option.rect.adjusted(margin, 2, -margin, -2);
    paintSwatch(painter,
                QRect(inside.topLeft(), QSize(swatchWidth, inside.height())),
                index,
                isShown);

    const QPalette::ColorGroup group = isShown ? QPalette::Active : QPalette::Disabled;
    painter->setPen(
        option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::WindowText));
    QFont font = option.font;
    font.setStrikeOut(!isShown); // a colour alone does not tell everybody
    painter->setFont(font);
    const QRect beside = inside.adjusted(swatchWidth + margin, 0, 0, 0);
    const QRect text = beside.adjusted(0, 0, -paintLimit(painter, beside, index), 0);
    const QString value = isShown ? index.data(LegendModel::ValueRole).toString() : QString();
    const QString name = index.data().toString();
    const QString arrow = isShown ? index.data(LegendModel::AxisRole).toString() : QString();
    const int arrowRoom = option.fontMetrics.horizontalAdvance(arrow);
    const int usual =
        option.fontMetrics.horizontalAdvance(index.data(LegendModel::WideValueRole).toString());
    const int mostRoom = roomFor(value, name, option.fontMetrics, text.width() - arrowRoom, usual);
    const QString reading = fittedReading(value, option.fontMetrics, mostRoom);
    const int valueRoom = reading.isEmpty() ? 0 : mostRoom;
    const QRect nameRect = text.adjusted(0, 0, -valueRoom - margin - arrowRoom, 0);
    painter->drawText(QRect(nameRect.right() + 1, text.top(), arrowRoom, text.height()),
                      Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                      arrow);
    painter->drawText(nameRect,
                      Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      option.fontMetrics.elidedText(name, Qt::ElideMiddle, nameRect.width()));
    painter->drawText(text,
                      Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine
                          | Qt::TextForceLeftToRight,
                      reading);
    painter->restore();
}

QSize LegendDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QFontMetrics &metrics = option.fontMetrics;
    int name = 0;
    int value = 0;
    bool isWatched = false;
    QString arrow;
    for (int row = 0; row < index.model()->rowCount(); ++row) {
        const QString text = index.sibling(row, 0).data().toString().left(longestName);
        const QString wide = index.sibling(row, 0).data(LegendModel::WideValueRole).toString();
        name = std::max(name, metrics.horizontalAdvance(text));
        value = std::max(value, metrics.horizontalAdvance(wide));
        if (arrow.isEmpty())
            arrow = index.sibling(row, 0).data(LegendModel::AxisRole).toString();
        isWatched = isWatched || index.sibling(row, 0).data(LegendModel::WatchedRole).toBool();
    }
    // The word of a limit has room before it comes, so that the plot keeps its size then.
    const int limit = isWatched ? metrics.horizontalAdvance(LegendModel::tr("High warning")) : 0;
    const int width = swatchWidth + name + metrics.horizontalAdvance(arrow) + value + limit
        + 3 * margin * int(isWatched);
    return {width + 6 * margin, metrics.height() + margin};
}

bool LegendDelegate::editorEvent(QEvent *event,
                                 QAbstractItemModel *model,
                                 const QStyleOptionViewItem &,
                                 const QModelIndex &index)
{
    const bool isClick = event->type() == QEvent::MouseButtonRelease
        && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton;
    const bool isSpace = event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Space;
    if (isClick || isSpace)
        toggleChannel(model, index);
    return isClick || isSpace;
}

} // namespace Corvale_Qt
