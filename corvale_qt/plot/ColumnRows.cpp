// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/SeriesSource_p.h"
#include "corvale_qt/plot/ColumnRows_p.h"
#include "corvale_qt/plot/RowSearch_p.h"

#include <algorithm>
#include <utility>

namespace Corvale_Qt {

namespace {

bool isSame(const ColumnRows::Column &a, const ColumnRows::Column &b)
{
    return a.number == b.number && a.first == b.first && a.end == b.end && a.breaks == b.breaks
        && a.place == b.place;
}

} // namespace

bool ColumnRows::Key::matches(const Key &other) const
{
    return isComparable(other) && number == other.number && count == other.count
        && grid.left == other.grid.left && shown == other.shown;
}

//! Returns whether rows and columns of the other key have the same numbers.
bool ColumnRows::Key::isComparable(const Key &other) const
{
    return content == other.content && grid.numbersLike(other.grid)
        && shown.count() == other.shown.count();
}

ColumnRows::Key
ColumnRows::keyOf(const SeriesSpans &samples, const PixelGrid &grid, const ColumnSpan &shown)
{
    const RingSpans &x = samples.storedX();
    return {x.content, x.number, samples.count(), grid, shown};
}

bool ColumnRows::isAbout(const SeriesSpans &samples,
                         const PixelGrid &grid,
                         const ColumnSpan &shown) const
{
    return keyOf(samples, grid, shown).matches(m_key);
}

bool ColumnRows::canFollow(const SeriesSpans &samples)
{
    return samples.storedX().content != 0;
}

void ColumnRows::update(const SeriesSpans &samples,
                        const PixelGrid &grid,
                        const ColumnSpan &shown,
                        const QVector<int> &breaks)
{
    const Key key = keyOf(samples, grid, shown);
    if (std::exchange(m_isCurrent, true) && key.matches(m_key))
        return;
    const Key before = std::exchange(m_key, key);
    ++m_stamp;
    std::swap(m_columns, m_before);
    if (!key.isComparable(before)) {
        m_before.resize(0);
        m_isAllStale = true;
    }
    find(samples);
    noteBreaks(breaks);
    compare();
    addScrolled(before.shown);
}

void ColumnRows::find(const SeriesSpans &samples)
{
    const auto column = [&](int row) {
        return m_key.grid.columnOf(samples.x(row));
    };
    const int inside = firstPast(0, samples.count(), [&](int row) {
        return column(row) >= m_key.shown.first;
    });
    const int beyond = firstPast(inside, samples.count(), [&](int row) {
        return column(row) > m_key.shown.last;
    });
    const int end = std::min(beyond + 1, samples.count());
    m_columns.resize(0);
    int rows = 0;
    auto known = m_before.cbegin();
    for (int row = std::max(inside - 1, 0); row < end;) {
        // Most columns are those of the frame before. Its last one may have got more rows.
        while (known != m_before.cend() && known->first < row + m_key.number)
            ++known;
        const bool isKnown = m_before.cend() - known > 1 && known->first == row + m_key.number
            && known->end <= end + m_key.number;
        const qint64 here = isKnown ? known->number : column(row);
        const auto isPast = [&](int r) {
            return column(r) != here;
        };
        const int next =
            isKnown ? int(known->end - m_key.number) : firstPastNear(row + 1, end, rows, isPast);
        append(here, row, next);
        rows = next - row;
        row = next;
    }
}

void ColumnRows::append(qint64 number, int first, int end)
{
    // Columns in view share the places in turn, so that a column keeps its place; one beyond either side has an extra one.
    const int width = m_key.shown.count();
    int place = number < m_key.shown.first ? width : width + 1;
    if (m_key.shown.contains(number))
        place = int((number % width + width) % width);
    m_columns.append({number, first + m_key.number, end + m_key.number, 0, m_stamp, place});
}

void ColumnRows::noteBreaks(const QVector<int> &breaks)
{
    auto column = m_columns.begin();
    for (const int row : breaks) {
        const qint64 index = row + m_key.number;
        while (column != m_columns.end() && column->end <= index)
            ++column;
        if (column == m_columns.end())
            return;
        if (column->first <= index)
            column->breaks = 31 * column->breaks + quint64(index - column->first) + 1;
    }
}

//! Finds the columns that are others than before. What has come to both sides of a change is drawn anew as far as its lines reach.
void ColumnRows::compare()
{
    m_changed.resize(0);
    int old = 0;
    for (int i = 0; i < m_columns.size(); ++i) {
        Column &column = m_columns[i];
        for (; old < m_before.size() && m_before[old].first < column.first; ++old)
            addStale(m_before, old);
        if (old < m_before.size() && isSame(m_before[old], column)) {
            column.stamp = m_before[old++].stamp;
            continue;
        }
        m_changed.append(i);
        addStale(m_columns, i);
    }
    for (; old < m_before.size(); ++old)
        addStale(m_before, old);
}

//! Notes that a column has changed, with the lines from the column before it and to the one after it.
void ColumnRows::addStale(const QVector<Column> &columns, int index)
{
    if (m_isAllStale)
        return;
    ColumnSpan span = m_key.shown;
    if (index > 0)
        span.first = columns[index - 1].number;
    if (index + 1 < columns.size())
        span.last = columns[index + 1].number;
    m_stale.append(span);
}

//! Notes the columns that have come into view.
void ColumnRows::addScrolled(const ColumnSpan &before)
{
    const ColumnSpan &shown = m_key.shown;
    const ColumnSpan right{std::max(shown.first, before.last + 1), shown.last};
    const ColumnSpan left{shown.first, std::min(shown.last, before.first - 1)};
    if (!m_isAllStale)
        m_stale << left << right;
}

QVector<ColumnSpan> ColumnRows::takeStale()
{
    const ColumnSpan &shown = m_key.shown;
    if (std::exchange(m_isAllStale, false))
        m_stale = {shown};
    std::sort(m_stale.begin(), m_stale.end(), [](const ColumnSpan &a, const ColumnSpan &b) {
        return a.first < b.first;
    });
    QVector<ColumnSpan> stale;
    for (const ColumnSpan &noted : qAsConst(m_stale)) {
        // It may have been noted before the axis moved on.
        const ColumnSpan span{std::max(noted.first, shown.first), std::min(noted.last, shown.last)};
        if (span.isEmpty())
            continue;
        if (!stale.isEmpty() && span.first <= stale.last().last + 1)
            stale.last().last = std::max(stale.last().last, span.last);
        else
            stale.append(span);
    }
    m_stale.resize(0);
    return stale;
}

} // namespace Corvale_Qt
