// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/BigText.h"

#include "monitor/window/Look.h"

#include <QPainter>

#include <algorithm>

namespace Monitor {

namespace {

constexpr double titlePart = 0.5; // of the height of the other lines

QFont fontOf(const QFont &base, double pixels)
{
    QFont font = Look::figures(base);
    font.setPixelSize(std::max(1, int(pixels)));
    return font;
}

double scaleOf(int line)
{
    return line == 0 ? titlePart : 1.0;
}

} // namespace

void BigText::setLines(const QStringList &lines)
{
    if (lines == m_lines)
        return;
    m_lines = lines;
    update();
}

void BigText::setFaint(bool faint)
{
    m_faint = faint;
    update();
}

//! Returns the height of the figures, in pixels, at which every line fits in the room.
int BigText::fittingPixels(const QRect &room) const
{
    constexpr int tried = 100;
    double height = 0.0;
    double widest = 1.0;
    for (int i = 0; i < m_lines.size(); ++i) {
        const QFontMetricsF metrics(fontOf(font(), tried * scaleOf(i)));
        height += metrics.height();
        widest = std::max(widest, metrics.horizontalAdvance(m_lines.at(i)));
    }
    return height > 0.0 ? int(tried * std::min(room.height() / height, room.width() / widest)) : 1;
}

void BigText::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setPen(
        palette().color(m_faint ? QPalette::Disabled : QPalette::Active, QPalette::Text));
    const QRect room = rect().adjusted(Look::gap, Look::gap, -Look::gap, -Look::gap);
    const int pixels = fittingPixels(room);
    double top = room.top();
    for (int i = 0; i < m_lines.size(); ++i) {
        painter.setFont(fontOf(font(), pixels * scaleOf(i)));
        const double height = QFontMetricsF(painter.font()).height();
        painter.drawText(QRectF(room.left(), top, room.width(), height),
                         Qt::AlignCenter,
                         m_lines.at(i));
        top += height;
    }
}

} // namespace Monitor
