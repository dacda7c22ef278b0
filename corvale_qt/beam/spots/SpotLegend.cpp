// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotLegend_p.h"

#include <QLinearGradient>
#include <QPainter>

namespace Corvale_Qt {

namespace {

//! The opacities at the centre of spots with the smallest and with the largest dose of a map.
constexpr double smallestOpacity = 0.1, largestOpacity = 0.7;
/*! The difference shows the difference of two opacities twice as bright, so that it is brightest at half an opacity. So much
    of the largest dose makes that. */
constexpr double brightestDifference = 0.5 / (largestOpacity - smallestOpacity);
constexpr int digits = 3;

QColor mixed(const QColor &background, const QColor &color, double opacity)
{
    const auto channel = [&](qreal below, qreal above) {
        return below + (above - below) * opacity;
    };
    return QColor::fromRgbF(channel(background.redF(), color.redF()),
                            channel(background.greenF(), color.greenF()),
                            channel(background.blueF(), color.blueF()));
}

} // namespace

SpotLegend::SpotLegend(const SpotMapView &view, QWidget *parent)
    : QWidget(parent)
    , m_view(view)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setObjectName(QStringLiteral("legend"));
    connect(&view, &SpotMapView::doseScaleChanged, this, &SpotLegend::refresh);
    connect(&view, &SpotMapView::displayModeChanged, this, &SpotLegend::refresh);
    connect(&view, &SpotMapView::diffTargetChanged, this, &SpotLegend::refresh);
    refresh();
}

void SpotLegend::refresh()
{
    setAccessibleName(endText(false) + QStringLiteral(" | ") + endText(true));
    update();
}

void SpotLegend::setUnit(const QString &unit)
{
    m_unit = unit;
    refresh();
}

bool SpotLegend::isDifference() const
{
    return m_view.displayMode() != SpotMapView::Data;
}

QString SpotLegend::withUnit(double dose) const
{
    const QString number = QString::number(dose, 'g', digits);
    return m_unit.isEmpty() ? number : number + QChar(QChar::Nbsp) + m_unit;
}

//! Returns the text at an end of the bar: the left one, or the right one.
QString SpotLegend::endText(bool right) const
{
    const double scale = double(m_view.doseScale());
    if (!isDifference())
        return withUnit(right ? scale : 0.0);
    const double difference = brightestDifference * scale;
    return right ? tr("above the target: +%1").arg(withUnit(difference))
                 : tr("below the target: \u2212%1").arg(withUnit(difference));
}

QSize SpotLegend::sizeHint() const
{
    return QSize(10 * fontMetrics().averageCharWidth(), fontMetrics().height() + 4);
}

QBrush SpotLegend::barBrush(const QRectF &bar) const
{
    QLinearGradient gradient(bar.topLeft(), bar.topRight());
    if (isDifference()) {
        gradient.setColorAt(0.0, Qt::red);
        gradient.setColorAt(0.5, Qt::black);
        gradient.setColorAt(1.0, Qt::blue);
    } else {
        const QColor background = m_view.backgroundColor(), color = m_view.spotColor();
        gradient.setColorAt(0.0, mixed(background, color, smallestOpacity));
        gradient.setColorAt(1.0, mixed(background, color, largestOpacity));
    }
    return gradient;
}

void SpotLegend::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const int gap = fontMetrics().averageCharWidth();
    const QString left = endText(false), right = endText(true);
    const int leftWidth = fontMetrics().horizontalAdvance(left);
    const int rightWidth = fontMetrics().horizontalAdvance(right);
    const QRect room = rect().adjusted(gap, 2, -gap, -2);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, left);
    painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, right);
    const QRectF bar = QRectF(room).adjusted(leftWidth + gap, 2, -rightWidth - gap, -2);
    if (bar.width() < 2 * gap)
        return;
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(barBrush(bar));
    painter.drawRect(bar);
}

} // namespace Corvale_Qt
