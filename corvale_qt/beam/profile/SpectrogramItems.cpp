// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/SpectrogramItems_p.h"

#include <qwt_scale_map.h>

#include <QPainter>

#include <cmath>

namespace Corvale_Qt {

namespace {

//! Draws twice, first darker and wider, so that the lines are visible on every colour of the raster.
template<typename Draw>
void drawOutlined(QPainter *painter, Qt::PenStyle style, Draw draw)
{
    for (const QPen &pen : {QPen(Qt::black, 3.5), QPen(Qt::white, 1.5, style)}) {
        painter->setPen(pen);
        draw();
    }
}

} // namespace

Background::Background()
{
    setZ(BackgroundLayer);
}

void Background::setText(const QString &text)
{
    m_text = text;
    itemChanged();
}

void Background::draw(QPainter *painter,
                      const QwtScaleMap & /*xMap*/,
                      const QwtScaleMap & /*yMap*/,
                      const QRectF &canvasRect) const
{
    painter->fillRect(canvasRect, Qt::black);
    QFont font = painter->font();
    font.setPixelSize(std::max(12, static_cast<int>(canvasRect.height() / 16)));
    painter->setFont(font);
    painter->setPen(QColor(160, 160, 160));
    painter->drawText(canvasRect, Qt::AlignCenter, m_text);
}

MeanCurve::MeanCurve(const QString &title, Qt::Orientation across)
    : QwtPlotCurve(title)
    , m_across(across)
{
    setZ(MeanLayer);
    setItemAttribute(AutoScale, false);
}

void MeanCurve::setMean(double mean, double from, double to)
{
    QVector<QPointF> ends;
    if (std::isfinite(mean)) {
        const QPointF first = m_across == Qt::Vertical ? QPointF(mean, from) : QPointF(from, mean);
        const QPointF last = m_across == Qt::Vertical ? QPointF(mean, to) : QPointF(to, mean);
        ends = {first, last};
    }
    setSamples(ends);
}

void MeanCurve::drawCurve(QPainter *painter,
                          int /*style*/,
                          const QwtScaleMap &xMap,
                          const QwtScaleMap &yMap,
                          const QRectF & /*canvasRect*/,
                          int from,
                          int to) const
{
    const QLineF line(QwtScaleMap::transform(xMap, yMap, sample(from)),
                      QwtScaleMap::transform(xMap, yMap, sample(to)));
    drawOutlined(painter, Qt::DashLine, [&] {
        painter->drawLine(line);
    });
}

Ellipse::Ellipse()
{
    setZ(EllipseLayer);
    setRenderHint(RenderAntialiased, true);
}

void Ellipse::setOptions(const EllipseOptions &options)
{
    m_options = options;
    itemChanged();
}

void Ellipse::setShape(const SigmaEllipse &oneSigma)
{
    m_oneSigma = oneSigma;
    itemChanged();
}

void Ellipse::setSigmaCount(int count)
{
    m_sigmaCount = count;
    itemChanged();
}

void Ellipse::setHidden(bool hidden)
{
    m_hidden = hidden;
    itemChanged();
}

void Ellipse::draw(QPainter *painter,
                   const QwtScaleMap &xMap,
                   const QwtScaleMap &yMap,
                   const QRectF & /*canvasRect*/) const
{
    if (m_hidden)
        return;
    if (m_options.ellipse)
        drawEllipse(painter, xMap, yMap);
    if (m_options.arrow)
        drawArrow(painter, xMap, yMap);
}

void Ellipse::drawEllipse(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap) const
{
    constexpr int corners = 120;
    const double rotation = m_oneSigma.rotation * M_PI / 180;
    const QPointF major =
        m_sigmaCount * m_oneSigma.semiMajor * QPointF(std::cos(rotation), std::sin(rotation));
    const QPointF minor =
        m_sigmaCount * m_oneSigma.semiMinor * QPointF(-std::sin(rotation), std::cos(rotation));
    QPolygonF outline;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2 * M_PI * i / corners;
        const QPointF point =
            QPointF(m_oneSigma.x, m_oneSigma.y) + std::cos(angle) * major + std::sin(angle) * minor;
        outline << QwtScaleMap::transform(xMap, yMap, point);
    }
    painter->setBrush(Qt::NoBrush);
    drawOutlined(painter, Qt::SolidLine, [&] {
        painter->drawPolygon(outline);
    });
}

void Ellipse::drawArrow(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap) const
{
    const QLineF shaft(
        QwtScaleMap::transform(xMap, yMap, QPointF(m_options.xOrigin, m_options.yOrigin)),
        QwtScaleMap::transform(xMap, yMap, QPointF(m_oneSigma.x, m_oneSigma.y)));
    if (shaft.length() < 1)
        return; // no displacement, no direction
    const auto barb = [&](double turn) {
        QLineF line(shaft.p2(), shaft.p1());
        line.setLength(std::min<double>(m_options.arrowSize, shaft.length()));
        line.setAngle(line.angle() + turn);
        return line.p2();
    };
    const QPolygonF head(QVector<QPointF>{shaft.p2(), barb(25), barb(-25)});
    painter->setBrush(Qt::white);
    drawOutlined(painter, Qt::SolidLine, [&] {
        painter->drawLine(shaft);
        painter->drawPolygon(head);
    });
}

} // namespace Corvale_Qt
