// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/WideRegisters_p.h"
#include "corvale_qt/plot/CurveLayer_p.h"
#include "corvale_qt/plot/CurveLines_p.h"
#include "corvale_qt/plot/HistoryCurve_p.h"
#include "corvale_qt/plot/HistoryFrame_p.h"
#include "corvale_qt/plot/PixelRuns_p.h"

#include <qwt_scale_map.h>
#include <qwt_transform.h>

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

constexpr double missing = std::numeric_limits<double>::quiet_NaN();

// Buffers that all curves share. Curves are painted one after the other on one thread.
struct BlockScratch
{
    PixelRuns runs;
    QVector<RVXPlotHistory::Block> blocks;
};

BlockScratch &blockScratch()
{
    static BlockScratch shared;
    return shared;
}

//! The pixels of a block along y; \a mean is where a line to a block that is not its neighbour ends.
struct Height
{
    int top;
    int bottom;
    int mean;
};

//! Adds the blocks of a curve, as far as they are near the clip.
class BlockRuns
{
public:
    BlockRuns(PixelRuns &runs, const QRect &clip)
        : m_runs(runs)
        , m_clip(clip)
    {
    }

    void gap()
    {
        m_runs.gap();
        m_isOpen = false;
    }
    void add(HistoryFrame::Place place, const Height &height)
    {
        const int left = std::max(place.left, std::min(m_clip.left() - 1, place.right));
        const int right = std::min(place.right, std::max(m_clip.right() + 1, place.left));
        // Neighbours are joined where they are nearest to each other, so that no line leaves the range of a block that the
        // other one overlaps.
        const bool joins = m_isOpen && left <= m_right + 1;
        const int nearest =
            joins ? std::clamp(height.mean, m_last.top, m_last.bottom) : height.mean;
        int first = std::clamp(nearest, height.top, height.bottom);
        for (int column = left; column <= right; ++column, first = height.mean)
            m_runs.addColumn(column, first, height.top, height.bottom, height.mean);
        m_isOpen = true;
        m_right = right;
        m_last = height;
    }

private:
    PixelRuns &m_runs;
    QRect m_clip;
    bool m_isOpen = false;
    int m_right = 0; // of the block before
    Height m_last{};
};

} // namespace

HistoryCurve::HistoryCurve(const HistoryFrame &frame, CurveLayer *layer)
    : m_frame(frame)
    , m_layer(layer)
    , m_next(missing, missing)
{
    setItemAttribute(AutoScale, true);
}

void HistoryCurve::show(int column, double divisor, const QPen &pen)
{
    m_column = column;
    m_divisor = divisor;
    m_pen = pen;
    m_pen.setStyle(Qt::SolidLine); // dashes of runs would mean nothing
    m_next = QPointF(missing, missing);
}

QRectF HistoryCurve::boundingRect() const
{
    QVector<RVXPlotHistory::Block> &blocks = blockScratch().blocks;
    RVXPlotHistory::Block whole{0.0, 0.0, 0.0, 0};
    if (m_frame.isEmpty() || !m_frame.read(m_column, blocks))
        return QRectF(1.0, 1.0, -2.0, -2.0);
    for (const RVXPlotHistory::Block &block : qAsConst(blocks)) {
        if (block.count == 0)
            continue;
        whole.least = whole.count > 0 ? std::min(whole.least, block.least) : block.least;
        whole.greatest =
            whole.count > 0 ? std::max(whole.greatest, block.greatest) : block.greatest;
        whole.count += block.count;
    }
    if (whole.count == 0)
        return QRectF(1.0, 1.0, -2.0, -2.0);
    const double left = m_frame.intervals().first().first;
    return QRectF(QPointF(left, whole.least / m_divisor),
                  QPointF(m_frame.intervals().last().last, whole.greatest / m_divisor));
}

void HistoryCurve::draw(QPainter *painter,
                        const QwtScaleMap &xMap,
                        const QwtScaleMap &yMap,
                        const QRectF &canvasRect) const
{
    if (m_frame.isEmpty() || !m_frame.read(m_column, blockScratch().blocks))
        return;
    const QRect clip = canvasRect.toAlignedRect();
    PixelRuns &runs = blockScratch().runs;
    runs.begin(clip);
    clearWideRegisters();
    addBlocks(runs, xMap, yMap, clip);
    runs.end();
    painter->setPen(m_pen);
    if (m_layer && CurveLines::drawsWholePixels(*painter, xMap, yMap)) {
        m_layer->add(painter, clip, runs, m_pen.color());
        return;
    }
    if (m_layer)
        m_layer->flush(painter);
    painter->drawLines(runs.lines());
}

void HistoryCurve::addBlocks(PixelRuns &runs,
                             const QwtScaleMap &xMap,
                             const QwtScaleMap &yMap,
                             const QRect &clip) const
{
    const QVector<HistoryFrame::Place> &places = m_frame.places(xMap);
    const QVector<RVXPlotHistory::Interval> &intervals = m_frame.intervals();
    const QwtTransform *const transform = yMap.transformation();
    const auto shown = [&](double value) { // a logarithm knows no 0
        return transform ? transform->bounded(value / m_divisor) : value / m_divisor;
    };
    const auto pixel = [&](double value) {
        return pixelOf(yMap, shown(value));
    };
    BlockRuns drawn(runs, clip);
    for (int i = 0; i < places.size(); ++i) {
        const RVXPlotHistory::Block &block = blockScratch().blocks[i];
        const bool isWhole = block.count == intervals[i].rows;
        if (!isWhole)
            drawn.gap();
        if (block.count == 0 || shown(block.greatest) > block.greatest / m_divisor)
            continue;
        const auto [top, bottom] = std::minmax({pixel(block.least), pixel(block.greatest)});
        drawn.add(places[i], {top, bottom, std::clamp(pixel(block.mean), top, bottom)});
        if (!isWhole || m_frame.isGapAfter(i, m_next.x()))
            drawn.gap();
    }
    if (m_frame.reachesRows() && std::isfinite(m_next.x()) && std::isfinite(m_next.y()))
        runs.addPoint(pixelOf(xMap, m_next.x()), pixelOf(yMap, m_next.y()));
}

} // namespace Corvale_Qt
