// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ValueDelegate.h"

#include "monitor/window/Look.h"
#include "monitor/window/StaleMarks.h"

#include <QApplication>
#include <QPainter>

namespace Monitor {

namespace {

//! Returns a square of the colour, framed so that light colours are seen on white.
QIcon swatch(const QColor &colour, const QSize &size)
{
    const double ratio = qApp->devicePixelRatio();
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(colour);
    QPainter painter(&picture);
    painter.setPen(QColor(0, 0, 0, 96));
    painter.drawRect(QRectF(0.5, 0.5, size.width() - 1.0, size.height() - 1.0));
    return QIcon(picture);
}

} // namespace

void ValueDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    const QFont font = option->font;
    QStyledItemDelegate::initStyleOption(option, index);
    option->font = font;
    option->backgroundBrush = QBrush();
    const QColor text = option->widget ? option->widget->palette().color(QPalette::Text)
                                       : option->palette.color(QPalette::Text);
    option->palette.setColor(QPalette::Text, text);
    if (index.column() == 0)
        drawName(option, index);
    else
        drawValue(option, index);
    option->fontMetrics = QFontMetrics(option->font);
}

void ValueDelegate::drawName(QStyleOptionViewItem *option, const QModelIndex &index)
{
    const int side = option->fontMetrics.ascent();
    option->displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    option->decorationSize = QSize(side, side);
    option->icon =
        swatch(index.data(Qt::BackgroundRole).value<QBrush>().color(), QSize(side, side));
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
        option->palette.setColor(QPalette::Text,
                                 option->palette.color(QPalette::Disabled, QPalette::Text));
    }
}

} // namespace Monitor
