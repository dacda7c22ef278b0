// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/LegendDelegate_p.h"
#include "corvale_qt/scope/LegendModel_p.h"

#include <QApplication>
#include <QBackingStore>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr int margin = 4;
constexpr int swatchWidth = 30;
constexpr int longestName = 24; // in characters

//! Returns how wide a value may be that shares a width with a name: as wide as it is where the name leaves room.
int roomFor(int valueWidth, int nameWidth, int width, int usualWidth)
{
    const int usual = std::min(width / 2, usualWidth);
    const int most = std::max(usual, width - nameWidth - 2 * margin);
    return std::clamp(valueWidth, usual, most);
}

//! Returns the baseline of a line in the middle of a place, where QPainter puts it.
double baselineIn(const QRect &place, const QFontMetricsF &metrics)
{
    const double height = std::ceil(metrics.ascent() + metrics.descent());
    return place.top() + 0.5 * (place.height() - height) + metrics.ascent();
}

//! Returns a text without the characters that would end its line.
QString inOneLine(QString text)
{
    for (const char16_t end : {u'\n', u'\r', u'\t', u'\u2028'})
        text.replace(QChar(end), QLatin1Char(' '));
    return text;
}

bool isChecked(const QModelIndex &index)
{
    return index.data(Qt::CheckStateRole).toInt() != Qt::Unchecked;
}

//! Returns the value that a row shows; none if its channel is hidden.
QString valueOf(const QModelIndex &index)
{
    return isChecked(index) ? index.data(LegendModel::ValueRole).toString() : QString();
}

//! Returns whether a widget is painted for its window, and not for a picture of it.
bool isOnScreen(const QPainter &painter, const QWidget *widget)
{
    QBackingStore *const window = widget ? widget->backingStore() : nullptr;
    return window && painter.paintEngine()->paintDevice() == window->paintDevice();
}

//! Paints the line of a curve on the ground that it has in the plot, for which its colour was chosen.
void paintSwatch(QPainter *painter, const QRect &place, const QModelIndex &index)
{
    painter->fillRect(place, index.data(LegendModel::GroundRole).value<QColor>());
    if (!isChecked(index))
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
    legend->setData(index, isChecked(index) ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
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

    const bool isShown = isChecked(index);
    const bool isSelected = option.state & QStyle::State_Selected;
    const QRect inside = option.rect.adjusted(margin, 2, -margin, -2);
    paintSwatch(painter, QRect(inside.topLeft(), QSize(swatchWidth, inside.height())), index);

    const QPalette::ColorGroup group = isShown ? QPalette::Active : QPalette::Disabled;
    painter->setPen(
        option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::WindowText));
    QFont font = option.font;
    font.setStrikeOut(!isShown); // a colour alone does not tell everybody
    painter->setFont(font);
    const QRect beside = inside.adjusted(swatchWidth + margin, 0, 0, 0);
    const QRect text = beside.adjusted(0, 0, -paintLimit(painter, beside, index), 0);
    m_widths.setFont(option.font, *painter->device());
    const QString value = valueOf(index);
    if (isOnScreen(*painter, widget))
        m_values[index.row()] = value;
    paintTexts(painter, index, text, value);
    painter->restore();
}

//! Paints name, arrow and value in the painter's font and pen.
void LegendDelegate::paintTexts(QPainter *painter,
                                const QModelIndex &index,
                                const QRect &place,
                                const QString &value) const
{
    const QFontMetricsF metrics(painter->font(), painter->device());
    const QString name = inOneLine(index.data().toString());
    const QString arrow =
        isChecked(index) ? index.data(LegendModel::AxisRole).toString() : QString();
    const int arrowRoom = qRound(m_widths.of(arrow));
    const int usual = qRound(m_widths.of(index.data(LegendModel::WideValueRole).toString()));
    const double width = metrics.horizontalAdvance(value);
    const int mostRoom =
        roomFor(qRound(width), qRound(m_widths.of(name)), place.width() - arrowRoom, usual);
    const bool isWhole = qRound(width) <= mostRoom;
    const QString reading =
        isWhole ? value : fittedReading(value, painter->fontMetrics(), mostRoom);
    const int valueRoom = reading.isEmpty() ? 0 : mostRoom;
    const QRect nameRect = place.adjusted(0, 0, -valueRoom - margin - arrowRoom, 0);
    if (!arrow.isEmpty())
        painter->drawText(QRect(nameRect.right() + 1, place.top(), arrowRoom, place.height()),
                          Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                          arrow);
    const double baseline = baselineIn(place, metrics);
    paintName(painter, index, nameRect, baseline, name);
    painter->setLayoutDirection(Qt::LeftToRight); // the sign stands in front of the number
    const double shownWidth = isWhole ? width : metrics.horizontalAdvance(reading);
    painter->drawText(QPointF(place.left() + place.width() - shownWidth, baseline), reading);
}

void LegendDelegate::paintName(QPainter *painter,
                               const QModelIndex &index,
                               const QRect &place,
                               double baseline,
                               const QString &name) const
{
    const bool fits = m_widths.of(name) <= place.width();
    const QString text =
        fits ? name : painter->fontMetrics().elidedText(name, Qt::ElideMiddle, place.width());
    // The line through the letters of a hidden channel may lie between pixels.
    if (isChecked(index) && painter->layoutDirection() == Qt::LeftToRight)
        m_names[size_t(index.row())].drawLine(*painter, QPointF(place.left(), baseline), text);
    else
        painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

bool LegendDelegate::hasNewValue(const QModelIndex &index) const
{
    return m_values[index.row()] != valueOf(index);
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
