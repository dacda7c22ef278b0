// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/StripPicture_p.h"

#include <QPainter>

#include <algorithm>
#include <iterator>
#include <utility>

namespace Corvale_Qt {

namespace {

// Columns further away than any picture is wide; an int holds twice as many.
constexpr qint64 farthestColumn = 1 << 30;

} // namespace

bool CurveColumns::canFollow(const SeriesSpans &samples)
{
    return samples.storedY().content != 0;
}

bool CurveColumns::update(const SeriesSpans &samples, const ColumnRows &rows)
{
    const RingSpans &y = samples.storedY();
    const qint64 offset = y.number - samples.storedX().number;
    const bool isSame =
        m_content == y.content && m_offset == offset && m_readings.size() == rows.places();
    m_content = y.content;
    m_offset = offset;
    m_readings.resize(rows.places());
    const quint64 followed = std::exchange(m_stamp, rows.stamp());
    const auto read = [&](const ColumnRows::Column &column) {
        m_readings[column.place] =
            ColumnReadings::of(samples, rows.sampleOf(column.first), rows.sampleOf(column.end));
    };
    if (isSame && followed + 1 == rows.stamp()) {
        for (const int index : rows.changed())
            read(rows.columns()[index]);
        return true;
    }
    for (const ColumnRows::Column &column : rows.columns()) {
        if (!isSame || column.stamp > followed)
            read(column);
    }
    return isSame;
}

void CurveColumns::addTo(PixelRuns &runs,
                         const SeriesSpans &samples,
                         const ColumnRows &rows,
                         const ColumnSpan &span,
                         const Look &look) const
{
    const QVector<ColumnRows::Column> &columns = rows.columns();
    const auto inside = std::lower_bound(columns.begin(),
                                         columns.end(),
                                         span.first,
                                         [](const auto &column, qint64 number) {
                                             return column.number < number;
                                         });
    const DenseCurve curve(samples, look.yMap);
    auto column = inside == columns.begin() ? inside : inside - 1;
    for (; column != columns.end(); ++column) {
        const int first = rows.sampleOf(column->first);
        const int end = rows.sampleOf(column->end);
        const int x =
            int(std::clamp(column->number - look.columnAtZero, -farthestColumn, farthestColumn));
        if (column->breaks == 0)
            curve.add(runs, x, m_readings[column->place], first, end);
        else
            curve.add(runs, x, LineBreaks(&look.breaks, first), first, end);
        if (column->number > span.last)
            return;
    }
}

bool StripPicture::Look::operator==(const Look &other) const
{
    return owner == other.owner && color == other.color && factor == other.factor
        && zero == other.zero && divisor == other.divisor
        && std::equal(std::begin(scale), std::end(scale), other.scale)
        && std::equal(std::begin(paint), std::end(paint), other.paint);
}

StripPicture::Look StripPicture::lookOf(const Curve &curve)
{
    const RingSpans &y = curve.samples.storedY();
    const QwtScaleMap &map = curve.yMap;
    return {curve.owner,
            curve.color,
            y.factor,
            y.zero,
            curve.samples.divisor(),
            {map.s1(), map.s2()},
            {map.p1(), map.p2()}};
}

bool StripPicture::takes(const QwtScaleMap &xMap, const Curve &curve) const
{
    return m_grid.describes(xMap) && ColumnRows::canFollow(curve.samples)
        && CurveColumns::canFollow(curve.samples);
}

bool StripPicture::add(const QRect &clip,
                       const QwtScaleMap &xMap,
                       const Curve &curve,
                       const QVector<int> &breaks)
{
    const SeriesSpans &samples = curve.samples;
    const ColumnSpan shown = m_grid.at(xMap, clip.left(), clip.right());
    const bool fits = !clip.isEmpty()
        && (m_curves.empty() || (clip == m_clip && m_rows.isAbout(samples, m_grid, shown)));
    if (!fits || !takeColor(curve.color))
        return false;
    m_clip = clip;
    m_rows.update(samples, m_grid, shown, breaks);
    Kept &kept = m_kept[curve.owner];
    kept.frame = m_frame;
    m_isSame = kept.columns.update(samples, m_rows) && m_isSame;
    m_curves.push_back(curve);
    return true;
}

//! Notes a colour. Returns false if the picture has no number for it beside those of the curves before.
bool StripPicture::takeColor(QRgb color)
{
    if (m_colors.contains(color))
        return true;
    if (m_colors.size() == RunImage::mostColors)
        return false;
    m_colors.append(color);
    return true;
}

void StripPicture::draw(QPainter *painter, const QVector<int> &breaks)
{
    if (isAnew())
        m_rows.forgetPicture();
    const ColumnSpan &shown = m_rows.shown();
    const QVector<ColumnSpan> stale = m_rows.takeStale();
    const bool isAllStale = stale.size() == 1 && stale.first() == shown;
    if (isAllStale)
        m_image.reset(m_clip.size());
    const int width = m_clip.width();
    m_image.setOrigin(int((shown.first % width + width) % width));
    for (const ColumnSpan &span : stale) {
        if (!isAllStale)
            m_image.clear({int(span.first - shown.first), int(span.last - shown.first)});
        drawColumns(span, breaks);
    }
    m_image.draw(painter, m_clip.topLeft());
    forgetCurves();
    end();
}

//! Returns whether the picture shows curves that look different. From now on it is that of the curves of this frame.
bool StripPicture::isAnew()
{
    QVector<Look> looks;
    looks.reserve(int(m_curves.size()));
    for (const Curve &curve : m_curves)
        looks.append(lookOf(curve));
    std::swap(looks, m_looks);
    const QRect before = std::exchange(m_drawnClip, m_clip);
    const bool hasSameRows = before.top() == m_clip.top() && before.height() == m_clip.height();
    return !m_isSame || !hasSameRows || looks != m_looks;
}

void StripPicture::drawColumns(const ColumnSpan &span, const QVector<int> &breaks)
{
    const qint64 first = m_rows.shown().first;
    const RunImage::Columns part{int(span.first - first), int(span.last - first)};
    for (const Curve &curve : m_curves) {
        m_runs.begin(m_clip);
        const CurveColumns::Look look{curve.yMap, breaks, first - m_clip.left()};
        m_kept[curve.owner].columns.addTo(m_runs, curve.samples, m_rows, span, look);
        m_runs.end();
        m_image.add(m_runs, -m_clip.topLeft(), m_image.numberOf(curve.color), part);
    }
}

//! Forgets what was read of curves that have not been drawn for a while.
void StripPicture::forgetCurves()
{
    constexpr quint64 remembered = 50; // frames
    for (auto each = m_kept.begin(); each != m_kept.end();)
        each = each->second.frame + remembered < m_frame ? m_kept.erase(each) : std::next(each);
}

void StripPicture::drop()
{
    if (isEmpty())
        return;
    m_rows.forgetPicture(); // it does not show what was read for this frame
    end();
}

void StripPicture::end()
{
    ++m_frame;
    m_curves.clear();
    m_colors.resize(0);
    m_isSame = true;
    m_rows.beginFrame();
}

} // namespace Corvale_Qt
