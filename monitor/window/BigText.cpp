// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/BigText.h"

#include "monitor/dialogs/QuietColor.h"
#include "monitor/window/Look.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace Monitor {

namespace {

constexpr double titlePart = 0.5; // of the height of the other lines
constexpr double worthGrowing = 1.25;

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

//! Returns the lines as they are drawn: broken at each tab, or with a wide gap there.
QStringList drawn(const QStringList &lines, bool broken)
{
    QStringList all;
    for (const QString &line : lines) {
        const QStringList parts = line.split(QLatin1Char('\t'));
        all += broken ? parts : QStringList{parts.join(QStringLiteral("  "))};
    }
    return all;
}

} // namespace

void BigText::setLines(const QStringList &lines)
{
    if (lines == m_lines)
        return;
    m_lines = lines;
    const bool fits = fittingPixels(drawn(lines, m_broken)) >= m_pixels;
    const int largest =
        std::max(fittingPixels(drawn(lines, false)), fittingPixels(drawn(lines, true)));
    if (!fits || largest > worthGrowing * m_pixels)
        chooseSize();
    update();
}

void BigText::setFaint(bool faint)
{
    m_faint = faint;
    update();
}

//! Chooses the largest size, broken or not.
void BigText::chooseSize()
{
    const int unbroken = fittingPixels(drawn(m_lines, false));
    const int broken = fittingPixels(drawn(m_lines, true));
    m_broken = broken > unbroken;
    m_pixels = std::max(unbroken, broken);
}

QRect BigText::room() const
{
    return rect().adjusted(Look::gap, Look::gap, -Look::gap, -Look::gap);
}

//! Returns the largest pixel size of the font at which all lines fit; a title that is too wide for it becomes smaller alone.
int BigText::fittingPixels(const QStringList &lines) const
{
    constexpr int tried = 100;
    double height = 0.0;
    double widest = 1.0;
    for (int i = 0; i < lines.size(); ++i) {
        const QFontMetricsF metrics(fontOf(font(), tried * scaleOf(i)));
        height += metrics.height();
        if (i > 0)
            widest = std::max(widest, metrics.horizontalAdvance(lines.at(i)));
    }
    const QRect free = room();
    return height > 0.0 ? int(tried * std::min(free.height() / height, free.width() / widest)) : 1;
}

void BigText::resizeEvent(QResizeEvent *)
{
    chooseSize();
}

void BigText::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        chooseSize();
}

void BigText::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setPen(m_faint ? quietColor(palette(), QPalette::Text, QPalette::Base)
                           : palette().color(QPalette::Text));
    const QRect free = room();
    const QStringList lines = drawn(m_lines, m_broken);
    double top = free.top();
    for (int i = 0; i < lines.size(); ++i) {
        const QFontMetricsF metrics(fontOf(font(), m_pixels * scaleOf(i)));
        const double width = std::max(metrics.horizontalAdvance(lines.at(i)), 1.0);
        const double shrunk = std::min(1.0, free.width() / width);
        painter.setFont(fontOf(font(), m_pixels * scaleOf(i) * shrunk));
        const double height = metrics.height();
        painter.drawText(QRectF(free.left(), top, free.width(), height),
                         Qt::AlignCenter,
                         lines.at(i));
        top += height;
    }
}

} // namespace Monitor
