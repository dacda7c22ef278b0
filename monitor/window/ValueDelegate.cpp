// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ValueDelegate.h"

#include "monitor/dialogs/QuietColor.h"
#include "monitor/window/Look.h"
#include "monitor/window/StaleMarks.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QPixmapCache>
#include <QToolTip>

namespace Monitor {

namespace {

//! Returns a square of the colour, framed so that light colours are seen on white.
QPixmap drawnSwatch(const QColor &colour, const QSize &size, double ratio)
{
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(colour);
    QPainter painter(&picture);
    painter.setPen(QColor(0, 0, 0, 96));
    painter.drawRect(QRectF(0.5, 0.5, size.width() - 1.0, size.height() - 1.0));
    return picture;
}

/*! Returns the square from Qt's cache. An icon leaves what it draws there under a number of its picture, so a new
    picture for each cell that is painted would fill the cache. */
QIcon swatch(const QColor &colour, const QSize &size)
{
    const double ratio = qApp->devicePixelRatio();
    const QString key = QStringLiteral("corvale-swatch-%1-%2-%3")
                            .arg(colour.name(QColor::HexArgb))
                            .arg(size.width())
                            .arg(ratio);
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = drawnSwatch(colour, size, ratio);
        QPixmapCache::insert(key, picture);
    }
    return QIcon(picture);
}

QColor textColor(const QStyleOptionViewItem &option)
{
    QPalette::ColorGroup group = QPalette::Disabled;
    if (option.state & QStyle::State_Enabled)
        group = option.state & QStyle::State_Active ? QPalette::Normal : QPalette::Inactive;
    const bool isSelected = option.state & QStyle::State_Selected;
    return option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
}

//! Paints a line of text as styles paint that of a cell.
void paintText(QPainter *painter,
               const QStyleOptionViewItem &option,
               const QRect &place,
               const QString &text)
{
    const QFontMetricsF metrics(option.font);
    QString shown = text;
    double width = metrics.horizontalAdvance(shown);
    if (width > place.width()) {
        shown = metrics.elidedText(text, option.textElideMode, place.width());
        width = metrics.horizontalAdvance(shown);
    }
    const QFontMetrics whole(option.font); // the line begins on a pixel
    const QRect line = QStyle::alignedRect(Qt::LeftToRight,
                                           option.displayAlignment,
                                           {int(width), whole.height()},
                                           place);
    const bool isAtRight = option.displayAlignment & Qt::AlignRight;
    const double left = isAtRight ? place.left() + place.width() - width : line.left();
    painter->setFont(option.font);
    painter->setPen(textColor(option));
    painter->drawText(QPointF(left, line.top() + whole.ascent()), shown);
}

} // namespace

ValueDelegate::ValueDelegate(const QAbstractItemModel &channels, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_channels(&channels)
{
}

void ValueDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    const QFont font = option->font;
    QStyledItemDelegate::initStyleOption(option, index);
    option->font = font;
    option->backgroundBrush = QBrush();
    useTextColor(option);
    if (index.column() == 0)
        drawName(option, index);
    else
        drawValue(option, index);
    option->fontMetrics = QFontMetrics(option->font);
}

void ValueDelegate::useTextColor(QStyleOptionViewItem *option)
{
    const QColor text = option->widget ? option->widget->palette().color(QPalette::Text)
                                       : option->palette.color(QPalette::Text);
    option->palette.setColor(QPalette::Text, text);
}

/*! Paints values itself, ten times a second: a style asks the model for all that a cell may have, and lays its text out twice. The style draws
    the ground and the frame of the focus. */
void ValueDelegate::paint(QPainter *painter,
                          const QStyleOptionViewItem &option,
                          const QModelIndex &index) const
{
    if (index.column() == 0) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem item = option;
    item.index = index;
    useTextColor(&item);
    drawValue(&item, index);
    const QVariant alignment =
        index.data(Qt::TextAlignmentRole); // of a reading, and not of a word in its place
    item.displayAlignment = QStyle::visualAlignment(
        item.direction,
        alignment.isValid() ? Qt::Alignment(alignment.toInt()) : Qt::AlignRight | Qt::AlignVCenter);
    const QStyle *const style = item.widget ? item.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &item, item.widget) + 1;
    paintText(painter, item, item.rect.adjusted(margin, 0, -margin, 0), index.data().toString());
}

//! Shows the whole text of a cell that has no room for it.
bool ValueDelegate::helpEvent(QHelpEvent *event,
                              QAbstractItemView *view,
                              const QStyleOptionViewItem &option,
                              const QModelIndex &index)
{
    const bool isCut = index.isValid() && sizeHint(option, index).width() > option.rect.width();
    if (event->type() != QEvent::ToolTip || !isCut || index.data(Qt::ToolTipRole).isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text =
        index.data().toString().toHtmlEscaped(); // a channel may be called anything
    QToolTip::showText(event->globalPos(), QStringLiteral("<qt>%1</qt>").arg(text), view);
    return true;
}

//! Draws the swatch as the curve is drawn; the cell's own ground is a lighter colour.
void ValueDelegate::drawName(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    const QBrush channel = m_channels
        ? m_channels->index(0, index.row() + 1).data(Qt::BackgroundRole).value<QBrush>()
        : QBrush();
    const int side = option->fontMetrics.ascent();
    option->displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    option->decorationSize = QSize(side, side);
    option->icon = swatch(channel.color(), QSize(side, side));
    option->features |= QStyleOptionViewItem::HasDecoration;
}

void ValueDelegate::drawValue(QStyleOptionViewItem *option, const QModelIndex &index)
{
    option->font = Look::figures(option->font);
    const QColor ground = index.data(Qt::BackgroundRole).value<QBrush>().color();
    const bool isLoud = ground != Qt::black; // the ground of a value that is at rest
    const bool isOld = index.data(StaleMarks::StaleRole).toBool();
    option->font.setItalic(isOld);
    if (isLoud) {
        option->backgroundBrush = ground;
        option->palette.setColor(QPalette::Text,
                                 index.data(Qt::ForegroundRole).value<QBrush>().color());
        option->font.setBold(true);
    } else if (isOld) {
        const QPalette palette = option->widget ? option->widget->palette() : QPalette();
        option->palette.setColor(QPalette::Text,
                                 quietColor(palette, QPalette::Text, QPalette::Base));
    }
}

} // namespace Monitor
