// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/MapComparison_p.h"
#include "corvale_qt/beam/spots/SpotLegend_p.h"
#include "corvale_qt/widgets/MixedColor_p.h"

#include <QLinearGradient>
#include <QPainter>
#include <QStringList>

namespace Corvale_Qt {

namespace {

//! The opacities at the centre of spots with the smallest and with the largest dose of a map.
constexpr double smallestOpacity = 0.1, largestOpacity = 0.7;
/*! The difference shows the difference of two opacities twice as bright, so that it is brightest at half an opacity. So much
    of the largest dose makes that. */
constexpr double brightestDifference = 0.5 / (largestOpacity - smallestOpacity);
constexpr int digits = 3;

//! Returns a colour to which a part of another is added, as CompositionMode_Plus does.
QColor sum(const QColor &color, const QColor &added, double opacity)
{
    const auto channel = [&](qreal below, qreal above) {
        return qMin(1.0, below + above * opacity);
    };
    return QColor::fromRgbF(channel(color.redF(), added.redF()),
                            channel(color.greenF(), added.greenF()),
                            channel(color.blueF(), added.blueF()));
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

QVector<SpotLegend::Scale> SpotLegend::scales() const
{
    switch (m_view.displayMode()) {
    case SpotMapView::Data:
        break;
    case SpotMapView::Difference:
        return {differences(Qt::black, 1.0)};
    case SpotMapView::DifferenceOverlay:
        return {doses(), differences(m_view.backgroundColor(), MapComparison::overlayOpacity)};
    }
    return {doses()};
}

SpotLegend::Scale SpotLegend::doses() const
{
    const QColor background = m_view.backgroundColor(), color = m_view.spotColor();
    return {withUnit(0.0),
            tr("one spot: %1").arg(withUnit(double(m_view.doseScale()))),
            {{0.0, mixedColor(background, color, smallestOpacity)},
             {1.0, mixedColor(background, color, largestOpacity)}}};
}

SpotLegend::Scale SpotLegend::differences(const QColor &below, double opacity) const
{
    const QString most = withUnit(brightestDifference * double(m_view.doseScale()));
    return {
        tr("one spot below the target: -%1").arg(most),
        tr("above: +%1").arg(most),
        {{0.0, sum(below, Qt::red, opacity)}, {0.5, below}, {1.0, sum(below, Qt::blue, opacity)}}};
}

void SpotLegend::refresh()
{
    QStringList texts;
    for (const Scale &scale : scales())
        texts << scale.left + QStringLiteral(" | ") + scale.right;
    setAccessibleName(texts.join(QStringLiteral("; ")));
    updateGeometry();
    update();
}

void SpotLegend::setUnit(const QString &unit)
{
    m_unit = unit;
    refresh();
}

QString SpotLegend::withUnit(double dose) const
{
    const QString number = QString::number(dose, 'g', digits);
    return m_unit.isEmpty() ? number : number + QChar(QChar::Nbsp) + m_unit;
}

int SpotLegend::heightOfScale() const
{
    return fontMetrics().height() + 4;
}

QSize SpotLegend::sizeHint() const
{
    return QSize(10 * fontMetrics().averageCharWidth(), scales().size() * heightOfScale());
}

void SpotLegend::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QRect row(0, 0, width(), heightOfScale());
    for (const Scale &scale : scales()) {
        paint(painter, scale, row);
        row.translate(0, row.height());
    }
}

void SpotLegend::paint(QPainter &painter, const Scale &scale, const QRect &row) const
{
    const int gap = fontMetrics().averageCharWidth();
    const int leftWidth = fontMetrics().horizontalAdvance(scale.left);
    const int rightWidth = fontMetrics().horizontalAdvance(scale.right);
    const QRect room = row.adjusted(gap, 2, -gap, -2);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, scale.left);
    painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, scale.right);
    const QRectF bar = QRectF(room).adjusted(leftWidth + gap, 2, -rightWidth - gap, -2);
    if (bar.width() < 2 * gap)
        return;
    QLinearGradient gradient(bar.topLeft(), bar.topRight());
    gradient.setStops(scale.colors);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(gradient);
    painter.drawRect(bar);
}

} // namespace Corvale_Qt
