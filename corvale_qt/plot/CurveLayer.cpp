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

void CurveLayer::add(QPainter *painter,
                     const QRect &clip,
                     const PixelRuns &runs,
                     const QColor &color)
{
    if (m_painter != painter || m_clip != clip)
        begin(painter, clip);
    int number = m_image.numberOf(color.rgba());
    if (number == 0) {
        begin(painter, clip);
        number = m_image.numberOf(color.rgba());
    }
    for (const PixelRuns::Run &run : runs.runs())
        m_image.addRun(run.column - clip.left(),
                       run.top - clip.top(),
                       run.bottom - clip.top(),
                       number);
    m_image.addLines(runs.joints(), -clip.topLeft(), number);
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
    // Runs that were added for a painter that has finished are dropped.
    if (m_painter && m_painter == painter)
        m_image.draw(painter, m_clip.topLeft());
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
