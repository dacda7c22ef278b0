// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/StatusField.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

//! What lies between the text of a piece and the next piece, and on both sides of the text on a ground.
constexpr int padding = Look::gap / 2;
//! The names of states are never cut, only longer texts.
int leastWidth(const QFontMetrics &metrics)
{
    return metrics.horizontalAdvance(QStringLiteral("RECORDING FAILS")) + 3 * padding;
}

//! Returns the width that a text needs; a rounded one would be too small for some texts.
int textWidth(const QFont &font, const QString &text)
{
    return int(std::ceil(QFontMetricsF(font).horizontalAdvance(text)));
}

} // namespace

StatusField::StatusField(const QString &meaning, QWidget *parent)
    : QLabel(parent)
    , m_meaning(meaning)
{
    setTextFormat(Qt::PlainText);
    explain();
}

void StatusField::tell(const QString &text)
{
    tell(text.isEmpty() ? QVector<Part>() : QVector<Part>{{text, {}, std::nullopt}});
}

void StatusField::tell(const QVector<Part> &parts)
{
    if (parts == m_parts)
        return;
    m_parts = parts;
    QStringList texts;
    for (const Part &part : parts)
        texts.append(part.text);
    setText(texts.join(QStringLiteral("  "))); // for screen readers; it is painted here
    updateGeometry();
    update();
    explain();
}

int StatusField::widthOf(const Part &part) const
{
    return textWidth(font(), part.text) + (part.state ? 3 : 1) * padding;
}

//! Returns the width that each piece gets.
QVector<int> StatusField::widths() const
{
    const int least = leastWidth(fontMetrics());
    QVector<int> widths;
    int left = width(), after = 0;
    for (const Part &part : m_parts)
        after += std::min(widthOf(part), least);
    for (const Part &part : m_parts) {
        const int full = widthOf(part);
        after -= std::min(full, least);
        const int wanted = std::min(full, std::max(left - after, std::min(full, least)));
        widths.append(std::clamp(wanted, 0, std::max(left, 0))); // the field is never exceeded
        left -= widths.last();
    }
    return widths;
}

QStringList StatusField::shownTexts() const
{
    QStringList texts;
    const QVector<int> widths = this->widths();
    for (int i = 0; i < m_parts.size(); ++i) {
        const Part &part = m_parts.at(i);
        const int around = widthOf(part) - textWidth(font(), part.text);
        texts.append(fontMetrics().elidedText(part.text, Qt::ElideRight, widths.at(i) - around));
    }
    return texts;
}

QSize StatusField::sizeHint() const
{
    int width = 0;
    for (const Part &part : m_parts)
        width += widthOf(part);
    return {std::max(width, minimumWidth()), fontMetrics().height() + padding};
}

QSize StatusField::minimumSizeHint() const
{
    const int least = leastWidth(fontMetrics());
    int width = 0;
    for (const Part &part : m_parts)
        width += std::min(widthOf(part), least);
    return {width, fontMetrics().height() + padding};
}

void StatusField::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QVector<int> widths = this->widths();
    const QStringList texts = shownTexts();
    int x = 0;
    for (int i = 0; i < m_parts.size(); ++i) {
        const std::optional<Look::State> state = m_parts.at(i).state;
        QRect place(x, 0, widths.at(i) - padding, height());
        if (state)
            painter.fillRect(place, Look::ground(*state));
        painter.setPen(state ? Look::ink(*state) : palette().color(foregroundRole()));
        // A mirrored window would otherwise turn "10 /s" into "s/ 10".
        painter.setLayoutDirection(texts.at(i).isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
        painter.drawText(state ? place.adjusted(padding, 0, 0, 0) : place,
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         texts.at(i));
        x += widths.at(i);
    }
}

void StatusField::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    explain();
}

//! Sets the tool tip: what the field shows, and its pieces if they are cut or mean more than they say.
void StatusField::explain()
{
    QStringList lines{m_meaning};
    const QStringList texts = shownTexts();
    for (int i = 0; i < m_parts.size(); ++i) {
        const Part &part = m_parts.at(i);
        if (!part.help.isEmpty())
            lines.append(part.text + QStringLiteral(": ") + part.help);
        else if (texts.at(i) != part.text)
            lines.append(part.text);
    }
    setAccessibleDescription(lines.join(QStringLiteral(". ")));
    setToolTip(QStringLiteral("<qt>%1</qt>")
                   .arg(lines.join(QLatin1Char('\n'))
                            .toHtmlEscaped()
                            .replace(QLatin1Char('\n'), QLatin1String("<br>"))));
}

} // namespace Monitor
