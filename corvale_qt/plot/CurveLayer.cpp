// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/CurveLayer_p.h"
#include "corvale_qt/plot/PixelRuns_p.h"

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

bool CurveLayer::addKept(QPainter *painter,
                         const QRect &clip,
                         const QwtScaleMap &xMap,
                         const StripPicture::Curve &curve)
{
    if (!m_kept.takes(xMap, curve))
        return false;
    if (m_painter != painter || m_kept.isEmpty())
        flush(painter);
    if (!m_kept.add(clip, xMap, curve, m_breaks))
        return false;
    m_painter = painter;
    return true;
}

void CurveLayer::add(QPainter *painter,
                     const QRect &clip,
                     const PixelRuns &runs,
                     const QColor &color)
{
    if (m_painter != painter || m_clip != clip || !m_kept.isEmpty())
        begin(painter, clip);
    int number = m_image.numberOf(color.rgba());
    if (number == 0) {
        begin(painter, clip);
        number = m_image.numberOf(color.rgba());
    }
    m_image.add(runs, -clip.topLeft(), number);
}

void CurveLayer::begin(QPainter *painter, const QRect &clip)
{
    flush(painter);
    m_painter = painter;
    m_clip = clip;
    m_image.reset(clip.size());
}

void CurveLayer::flush(QPainter *painter) const
{
    // What was added for a painter that has finished is dropped.
    const bool isDrawn = m_painter && m_painter == painter;
    if (isDrawn && m_kept.isEmpty())
        m_image.draw(painter, m_clip.topLeft());
    else if (isDrawn)
        m_kept.draw(painter, m_breaks);
    else
        m_kept.drop();
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
