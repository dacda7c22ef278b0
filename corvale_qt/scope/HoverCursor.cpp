// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/scope/HoverCursor_p.h"

#include <QPainter>
#include <QStringList>

#include <algorithm>

namespace Corvale_Qt {

namespace {

constexpr int kMargin = 5;
constexpr int kDistance = 12; // of the box from the line
constexpr int kSwatch = 12; // a square in the colour of the channel, with the gap behind it
constexpr int kGap = 10; // between name and value, and between columns

//! Makes a widget opaque, of one colour, and invisible to the mouse.
void prepare(QWidget *widget, const QColor &colour)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
    widget->setAttribute(Qt::WA_TransparentForMouseEvents);
    widget->setFocusPolicy(Qt::NoFocus);
    widget->hide();
    widget->lower(); // marks on the canvas stay on top
}

} // namespace

HoverCursor::HoverCursor(QWidget *canvas)
    : QWidget(canvas)
    , m_line(new QWidget(canvas))
{
    setObjectName(QStringLiteral("hoverCursor"));
    setFont(QFont(QStringLiteral("Monospace"), 9)); // as the labels of the markers
    QColor background = RVXPlotColors::labelBackgroundColor();
    background.setAlpha(255);
    prepare(this, background);
    prepare(m_line, QColor(140, 140, 140)); // seen on black and on white
}

HoverCursor::~HoverCursor()
{
    delete m_line;
}

void HoverCursor::showReading(const HoverReading &reading, int x)
{
    const bool isOther = !isVisible() || !(reading == m_reading);
    m_reading = reading;
    if (isOther)
        place(arrange(), x);
    else
        place(size(), x);
    if (m_line)
        m_line->setGeometry(x, 0, 1, parentWidget()->height());
    if (m_line && !m_line->isVisible())
        m_line->show();
    if (!isVisible())
        show();
    else if (isOther)
        update();
}

void HoverCursor::hideReading()
{
    hide();
    if (m_line)
        m_line->hide();
}

QString HoverCursor::text() const
{
    if (!isVisible())
        return QString();
    QStringList lines{m_reading.place};
    for (const HoverReading::Channel &channel : m_reading.channels)
        lines << channel.name + QStringLiteral(": ") + channel.value;
    return lines.join(QLatin1Char('\n'));
}

//! Puts the channels into as many columns as the height of the canvas asks for. Returns the size of the box.
QSize HoverCursor::arrange()
{
    const QFontMetrics metrics(font());
    const QSize canvas = parentWidget()->size();
    const int line = metrics.lineSpacing();
    const int rows = std::max((canvas.height() - 4 * kMargin) / line - 2, 1);
    m_columns.clear();
    m_left = 0;
    int width = 0;
    for (int first = 0; first < m_reading.channels.size(); first += rows) {
        Column column{first, std::min(rows, m_reading.channels.size() - first), 0, 0};
        for (int i = first; i < first + column.count; ++i) {
            const HoverReading::Channel &channel = m_reading.channels[i];
            column.nameWidth = std::max(column.nameWidth, metrics.horizontalAdvance(channel.name));
            column.valueWidth =
                std::max(column.valueWidth, metrics.horizontalAdvance(channel.value));
        }
        const int with =
            width + (width > 0 ? kGap : 0) + kSwatch + column.nameWidth + kGap + column.valueWidth;
        if (first > 0 && with + 2 * kMargin > canvas.width()) {
            m_left = m_reading.channels.size() - first;
            break;
        }
        width = with;
        m_columns.append(column);
    }
    const int tallest = m_columns.isEmpty() ? 0 : m_columns.first().count;
    const int lines = 1 + tallest + (m_left > 0 ? 1 : 0);
    return QSize(std::max(width, metrics.horizontalAdvance(m_reading.place)) + 2 * kMargin,
                 lines * line + 2 * kMargin);
}

//! Puts the box beside the line, in the middle of the height: the labels of the markers are at the top.
void HoverCursor::place(const QSize &size, int x)
{
    const QSize canvas = parentWidget()->size();
    const bool fitsRight = x + kDistance + size.width() <= canvas.width();
    const int left = fitsRight ? x + kDistance : x - kDistance - size.width();
    const int inside = std::max(std::min(left, canvas.width() - size.width()), 0);
    setGeometry(QRect(QPoint(inside, std::max((canvas.height() - size.height()) / 2, 0)), size));
}

void HoverCursor::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setLayoutDirection(Qt::LeftToRight); // the sign stands in front of the number
    painter.setPen(RVXPlotColors::labelTextColor());
    const QFontMetrics metrics(font());
    const int line = metrics.lineSpacing();
    const int top = kMargin + metrics.ascent();
    painter.drawText(kMargin, top, m_reading.place);
    int left = kMargin;
    for (const Column &column : qAsConst(m_columns)) {
        const int right = left + kSwatch + column.nameWidth + kGap + column.valueWidth;
        for (int i = 0; i < column.count; ++i) {
            const HoverReading::Channel &channel = m_reading.channels[column.first + i];
            const int baseline = top + (i + 1) * line;
            const int side = kSwatch - 4;
            painter.fillRect(left, baseline - side, side, side, channel.colour);
            painter.drawText(left + kSwatch, baseline, channel.name);
            const int width = metrics.horizontalAdvance(channel.value);
            painter.drawText(right - width, baseline, channel.value);
        }
        left = right + kGap;
    }
    if (m_left > 0) {
        const int lines = m_columns.isEmpty() ? 1 : m_columns.first().count + 1;
        painter.drawText(kMargin, top + lines * line, tr("and %n more", nullptr, m_left));
    }
}

} // namespace Corvale_Qt
