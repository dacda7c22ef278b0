// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/CurveLayer_p.h"

#include <QLine>
#include <QPainter>

namespace Corvale_Qt {

namespace {

// Between the curves (20) and the markers (30).
constexpr double zOfLayer = 20.5;

} // namespace

CurveLayer::CurveLayer()
{
    setZ(zOfLayer);
}

void CurveLayer::add(QPainter *painter,
                     const QRect &clip,
                     const QVector<QLine> &lines,
                     const QColor &colour)
{
    if (m_painter != painter || m_clip != clip)
        begin(painter, clip);
    QPainter others(&m_image);
    others.translate(-clip.topLeft());
    others.setPen(QPen(colour, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));

    auto *const pixels = reinterpret_cast<QRgb *>(m_image.bits());
    const int stride = m_image.bytesPerLine() / int(sizeof(QRgb));
    const QRgb value = colour.rgba();
    for (const QLine &line : lines) {
        if (line.x1() != line.x2() || !clip.contains(line.p1()) || !clip.contains(line.p2())) {
            others.drawLine(line);
            continue;
        }
        QRgb *pixel = pixels + (line.y1() - clip.top()) * stride + (line.x1() - clip.left());
        for (int y = line.y1(); y <= line.y2(); ++y, pixel += stride)
            *pixel = value;
    }
}

void CurveLayer::begin(QPainter *painter, const QRect &clip)
{
    flush(painter);
    m_painter = painter;
    m_clip = clip;
    if (m_image.size() != clip.size())
        m_image = QImage(clip.size(), QImage::Format_ARGB32_Premultiplied);
    m_image.fill(Qt::transparent);
}

void CurveLayer::flush(QPainter *painter) const
{
    // What was meant for another painter has nowhere to go any more.
    if (m_painter && m_painter == painter)
        painter->drawImage(m_clip.topLeft(), m_image);
    m_painter = nullptr;
}

void CurveLayer::draw(QPainter *painter,
                      const QwtScaleMap &,
                      const QwtScaleMap &,
                      const QRectF &) const
{
    flush(painter);
}

} // namespace Corvale_Qt
