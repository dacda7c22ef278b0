// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/BarNameDraw_p.h"

#include <qwt_scale_map.h>
#include <qwt_text.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr double gap = 4.0; // between names
constexpr double longestUpright = 90.0; // of a name that is written upwards

} // namespace

BarNameDraw::BarNameDraw(const QStringList &names)
    : m_names(names)
{
}

//! Returns no text: draw() writes the names, because their room depends on the width of the bars.
QwtText BarNameDraw::label(double) const
{
    return QwtText();
}

double BarNameDraw::barWidth() const
{
    return std::abs(scaleMap().transform(2.0) - scaleMap().transform(1.0));
}

//! Returns whether names are written upwards.
bool BarNameDraw::isUpright(const QFont &font) const
{
    const QFontMetricsF metrics(font);
    const double room = barWidth() - gap;
    const bool allFit = std::all_of(m_names.begin(), m_names.end(), [&](const QString &name) {
        return metrics.horizontalAdvance(name) <= room;
    });
    return !allFit && room < metrics.horizontalAdvance(QStringLiteral("MMMM"));
}

QString BarNameDraw::shortened(const QString &name, const QFont &font, double room) const
{
    return QFontMetricsF(font).elidedText(name, Qt::ElideMiddle, room);
}

double BarNameDraw::extent(const QFont &font) const
{
    const QFontMetricsF metrics(font);
    double length = metrics.height();
    if (isUpright(font)) {
        for (const QString &name : m_names)
            length = std::max(length, metrics.horizontalAdvance(name));
        length = std::min(length, longestUpright);
    }
    return std::ceil(QwtScaleDraw::extent(font) + spacing() + length);
}

void BarNameDraw::draw(QPainter *painter, const QPalette &palette) const
{
    QwtScaleDraw::draw(painter, palette);
    const QFont font = painter->font();
    const QFontMetricsF metrics(font);
    const bool upright = isUpright(font);
    // Every nth name, if even upright ones are closer together than their height.
    const int step = std::max(int(std::ceil(metrics.height() / std::max(barWidth(), 0.1))), 1);
    const double top = pos().y() + maxTickLength() + spacing();
    painter->save();
    painter->setPen(palette.color(QPalette::Text));
    for (int i = 0; i < m_names.size(); i += upright ? step : 1) {
        const double x = scaleMap().transform(i + 1);
        painter->save();
        painter->translate(x, top);
        QRectF place(-0.5 * barWidth(), 0.0, barWidth(), metrics.height());
        if (upright) {
            painter->rotate(-90.0);
            place =
                QRectF(-longestUpright, -0.5 * metrics.height(), longestUpright, metrics.height());
        }
        const double room = upright ? longestUpright : barWidth() - gap;
        const Qt::Alignment alignment = upright ? Qt::AlignRight : Qt::AlignHCenter;
        painter->drawText(place,
                          int(alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                          shortened(m_names[i], font, room));
        painter->restore();
    }
    painter->restore();
}

} // namespace Corvale_Qt
