// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/TapeSketch.h"

#include "monitor/window/Look.h"
#include "monitor/window/TapeText.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Monitor {

namespace {

//! Returns the palette's colour between its text and its ground.
QColor between(const QPalette &palette, double text)
{
    return Look::mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), text);
}

//! Returns the colour of what is missing, faint since a gap may be wide.
QColor gapColor(const QPalette &palette)
{
    constexpr double faint = 0.55;
    return Look::mixed(palette.color(QPalette::Base), Look::ground(Look::State::Waiting), faint);
}

} // namespace

TapeSketch::TapeSketch(const TapeSurvey &survey,
                       const QRect &band,
                       const QPalette &palette,
                       const QFont &font)
    : m_survey(survey)
    , m_band(band)
    , m_palette(palette)
    , m_metrics(font)
{
}

double TapeSketch::positionAt(int x) const
{
    const double share = double(x - m_band.left()) / std::max(m_band.width() - 1, 1);
    return std::clamp(share, 0.0, 1.0) * m_survey.length;
}

int TapeSketch::xOf(double position) const
{
    const double length = m_survey.length;
    const bool measurable = length > 0.0 && std::isfinite(length);
    const double share = measurable ? std::clamp(position / length, 0.0, 1.0) : 0.0;
    return m_band.left() + int(std::lround(share * std::max(m_band.width() - 1, 0)));
}

void TapeSketch::paint(QPainter *painter) const
{
    paintMarks(painter);
    paintOutline(painter);
    paintLanes(painter);
    paintTimes(painter);
}

void TapeSketch::paintOutline(QPainter *painter) const
{
    const QVector<TapeIndex::Range> outline = m_survey.outline(m_band.width());
    double low = std::numeric_limits<double>::infinity(), high = -low;
    for (const TapeIndex::Range &range : outline) {
        if (range.low > range.high)
            continue;
        low = std::min(low, range.low);
        high = std::max(high, range.high);
    }
    const double span = high - low;
    if (!(span >= 0.0) || !std::isfinite(span))
        return;
    const double room = m_band.height() - 5;
    const auto y = [&](double value) {
        const double share = span > 0.0 ? (value - low) / span : 0.5;
        return m_band.bottom() - 2 - share * room;
    };
    const std::vector<bool> silent = columnsInGaps();
    const auto isEmpty = [&](int i) {
        return i < 0 || i >= outline.size() || outline[i].low > outline[i].high
            || silent[std::size_t(i)];
    };
    for (int i = 0; i < outline.size(); ++i) {
        if (isEmpty(i))
            continue;
        // A single pixel, far from all others, would be overlooked.
        const double around = isEmpty(i - 1) && isEmpty(i + 1) ? 1.5 : 0.5;
        const double top = y(outline[i].high), bottom = y(outline[i].low);
        painter->fillRect(QRectF(m_band.left() + i + 0.5 - around,
                                 top - around,
                                 2.0 * around,
                                 bottom - top + 2.0 * around),
                          between(m_palette, 0.65));
    }
}

/*! Returns for each column of the band whether it lies within a gap. The outline has blocks of readings, which may reach
    across one. */
std::vector<bool> TapeSketch::columnsInGaps() const
{
    std::vector<bool> columns(std::size_t(std::max(m_band.width(), 0)));
    const bool hasOthers = !m_survey.lanes.isEmpty(); // whose gaps are marked as well
    for (const TapeSurvey::Mark &mark : m_survey.marks) {
        if (mark.kind != TapeMark::Kind::Gap || hasOthers)
            continue;
        const int end = xOf(mark.position + mark.length);
        for (int x = xOf(mark.position) + 1; x < end; ++x)
            columns[std::size_t(x - m_band.left())] = true;
    }
    return columns;
}

//! Gaps are bars in the band, events are flags above it.
void TapeSketch::paintMarks(QPainter *painter) const
{
    for (const TapeSurvey::Mark &mark : m_survey.marks) {
        const double at = mark.position;
        const int x = xOf(at);
        if (mark.kind == TapeMark::Kind::Gap) {
            const int width = std::max(2, xOf(at + mark.length) - x);
            painter->fillRect(x, m_band.top(), width, m_band.height(), gapColor(m_palette));
            continue;
        }
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(m_palette.color(QPalette::Link));
        const double top = m_band.top() - flagHeight;
        const QPointF flag[] = {QPointF(x - 4.0, top),
                                QPointF(x + 4.0, top),
                                QPointF(x, m_band.top())};
        painter->drawPolygon(flag, 3);
        painter->setRenderHint(QPainter::Antialiasing, false);
    }
    // Parts whose times are independent of each other.
    painter->setPen(QPen(between(m_palette, 0.5), 1, Qt::DashLine));
    for (const double border : m_survey.borders)
        painter->drawLine(xOf(border), m_band.top(), xOf(border), m_band.bottom());
}

//! Lines at the foot of the band; the outline is that of the first one.
void TapeSketch::paintLanes(QPainter *painter) const
{
    constexpr int thickness = 3, most = 6;
    int y = m_band.bottom() - thickness * std::min(int(m_survey.lanes.size()), most) + 1;
    for (const TapeSurvey::Lane &lane : m_survey.lanes.mid(0, most)) {
        const QColor color = m_palette.color(QPalette::Highlight);
        for (const TapeSurvey::Stretch &stretch : lane.covered) {
            const int from = xOf(stretch.position);
            const int to = xOf(stretch.position + stretch.length);
            painter->fillRect(from, y, to - from + 1, thickness - 1, color);
        }
        y += thickness;
    }
}

void TapeSketch::paintTimes(QPainter *painter) const
{
    if (!(m_survey.length > 0.0) || !std::isfinite(m_survey.length))
        return;
    painter->setPen(m_palette.color(QPalette::WindowText));
    int from = 0;
    for (const TapeSurvey::Stretch &stretch : m_survey.stretches)
        from = paintTimesOf(stretch, from, painter);
}

//! Writes the times of a stretch that have room from a place on. Returns where the last one ends.
int TapeSketch::paintTimesOf(const TapeSurvey::Stretch &stretch, int from, QPainter *painter) const
{
    const double length = m_survey.length, first = stretch.time;
    const auto textOf = [&](double time) {
        return stretch.hasTimes ? TapeText::time(time, length) : TapeText::number(time);
    };
    const int room = 2
        * std::max(m_metrics.horizontalAdvance(textOf(first)),
                   m_metrics.horizontalAdvance(textOf(first + stretch.length)));
    const int most = m_band.width() / std::max(room, 1);
    const double step =
        stretch.hasTimes ? TapeText::timeStep(length, most) : TapeText::numberStep(length, most);
    const double firstTick = std::ceil(first / step) * step;
    // Counted, because steps may be too small for the times that they are added to.
    const auto ticks = int((stretch.length + first - firstTick) / step * (1.0 + 1e-9));
    for (int i = 0; i <= ticks; ++i) {
        const double time = firstTick + i * step;
        const int x = xOf(stretch.position + time - first);
        painter->drawLine(x, m_band.bottom() + 1, x, m_band.bottom() + 3);
        const QString text = textOf(time);
        const int width = m_metrics.horizontalAdvance(text);
        const int right = m_band.right() + margin;
        const int left = std::clamp(x - width / 2, 0, std::max(0, right - width));
        if (left < from)
            continue;
        painter->drawText(left, m_band.bottom() + 2 + m_metrics.ascent(), text);
        from = left + width + m_metrics.averageCharWidth();
    }
    return from;
}

} // namespace Monitor
