// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/TapeSketch.h"

#include "monitor/core/Text.h"
#include "monitor/window/Look.h"

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

//! Returns the smallest of 1, 2 or 5 times a power of ten that is \a least or more.
double decimalStep(double least)
{
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= least)
            return factor * power;
    return 10.0 * power;
}

constexpr double shortTape = 100.0; // s

//! Returns whether a time on a tape of that length is written in seconds alone.
bool isInSeconds(double seconds, double length)
{
    constexpr double longestClock = 1e7;
    return length < shortTape || !(std::abs(seconds) < longestClock);
}

//! Returns a time like "3:05.2" or "1:02:03".
QString clockText(double seconds, int decimals)
{
    constexpr qint64 minute = 60, hour = 3600;
    const auto steps = qint64(std::lround(std::pow(10.0, decimals)));
    const auto all = qint64(std::llround(std::abs(seconds) * double(steps)));
    const qint64 whole = all / steps;
    const QLatin1Char zero('0');
    QString text = QStringLiteral("%1").arg(whole % minute, 2, 10, zero);
    if (decimals > 0)
        text += QStringLiteral(".%1").arg(all % steps, decimals, 10, zero);
    const qint64 minutes = whole % hour / minute;
    text = whole < hour
        ? QStringLiteral("%1:%2").arg(minutes).arg(text)
        : QStringLiteral("%1:%2:%3").arg(whole / hour).arg(minutes, 2, 10, zero).arg(text);
    return seconds < 0.0 && all > 0 ? QLatin1Char('-') + text : text;
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

QString TapeSketch::timeText(double seconds, double length)
{
    constexpr double longestNumber = 1e15, splitSecond = 0.01;
    if (!(std::abs(seconds) < longestNumber))
        return Text::tr("%1 s").arg(seconds, 0, 'g', 4);
    if (isInSeconds(seconds, length)) {
        const int decimals = length < splitSecond ? 6
            : length < 1.0                        ? 4
            : length < shortTape                  ? 2
                                                  : 0;
        return Text::tr("%1 s").arg(seconds, 0, 'f', decimals);
    }
    return clockText(std::copysign(std::floor(std::abs(seconds)), seconds), 0);
}

QString TapeSketch::exactTimeText(double seconds, double length)
{
    constexpr int decimals = 3;
    return isInSeconds(seconds, length) ? Text::tr("%1 s").arg(seconds, 0, 'f', decimals)
                                        : clockText(seconds, decimals);
}

double TapeSketch::timeStep(double length, int most)
{
    constexpr double minute = 60.0, hour = 60.0 * minute, day = 24.0 * hour;
    const double least = length / std::max(most, 1);
    if (least <= 0.5 * minute)
        return std::min(decimalStep(least), 0.5 * minute);
    for (const double minutes : {1.0, 2.0, 5.0, 10.0, 15.0, 30.0})
        if (minutes * minute >= least)
            return minutes * minute;
    for (const double hours : {1.0, 2.0, 3.0, 6.0, 12.0})
        if (hours * hour >= least)
            return hours * hour;
    return decimalStep(std::max(least / day, 1.0)) * day;
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
    const int room = 2
        * std::max(m_metrics.horizontalAdvance(timeText(first, length)),
                   m_metrics.horizontalAdvance(timeText(first + stretch.length, length)));
    const double step = timeStep(length, m_band.width() / std::max(room, 1));
    const double firstTick = std::ceil(first / step) * step;
    // Counted, because steps may be too small for the times that they are added to.
    const auto ticks = int((stretch.length + first - firstTick) / step * (1.0 + 1e-9));
    for (int i = 0; i <= ticks; ++i) {
        const double time = firstTick + i * step;
        const int x = xOf(stretch.position + time - first);
        painter->drawLine(x, m_band.bottom() + 1, x, m_band.bottom() + 3);
        const QString text = timeText(time, length);
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
